#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "lists/MarkupScanner.h"

namespace norvo {

/// Goes through the elements of a text that is meant to be XML, in their order, and holds no more
/// of them than those that are open: what a tree of the whole would take many times the text for.
/// As in an `XmlDocument`, what is not closed ends with the element around it, and an end without
/// a start is passed over. Takes time in proportion to the text's length.
class MarkupElements {
 public:
  /// The text must outlive this.
  explicit MarkupElements(StringView text) : tags_(text) {}

  /// Goes on to the next element of that name, however deep; false when there is none.
  bool Find(StringView name);

  /// Calls `visit` with each element right within the one that was found or visited last, which is
  /// then the last itself. It may go into it, ask for its text, or leave it be.
  template <class Visit>
  void ForEachChild(Visit&& visit) {
    const std::size_t depth = depth_;
    while (NextChild(depth)) visit();
  }

  /// True when the last element has that name, in any name space; case ignored.
  bool Is(StringView name) const;

  /// The first text right in the last element, on one line and without blanks around it. Once it
  /// was asked for, the element's name and children cannot be.
  const String& Text();

 private:
  bool NextChild(std::size_t depth);
  bool NextTag();
  String FirstText();
  void Open(StringView name);
  void Close(StringView name);
  void EndEmpty();

  MarkupScanner tags_;
  std::vector<StringView> open_;  // names, the innermost last
  std::size_t deeper_ = 0;        // elements that are open within these, and not looked at
  bool begins_ = false;           // an element, with the last tag
  bool isEmpty_ = false;          // and ends with it
  StringView name_;               // of the last element
  std::size_t depth_ = 0;         // how many were open with it
  std::optional<String> text_;    // its own, once it was asked for
};

}  // namespace norvo
