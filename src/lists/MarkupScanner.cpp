#include "lists/MarkupScanner.h"

#include <algorithm>
#include <cstdint>

namespace norvo {
namespace {

// A tag that anybody wrote has a few.
constexpr std::size_t kMostAttributes = 64;

constexpr StringView kCommentStart = u"<!--";
constexpr StringView kCommentEnd = u"-->";

bool IsLetter(char16_t unit) {
  const char16_t lower = ToLowerAscii(unit);
  return lower >= u'a' && lower <= u'z';
}

/// A bit for each unit that ends a name, all of which are below 64: every unit of a list is asked,
/// and one look at a table takes a tenth of the time of a search in a text.
constexpr std::uint64_t NameEnds() {
  std::uint64_t ends = 0;
  for (const char16_t unit : StringView(u"<>/=\"'")) ends |= std::uint64_t{1} << unit;
  for (char16_t unit = 0; IsBlankOrControl(unit); ++unit) ends |= std::uint64_t{1} << unit;
  return ends;
}

bool EndsName(char16_t unit) {
  constexpr std::uint64_t kEnds = NameEnds();
  return unit < 64 && ((kEnds >> unit) & 1U) != 0;
}

}  // namespace

bool MarkupScanner::Next() {
  textStart_ = at_;
  textEnd_ = StringView::npos;
  for (;;) {
    const std::size_t open = FindUnit(text_, u'<', at_);
    if (open == StringView::npos) break;
    if (SkipComment(open)) {
      textEnd_ = std::min(textEnd_, open);
    } else if (ReadTag(open)) {
      position_ = open;
      textEnd_ = std::min(textEnd_, open);
      return true;
    }
  }
  at_ = text_.size();
  textEnd_ = std::min(textEnd_, at_);
  name_ = {};
  attributes_.clear();
  return false;
}

StringView MarkupScanner::Attribute(StringView name) const {
  const auto found = std::find_if(
      attributes_.begin(), attributes_.end(),
      [name](const NamedValue& attribute) { return EqualsIgnoreCase(attribute.name, name); });
  return found == attributes_.end() ? StringView() : found->value;
}

bool MarkupScanner::SkipComment(std::size_t open) {
  if (text_.substr(open, kCommentStart.size()) != kCommentStart) return false;
  at_ = open + kCommentStart.size();
  const std::size_t end = commentsEnd_ ? text_.find(kCommentEnd, at_) : StringView::npos;
  commentsEnd_ = end != StringView::npos;
  if (!commentsEnd_) return false;
  at_ = end + kCommentEnd.size();
  return true;
}

bool MarkupScanner::StartsTag(std::size_t open) const {
  const StringView rest = text_.substr(open + 1, 2);
  const std::size_t start = rest.starts_with(u'/') ? 1 : 0;
  return rest.size() > start && IsLetter(rest[start]);
}

/// False, with the place moved on, when the "<" starts no tag.
bool MarkupScanner::ReadTag(std::size_t open) {
  at_ = std::max(at_, open + 1);
  if (!StartsTag(open)) return false;
  closes_ = text_[at_] == u'/';
  if (closes_) ++at_;
  name_ = ReadName();
  ReadAttributes();
  return true;
}

void MarkupScanner::ReadAttributes() {
  attributes_.clear();
  selfClosing_ = false;
  bool slash = false;  // directly before
  while (!AtEnd() && text_[at_] != u'<') {
    const char16_t unit = text_[at_];
    if (!EndsName(unit)) {
      ReadAttribute();
      slash = false;
      continue;
    }
    ++at_;
    if (unit == u'>') {
      selfClosing_ = slash;
      return;
    }
    slash = unit == u'/';
  }
}

void MarkupScanner::ReadAttribute() {
  NamedValue attribute{ReadName(), {}};
  SkipBlanks();
  if (!AtEnd() && text_[at_] == u'=') {
    ++at_;
    SkipBlanks();
    attribute.value = ReadValue();
  }
  if (attributes_.size() < kMostAttributes) attributes_.push_back(attribute);
}

StringView MarkupScanner::ReadValue() {
  if (AtEnd()) return {};
  if (text_[at_] == u'"' || text_[at_] == u'\'') return ReadQuoted(text_[at_]);
  const std::size_t start = at_;
  while (!AtEnd() && !IsBlankOrControl(text_[at_]) && text_[at_] != u'<' && text_[at_] != u'>')
    ++at_;
  // The slash of "/>" is the tag's.
  const bool slash = at_ > start && text_[at_ - 1] == u'/' && text_.substr(at_, 1) == u">";
  if (slash) --at_;
  return text_.substr(start, at_ - start);
}

StringView MarkupScanner::ReadQuoted(char16_t quote) {
  const std::size_t start = ++at_;
  at_ = EndOfQuoted(quote);
  const StringView value = text_.substr(start, at_ - start);
  if (AtEnd()) return value;
  if (text_[at_] == quote) {
    ++at_;
  } else if (text_[at_] == u'>' && value.ends_with(u'/')) {
    --at_;  // never closed: the slash of "/>" is the tag's
    return value.substr(0, value.size() - 1);
  }
  return value;
}

/// Place of the closing quote. Where a tag begins first the quote was forgotten, and its own tag's
/// end is the place, or that beginning.
std::size_t MarkupScanner::EndOfQuoted(char16_t quote) const {
  const std::size_t closing = std::min(FindUnit(text_, quote, at_), text_.size());
  const StringView before = text_.substr(0, closing);
  std::size_t end = FindUnit(before, u'<', at_);
  while (end != StringView::npos && !StartsTag(end)) end = FindUnit(before, u'<', end + 1);
  if (end == StringView::npos && closing < text_.size()) return closing;
  end = std::min(end, text_.size());
  return std::min(FindUnit(text_.substr(0, end), u'>', at_), end);
}

StringView MarkupScanner::ReadName() {
  const StringView rest = text_.substr(at_);
  const auto* const end = std::find_if(rest.begin(), rest.end(), EndsName);
  const StringView name = rest.substr(0, static_cast<std::size_t>(end - rest.begin()));
  at_ += name.size();
  return name;
}

void MarkupScanner::SkipBlanks() {
  while (!AtEnd() && IsBlankOrControl(text_[at_])) ++at_;
}

}  // namespace norvo
