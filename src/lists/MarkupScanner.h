#pragma once

#include <cstddef>
#include <vector>

#include "text/Text.h"

namespace norvo {

/// Goes through the tags of a text that is meant to be XML and often is not. Names in any case;
/// values in double, single or no quotes, with blanks around "="; a tag may spread over lines, and
/// ends at the latest before the next "<". A quote that is never closed ends with its tag. Comments
/// are skipped; one that is never closed hides nothing. Views point into the text. A whole run
/// takes time in proportion to the text's length.
class MarkupScanner {
 public:
  struct NamedValue {
    StringView name;
    StringView value;  ///< as written
  };

  /// The text must outlive the scanner.
  explicit MarkupScanner(StringView text) : text_(text) {}

  /// Goes on to the next tag; false, and no tag, at the text's end.
  bool Next();

  /// Place of the tag's "<".
  std::size_t Position() const { return position_; }
  /// The text between the tag before, or the start, and this tag or the first comment before it.
  StringView TextBefore() const { return text_.substr(textStart_, textEnd_ - textStart_); }

  /// True for <name ...> and <name ... />.
  bool Opens(StringView name) const { return !closes_ && IsNamed(name); }
  /// True for </name>.
  bool Closes(StringView name) const { return closes_ && IsNamed(name); }
  /// True for <name ... />.
  bool IsSelfClosing() const { return selfClosing_; }
  /// True for </name>, whatever the name.
  bool IsEnd() const { return closes_; }
  StringView Name() const { return name_; }
  /// In their order; of very many only the first.
  const std::vector<NamedValue>& Attributes() const { return attributes_; }
  /// Value of the first attribute of that name, as written; empty without one.
  StringView Attribute(StringView name) const;

 private:
  /// Asked several times of each tag, and answered by the length alone for most names.
  bool IsNamed(StringView name) const {
    return name_.size() == name.size() && EqualsIgnoreCase(name_, name);
  }
  bool SkipComment(std::size_t open);
  bool StartsTag(std::size_t open) const;
  bool ReadTag(std::size_t open);
  void ReadAttributes();
  void ReadAttribute();
  StringView ReadValue();
  StringView ReadQuoted(char16_t quote);
  std::size_t EndOfQuoted(char16_t quote) const;
  StringView ReadName();
  void SkipBlanks();
  bool AtEnd() const { return at_ >= text_.size(); }

  StringView text_;
  std::size_t at_ = 0;
  bool commentsEnd_ = true;  // "-->" may still follow
  std::size_t position_ = 0;
  std::size_t textStart_ = 0;
  std::size_t textEnd_ = 0;
  StringView name_;
  bool closes_ = false;
  bool selfClosing_ = false;
  std::vector<NamedValue> attributes_;
};

}  // namespace norvo
