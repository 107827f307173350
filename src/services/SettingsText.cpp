#include "services/SettingsText.h"

namespace norvo {
namespace {

bool IsLineEnd(char16_t unit) {
  return unit == u'\r' || unit == u'\n';
}

/// Looks at all units without a branch, which is the quickest for values of usual lengths.
bool HasLineEnd(StringView value) {
  unsigned found = 0;
  for (const char16_t unit : value) found |= static_cast<unsigned>(IsLineEnd(unit));
  return found != 0;
}

StringView WithoutLineEnd(StringView value) {
  if (value.ends_with(u'\n')) value.remove_suffix(1);
  if (value.ends_with(u'\r')) value.remove_suffix(1);
  return value;
}

/// Every line end within becomes one blank.
void JoinLines(StringView value, String& line) {
  line.clear();
  line.reserve(value.size());
  for (std::size_t i = 0; i < value.size(); ++i) {
    if (value[i] == u'\r' && i + 1 < value.size() && value[i + 1] == u'\n') continue;
    line.push_back(IsLineEnd(value[i]) ? u' ' : value[i]);
  }
}

}  // namespace

StringView StoredValue(StringView value, String& joined) {
  value = WithoutLineEnd(value);
  if (HasLineEnd(value)) {
    JoinLines(value, joined);
    value = joined;
  }
  return Trim(value, IsBlankOrTab);
}

bool LeavesEmptyLine(StringView value) noexcept {
  return !value.empty() && IsLineEnd(value.back());
}

void AppendLine(String& text, StringView line) {
  text.append(line).append(kLineEnd);
}

void AppendSection(String& text, StringView name) {
  text.append(1, u'[').append(name).append(u"]\r\n");
}

void AppendSetting(String& text, StringView key, StringView value) {
  String joined;
  text.append(key).append(1, u'=').append(StoredValue(value, joined)).append(kLineEnd);
  if (LeavesEmptyLine(value)) text.append(kLineEnd);
}

}  // namespace norvo
