#include "lists/M3uItems.h"

#include <algorithm>

#include "lists/ItemNumbers.h"
#include "lists/ItemText.h"
#include "lists/SongNames.h"

namespace norvo {
namespace {

bool IsDirectiveUnit(char16_t unit) {
  const char16_t lower = ToLowerAscii(unit);
  return IsDigit(unit) || (lower >= u'a' && lower <= u'z') || unit == u'-' || unit == u'_';
}

/// "EXTINF" of "#EXTINF:215,Title"; empty for a line that is no directive.
StringView DirectiveName(StringView line) {
  constexpr StringView kStart = u"#EXT";
  if (!EqualsIgnoreCase(line.substr(0, kStart.size()), kStart)) return {};
  const auto* const end = std::find_if_not(line.begin() + 1, line.end(), IsDirectiveUnit);
  const StringView name(line.begin() + 1, static_cast<std::size_t>(end - line.begin() - 1));
  const bool whole = end == line.end() || *end == u':';
  const bool known = EqualsIgnoreCase(name, u"EXTINF") || EqualsIgnoreCase(name, u"EXTM3U");
  return whole || known ? name : StringView();
}

/// What an #EXTINF line tells of the next item.
struct Information {
  StringView shown;
  double seconds = 0;
};

/// Place of the comma before the name: not of one in an attribute's value, as in
/// "#EXTINF:215 group="a,b",Title".
std::size_t NameComma(StringView line) {
  bool quoted = false;
  for (std::size_t at = 0; at < line.size(); ++at) {
    if (line[at] == u'"') quoted = !quoted;
    if (line[at] == u',' && !quoted) return at;
  }
  return line.find(u',');
}

/// The length stands between the colon and the comma, or the blank before attributes; the name is
/// all that follows the comma.
Information InformationIn(StringView line) {
  const std::size_t comma = std::min(NameComma(line), line.size());
  StringView length = line.substr(0, comma);
  length.remove_prefix(std::min(length.find(u':'), length.size() - 1) + 1);
  length = CleanText(length);
  const auto* const end = std::find_if(length.begin(), length.end(), IsBlankOrControl);
  length = length.substr(0, static_cast<std::size_t>(end - length.begin()));
  return {comma < line.size() ? line.substr(comma + 1) : StringView(), SecondsOf(length)};
}

}  // namespace

bool IsM3uDirective(StringView line) {
  return !DirectiveName(line).empty();
}

ListedItems M3uItems(StringView text, std::size_t most) {
  ListedItems items;
  Information told;  // by the last #EXTINF line; the next one makes it void
  while (!text.empty() && items.size() < most) {
    const StringView line = CleanText(TakeLine(text));
    if (line.empty()) continue;
    if (const StringView directive = DirectiveName(line); !directive.empty()) {
      if (EqualsIgnoreCase(directive, u"EXTINF")) told = InformationIn(line);
      continue;
    }
    ListedItem& item = items.Add();
    item.references.emplace_back(line);
    item.maybeComment = line.front() == u'#';
    // A remark between the information and its song must not take it.
    const bool isSong = !item.maybeComment || HasSongExtension(line);
    if (!isSong) continue;
    SetNames(item, told.shown);
    item.seconds = told.seconds;
    told = {};
  }
  return items;
}

}  // namespace norvo
