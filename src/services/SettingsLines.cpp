#include "services/SettingsLines.h"

#include "automation/RunTimeError.h"

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

/// Which of the limits the lines go beyond; empty when none.
StringView TooManyLines(StringView text) {
  std::size_t count = 0;
  std::size_t sections = 0;
  SettingsLines lines(text);
  for (SettingsLine line; lines.Next(line);) {
    ++count;
    sections += line.kind == SettingsLine::Kind::Section ? 1 : 0;
  }
  if (count > kMostSettingsLines) return u"it has more than 2000000 lines";
  return sections > kMostSettingsSections ? u"it has more than 200000 sections" : StringView();
}

/// True when so few units end a line or may begin a section that no limit is near. Nearly every
/// text is, and the look at its lines takes longer.
bool HasFewLines(StringView text) {
  std::size_t ends = 0;
  std::size_t brackets = 0;
  for (const char16_t unit : text) {
    ends += static_cast<std::size_t>(unit == u'\n' || unit == u'\r');
    brackets += static_cast<std::size_t>(unit == u'[');
  }
  return ends < kMostSettingsLines && brackets <= kMostSettingsSections;
}

}  // namespace

void CheckSettings(StringView text) {
  StringView reason;
  if (text.size() > kMostSettingsUnits) {
    reason = u"it has more than 33554432 characters";
  } else if (!HasFewLines(text)) {
    reason = TooManyLines(text);
  }
  if (!reason.empty()) throw RunTimeError(error::kOutOfMemory, String(reason));
}

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
