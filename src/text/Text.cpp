#include "text/Text.h"

#include <algorithm>
#include <cstdint>

#include "text/HashMixer.h"
#include "text/UpperCaseTable.h"

namespace norvo {

char16_t ToUpperBeyondAscii(char16_t unit) noexcept {
  return UpperCaseFromTable(unit);
}

std::size_t FindUnit(StringView text, char16_t unit, std::size_t from) noexcept {
  constexpr std::size_t kUnits = 8;  // in two words
  const std::uint64_t sought = InEachLane(unit);
  std::size_t at = std::min(from, text.size());
  for (; text.size() - at >= kUnits; at += kUnits) {
    const char16_t* const units = text.data() + at;
    if (ZeroLanes<char16_t>(WordAt(units) ^ sought) != 0) break;
    if (ZeroLanes<char16_t>(WordAt(units + kUnits / 2) ^ sought) != 0) break;
  }
  while (at < text.size() && text[at] != unit) ++at;
  return at == text.size() ? StringView::npos : at;
}

String Fold(StringView text) {
  String folded(text);
  for (char16_t& unit : folded) unit = ToUpper(unit);
  return folded;
}

bool EqualsIgnoreCase(StringView left, StringView right) noexcept {
  if (left.size() != right.size()) return false;
  for (std::size_t i = 0; i < left.size(); ++i) {
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
  const std::size_t last = text.size() - sought.size();
  for (std::size_t i = from; i <= last; ++i) {
    const char16_t unit = text[i];
    const bool begins = unit == upper || unit == lower || (unit >= 0x80 && ToUpper(unit) == upper);
    if (begins && EqualsIgnoreCase(text.substr(i, sought.size()), sought)) return i;
  }
  return StringView::npos;
}

std::vector<StringView> Split(StringView text, char16_t separator) {
  std::vector<StringView> pieces;
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
  for (const char16_t unit : text) hash = MixIn(hash, ToUpper(unit));
  return static_cast<std::size_t>(FoldHash(hash));
}

}  // namespace norvo
