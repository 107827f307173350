#include "text/Text.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "text/HashMixer.h"
#include "text/UpperCaseTable.h"
#include "text/UpperCaseWords.h"

namespace norvo {
namespace {

constexpr std::size_t kUnitsOfWord = sizeof(std::uint64_t) / sizeof(char16_t);

/// Each bit of the word changes bits above it, and these some below: tables go by the lowest ones.
std::uint64_t Spread(std::uint64_t word) noexcept {
  constexpr std::uint64_t kGoldenRatio = 0x9E3779B97F4A7C15u;
  return FoldHash(word * kGoldenRatio);
}

}  // namespace

char16_t ToUpperBeyondAscii(char16_t unit) noexcept {
  return UpperCaseFromTable(unit);
}

/// By the unit's lower byte, which the C library finds 32 at a time; each half of a unit may be
/// that byte, so that a hit is looked at. Half of ASCII text are bytes of 0: NULs are found by
/// words.
std::size_t FindUnit(StringView text, char16_t unit, std::size_t from) noexcept {
  const int byte = unit & 0xFF;
  if (byte == 0) {
    const std::size_t at = FirstLane(text, from, [unit](std::uint64_t word) {
      return ZeroLanes<char16_t>(word ^ InEachLane(unit));
    });
    return at == text.size() ? StringView::npos : at;
  }
  const auto* const bytes = reinterpret_cast<const char*>(text.data());
  for (std::size_t at = from; at < text.size(); ++at) {
    const void* const found = std::memchr(bytes + 2 * at, byte, 2 * (text.size() - at));
    if (found == nullptr) break;
    at = static_cast<std::size_t>(static_cast<const char*>(found) - bytes) / 2;
    if (text[at] == unit) return at;
  }
  return StringView::npos;
}

std::size_t FindLineEnd(StringView text, std::size_t from) noexcept {
  constexpr std::uint64_t kReturns = InEachLane(u'\r');
  constexpr std::uint64_t kFeeds = InEachLane(u'\n');
  return FirstLane(text, from, [](std::uint64_t word) {
    return ZeroLanes<char16_t>(word ^ kReturns) | ZeroLanes<char16_t>(word ^ kFeeds);
  });
}

String Fold(StringView text) {
  String folded(text);
  std::size_t i = 0;
  for (; folded.size() - i >= kUnitsOfWord; i += kUnitsOfWord) {
    const std::uint64_t word = InUpperCase(WordAt(folded.data() + i));
    std::memcpy(folded.data() + i, &word, sizeof word);
  }
  for (; i < folded.size(); ++i) folded[i] = ToUpper(folded[i]);
  return folded;
}

bool detail::EqualsIgnoreCase(const char16_t* left, const char16_t* right,
                              std::size_t units) noexcept {
  std::size_t i = 0;
  for (; units - i >= kUnitsOfWord; i += kUnitsOfWord) {
    const std::uint64_t l = WordAt(left + i);
    const std::uint64_t r = WordAt(right + i);
    if (l != r && InUpperCase(l) != InUpperCase(r)) return false;
  }
  for (; i < units; ++i) {
    if (left[i] != right[i] && ToUpper(left[i]) != ToUpper(right[i])) return false;
  }
  return true;
}

bool EndsWithIgnoreCase(StringView text, StringView ending) noexcept {
  return text.size() >= ending.size() &&
         EqualsIgnoreCase(text.substr(text.size() - ending.size()), ending);
}

std::size_t FindIgnoreCase(StringView text, StringView sought, std::size_t from) noexcept {
  if (from > text.size()) return StringView::npos;
  if (sought.empty()) return from;
  if (text.size() < sought.size()) return StringView::npos;
  const char16_t upper = ToUpper(sought.front());
  const char16_t lower = upper >= u'A' && upper <= u'Z' ? static_cast<char16_t>(upper + 32) : upper;
  // A unit beyond ASCII may have an upper case of ASCII.
  const auto mayBegin = [uppers = InEachLane(upper),
                         lowers = InEachLane(lower)](std::uint64_t word) {
    return ZeroLanes<char16_t>(word ^ uppers) | ZeroLanes<char16_t>(word ^ lowers) |
           (word & InEachLane(static_cast<char16_t>(0xFF80)));
  };
  const StringView begins = text.substr(0, text.size() - sought.size() + 1);
  for (std::size_t i = FirstLane(begins, from, mayBegin); i < begins.size();
       i = FirstLane(begins, i + 1, mayBegin)) {
    if (ToUpper(text[i]) == upper && EqualsIgnoreCase(text.substr(i, sought.size()), sought))
      return i;
  }
  return StringView::npos;
}

std::vector<StringView> Split(StringView text, char16_t separator) {
  std::vector<StringView> pieces;
  pieces.reserve(static_cast<std::size_t>(std::count(text.begin(), text.end(), separator)) + 1);
  for (std::size_t end = text.find(separator); end != StringView::npos;
       end = text.find(separator)) {
    pieces.push_back(text.substr(0, end));
    text.remove_prefix(end + 1);
  }
  pieces.push_back(text);
  return pieces;
}

bool LessIgnoreCase(StringView left, StringView right) noexcept {
  const std::size_t shared = std::min(left.size(), right.size());
  for (std::size_t i = 0; i < shared; ++i) {
    const char16_t l = ToUpper(left[i]);
    const char16_t r = ToUpper(right[i]);
    if (l != r) return l < r;
  }
  if (left.size() != right.size()) return left.size() < right.size();
  return left < right;
}

std::size_t CaselessHash::operator()(StringView text) const noexcept {
  std::uint64_t hash = kHashStart;
  for (; text.size() >= kUnitsOfWord; text.remove_prefix(kUnitsOfWord)) {
    hash = Spread(hash ^ InUpperCase(WordAt(text.data())));
  }
  hash = Spread(hash ^ InUpperCase(ShortWord(text, u'\0')));
  return static_cast<std::size_t>(Spread(hash));
}

}  // namespace norvo
