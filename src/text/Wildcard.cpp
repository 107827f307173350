#include "text/Wildcard.h"

#include <optional>

namespace norvo {
namespace {

/// A bracketed set of a pattern: its characters without the brackets and the exclamation mark.
struct Set {
  StringView characters;
  bool negated = false;
  std::size_t end = 0;  // position in the pattern just after the closing bracket
};

std::optional<Set> SetAt(StringView pattern, std::size_t open) {
  const std::size_t close = pattern.find(u']', open + 1);
  if (close == StringView::npos) return std::nullopt;
  Set set{pattern.substr(open + 1, close - open - 1), false, close + 1};
  if (set.characters.size() > 1 && set.characters.front() == u'!') {
    set.negated = true;
    set.characters.remove_prefix(1);
  }
  return set;
}

bool IsRange(StringView characters, std::size_t i) {
  return i + 2 < characters.size() && characters[i + 1] == u'-';
}

bool InRange(char16_t unit, char16_t low, char16_t high, Compare compare) {
  if (compare == Compare::Binary) return unit >= low && unit <= high;
  const char16_t folded = ToUpper(unit);
  low = ToUpper(low);
  high = ToUpper(high);
  if (folded >= low && folded <= high) return true;
  return low == u'A' && high == u'Z' && unit >= 0x00C0;
}

bool SameUnit(char16_t left, char16_t right, Compare compare) {
  return left == right || (compare == Compare::Text && ToUpper(left) == ToUpper(right));
}

bool SetHolds(const Set& set, char16_t unit, Compare compare) {
  bool found = false;
  for (std::size_t i = 0; i < set.characters.size() && !found; ++i) {
    const char16_t c = set.characters[i];
    if (IsRange(set.characters, i)) {
      found = InRange(unit, c, set.characters[i + 2], compare);
      i += 2;
    } else {
      found = SameUnit(unit, c, compare) || (c == u'#' && IsDigit(unit));
    }
  }
  return found != set.negated;
}

/// Matches one element of the pattern, which is no asterisk, against one unit. Gives the position
/// after the element, or nothing when it does not match.
std::optional<std::size_t> MatchOne(StringView pattern, std::size_t at, char16_t unit,
                                    Compare compare) {
  switch (pattern[at]) {
    case u'?':
      return at + 1;
    case u'#':
      return IsDigit(unit) ? std::optional(at + 1) : std::nullopt;
    case u'[': {
      const std::optional<Set> set = SetAt(pattern, at);
      return set && SetHolds(*set, unit, compare) ? std::optional(set->end) : std::nullopt;
    }
    default:
      return SameUnit(pattern[at], unit, compare) ? std::optional(at + 1) : std::nullopt;
  }
}

/// Position of the next element that takes a character: empty sets take none.
std::size_t SkipEmptySets(StringView pattern, std::size_t at) {
  while (pattern.substr(at, 2) == u"[]") at += 2;
  return at;
}

}  // namespace

bool IsValidPattern(StringView pattern) {
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    if (pattern[i] != u'[') continue;
    const std::optional<Set> set = SetAt(pattern, i);
    if (!set) return false;
    for (std::size_t c = 0; c < set->characters.size(); ++c) {
      if (!IsRange(set->characters, c)) continue;
      if (set->characters[c] > set->characters[c + 2]) return false;
      c += 2;
    }
    i = set->end - 1;
  }
  return true;
}

bool Matches(StringView text, StringView pattern, Compare compare) {
  if (!IsValidPattern(pattern)) return false;
  std::size_t t = 0;
  std::size_t p = SkipEmptySets(pattern, 0);
  // Only the last asterisk ever needs to be tried again: what stands before it has matched.
  std::size_t retryText = 0;
  std::size_t retryPattern = StringView::npos;
  while (t < text.size()) {
    if (p < pattern.size() && pattern[p] == u'*') {
      p = retryPattern = SkipEmptySets(pattern, p + 1);
      retryText = t;
      continue;
    }
    const auto next =
        p < pattern.size() ? MatchOne(pattern, p, text[t], compare) : std::optional<std::size_t>();
    if (next) {
      p = SkipEmptySets(pattern, *next);
      ++t;
    } else if (retryPattern != StringView::npos) {
      p = retryPattern;
      t = ++retryText;
    } else {
      return false;
    }
  }
  while (p < pattern.size() && pattern[p] == u'*') p = SkipEmptySets(pattern, p + 1);
  return p == pattern.size();
}

}  // namespace norvo
