#include "lists/ItemText.h"

#include <algorithm>

namespace norvo {
namespace {

bool IsNoText(char16_t unit) {
  return IsBlankOrControl(unit) || unit == 0xFEFF;
}

}  // namespace

StringView TakeLine(StringView& rest) {
  const StringView line = rest.substr(0, FindLineEnd(rest));
  rest.remove_prefix(std::min(line.size() + 1, rest.size()));
  return line;
}

StringView CleanText(StringView text) {
  return TrimEnd(BeforeNul(TrimStart(text, IsNoText)), IsNoText);
}

bool SaysNothing(StringView text) {
  return TrimStart(text, IsNoText).empty();
}

String OnOneLine(String text) {
  text.resize(BeforeNul(text).size());
  if (HasControls(text)) std::replace_if(text.begin(), text.end(), IsAsciiControl, u' ');
  const StringView clean = CleanText(text);
  return clean.size() == text.size() ? text : String(clean);
}

void SetNames(ListedItem& item, StringView shown) {
  constexpr StringView kBetween = u" - ";
  const std::size_t at = shown.find(kBetween);
  if (at == StringView::npos) {
    item.title = CleanText(shown);
    return;
  }
  item.artist = CleanText(shown.substr(0, at));
  item.title = CleanText(shown.substr(at + kBetween.size()));
}

}  // namespace norvo
