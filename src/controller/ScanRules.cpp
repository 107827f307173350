#include "controller/ScanRules.h"

#include <algorithm>

#include "text/Wildcard.h"

namespace norvo {

bool MatchesAny(StringView name, std::span<const StringView> patterns) {
  return std::any_of(patterns.begin(), patterns.end(),
                     [name](StringView pattern) { return Matches(name, pattern, Compare::Text); });
}

std::vector<StringView> SplitPatterns(StringView list) {
  return Split(list, u',');
}

SkippedFolder SkippedFolderOf(StringView name) {
  struct Row {
    StringView pattern;
    SkippedFolder folder;
  };
  constexpr Row kRows[] = {{u"System Volume Information*", SkippedFolder::SystemVolume},
                           {u"*Recycle*", SkippedFolder::RecycleBin},
                           {u"*Temporary Internet Files*", SkippedFolder::TemporaryInternetFiles}};
  for (const Row& row : kRows) {
    if (Matches(name, row.pattern, Compare::Text)) return row.folder;
  }
  return SkippedFolder::None;
}

bool IsSkippedFolder(StringView name) {
  return SkippedFolderOf(name) != SkippedFolder::None;
}

}  // namespace norvo
