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

bool IsSkippedFolder(StringView name) {
  constexpr StringView kSkipped[] = {u"System Volume Information*", u"*Recycle*",
                                     u"*Temporary Internet Files*"};
  return MatchesAny(name, kSkipped);
}

}  // namespace norvo
