#include "services/SettingsLines.h"

namespace norvo {
namespace {

SettingsLine LineOf(StringView text) {
  using Kind = SettingsLine::Kind;
  const StringView content = TrimBlanksAndTabs(text);
  if (content.starts_with(u'[')) {
    const std::size_t close = content.rfind(u']');
    if (close != StringView::npos) {
      return {Kind::Section, TrimBlanksAndTabs(content.substr(1, close - 1)), {}};
    }
  }
  const std::size_t equals = FindUnit(content, u'=');
  const bool isKey = equals != StringView::npos && equals != 0 && content.front() != u';';
  if (!isKey) return {Kind::Other, {}, text};
  return {Kind::Key, TrimBlanksAndTabs(content.substr(0, equals)),
          TrimBlanksAndTabs(content.substr(equals + 1))};
}

}  // namespace

bool SettingsLines::Next(SettingsLine& line) {
  if (rest_.empty()) return false;
  const std::size_t end = FindLineEnd(rest_);
  line = LineOf(rest_.substr(0, end));
  rest_.remove_prefix(end);
  rest_.remove_prefix(rest_.starts_with(u"\r\n") ? 2 : rest_.empty() ? 0 : 1);
  return true;
}

bool HasSetting(StringView text, StringView section, StringView key) {
  SettingsLines lines(text);
  bool isInSection = false;
  for (SettingsLine line; lines.Next(line);) {
    if (line.kind == SettingsLine::Kind::Section) {
      isInSection = EqualsIgnoreCase(line.name, section);
    } else if (isInSection && line.kind == SettingsLine::Kind::Key) {
      if (EqualsIgnoreCase(line.name, key)) return true;
    }
  }
  return false;
}

}  // namespace norvo
