#include "lists/MarkupElements.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "lists/ItemText.h"
#include "lists/XmlDocument.h"

namespace norvo {
namespace {

// Nobody's text is so deep; an end looks for its start among so many.
constexpr std::size_t kDeepest = 256;

/// What an element's text says. Most say it as it stands.
String Said(String text) {
  constexpr StringView kMarks(u"&<\r\0", 4);
  if (text.find_first_of(kMarks) == String::npos) return OnOneLine(std::move(text));
  const XmlDocument document(u"<a>" + text + u"</a>");
  return TextOf(document.Root().first_child());
}

}  // namespace

bool MarkupElements::Find(StringView name) {
  while (NextTag()) {
    if (begins_ && Is(name)) return true;
  }
  return false;
}

bool MarkupElements::Is(StringView name) const {
  // No name space is told where there is no colon: the place behind "npos" is the start.
  return EqualsIgnoreCase(name_.substr(name_.rfind(u':') + 1), name);
}

const String& MarkupElements::Text() {
  if (!text_) text_ = isEmpty_ ? String() : Said(FirstText());
  return *text_;
}

/// As it is written: the first text right in the element, up to where another element begins.
String MarkupElements::FirstText() {
  const std::size_t depth = open_.size();
  String text;
  for (bool isWithin = true; isWithin && (!begins_ || SaysNothing(text));) {
    EndEmpty();
    const bool isOwn = open_.size() == depth;
    isWithin = NextTag() && open_.size() >= depth;
    if (isOwn) text += tags_.TextBefore();
  }
  return text;
}

/// False when the element of that depth has ended.
bool MarkupElements::NextChild(std::size_t depth) {
  EndEmpty();
  while (open_.size() >= depth && NextTag()) {
    if (begins_ && depth_ == depth + 1) return true;
  }
  return false;
}

/// False at the text's end.
bool MarkupElements::NextTag() {
  EndEmpty();
  begins_ = false;
  if (!tags_.Next()) return false;
  if (tags_.IsEnd()) {
    Close(tags_.Name());
  } else {
    Open(tags_.Name());
  }
  return true;
}

void MarkupElements::Open(StringView name) {
  if (open_.size() == kDeepest) {
    if (!tags_.IsSelfClosing()) ++deeper_;
    return;
  }
  open_.push_back(name);
  begins_ = true;
  isEmpty_ = tags_.IsSelfClosing();
  name_ = name;
  depth_ = open_.size();
  text_.reset();
}

/// Ends all down to the innermost of that name; nothing when none is open.
void MarkupElements::Close(StringView name) {
  if (deeper_ > 0) {
    --deeper_;
    return;
  }
  const auto found = std::find_if(open_.rbegin(), open_.rend(), [&](StringView open) {
    return open.size() == name.size() && EqualsIgnoreCase(open, name);
  });
  if (found != open_.rend()) open_.erase(std::prev(found.base()), open_.end());
}

void MarkupElements::EndEmpty() {
  if (isEmpty_) open_.pop_back();
  isEmpty_ = false;
}

}  // namespace norvo
