#include "lists/M3uItems.h"

#include <algorithm>
#include <utility>

#include "lists/ItemText.h"
#include "lists/SongNames.h"

namespace norvo {
namespace {

bool IsNameUnit(char16_t unit) {
  const char16_t lower = ToLowerAscii(unit);
  return IsDigit(unit) || (lower >= u'a' && lower <= u'z') || unit == u'-' || unit == u'_';
}

/// "EXTINF" of "#EXTINF:215,Title"; empty for a line that is no directive.
StringView DirectiveName(StringView line) {
  constexpr StringView kStart = u"#EXT";
  if (!EqualsIgnoreCase(line.substr(0, kStart.size()), kStart)) return {};
  const auto* const end = std::find_if_not(line.begin() + 1, line.end(), IsNameUnit);
  const StringView name(line.begin() + 1, static_cast<std::size_t>(end - line.begin() - 1));
  const bool whole = end == line.end() || *end == u':';
  const bool known = EqualsIgnoreCase(name, u"EXTINF") || EqualsIgnoreCase(name, u"EXTM3U");
  return whole || known ? name : StringView();
}

/// What an #EXTINF line shows of the next item: all that follows the comma.
StringView ShownName(StringView line) {
  const std::size_t comma = line.find(u',');
  return comma == StringView::npos ? StringView() : line.substr(comma + 1);
}

}  // namespace

bool IsM3uDirective(StringView line) {
  return !DirectiveName(line).empty();
}

std::vector<ListedItem> M3uItems(StringView text, std::size_t most) {
  std::vector<ListedItem> items;
  StringView shown;  // as the last #EXTINF line has it; the next one makes it void
  while (!text.empty() && items.size() < most) {
    const StringView line = CleanText(TakeLine(text));
    if (line.empty()) continue;
    if (const StringView directive = DirectiveName(line); !directive.empty()) {
      if (EqualsIgnoreCase(directive, u"EXTINF")) shown = ShownName(line);
      continue;
    }
    ListedItem& item = items.emplace_back();
    item.references.emplace_back(line);
    item.maybeComment = line.front() == u'#';
    // A remark between the information and its song must not take it.
    const bool isSong = !item.maybeComment || HasSongExtension(line);
    if (isSong) SetNames(item, std::exchange(shown, StringView()));
  }
  return items;
}

}  // namespace norvo
