#include "text/Number.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>

#include "text/Ascii.h"

namespace norvo {
namespace {

// A longer run of characters is no number that anybody wrote; the cap keeps the copy small.
constexpr std::size_t kMostCharacters = 512;

bool IsNumberCharacter(char16_t unit) {
  return IsDigit(unit) || unit == u'.' || unit == u'+' || unit == u'-' || unit == u'E' ||
         unit == u'e' || unit == u'D' || unit == u'd';
}

/// Tells apart what is too large and what is too small for a double, which the conversion reports
/// alike: a number below one has its first digit other than 0 behind the point.
bool IsBelowOne(std::string_view number) {
  const std::size_t mark = number.find_first_of("eE");
  const std::string_view digits = number.substr(0, mark);
  long exponent = 0;
  if (mark != std::string_view::npos) {
    const std::string_view text = number.substr(number[mark + 1] == '+' ? mark + 2 : mark + 1);
    const auto result = std::from_chars(text.data(), text.data() + text.size(), exponent);
    if (result.ec == std::errc::result_out_of_range) return text.front() == '-';
  }
  const std::size_t point = std::min(digits.find('.'), digits.size());
  const std::size_t first = digits.find_first_of("123456789");
  if (first == std::string_view::npos) return true;
  // Beyond what the digits can make up for, only the sign counts, and the sum has no room.
  constexpr long kFarthest = 2 * static_cast<long>(kMostCharacters);
  exponent = std::clamp(exponent, -kFarthest, kFarthest);
  return static_cast<long>(point) - static_cast<long>(first) + exponent <= 0;
}

// A whole number of so many digits has a double of its own, and fits into 64 bits.
constexpr std::size_t kExactDigits = 15;

/// The number of a text of few digits and nothing else, as most are.
std::optional<double> ParseDigits(StringView text) {
  if (text.size() > kExactDigits) return std::nullopt;
  std::int64_t number = 0;
  for (const char16_t unit : text) {
    if (!IsDigit(unit)) return std::nullopt;
    number = number * 10 + (unit - u'0');
  }
  return static_cast<double>(number);
}

}  // namespace

std::optional<double> ParseNumber(StringView text) {
  text = Trim(text);
  if (text.empty() || text.size() > kMostCharacters) return std::nullopt;
  if (const std::optional<double> number = ParseDigits(text)) return number;
  std::string narrow;
  for (const char16_t unit : text) {
    if (!IsNumberCharacter(unit)) return std::nullopt;
    const bool exponent = unit == u'D' || unit == u'd';
    narrow.push_back(exponent ? 'e' : static_cast<char>(unit));
  }
  const char* first = narrow.data();
  const char* const last = first + narrow.size();
  if (*first == '+') {
    ++first;  // the conversion below knows no plus sign
    if (first == last || *first == '-') return std::nullopt;
  }
  double value = 0;
  const auto [end, error] = std::from_chars(first, last, value);
  if (end != last || error == std::errc::invalid_argument) return std::nullopt;
  if (error == std::errc::result_out_of_range) {
    return IsBelowOne({first, last}) ? 0.0 : std::numeric_limits<double>::infinity();
  }
  return value;
}

void AppendInteger(String& text, std::int64_t number) {
  char buffer[24];
  const char* const end = std::to_chars(buffer, buffer + sizeof buffer, number).ptr;
  AppendAscii(text, std::string_view(buffer, static_cast<std::size_t>(end - buffer)));
}

String FormatInteger(std::int64_t number) {
  String text;
  AppendInteger(text, number);
  return text;
}

void AppendNumber(String& text, double number) {
  constexpr double kExactlyWhole = 9007199254740992.0;
  const bool inReach = std::fabs(number) < kExactlyWhole;
  if (inReach && static_cast<double>(static_cast<std::int64_t>(number)) == number) {
    return AppendInteger(text, static_cast<std::int64_t>(number));
  }
  char buffer[400];
  const bool whole = std::trunc(number) == number;
  const auto result =
      whole ? std::to_chars(buffer, buffer + sizeof buffer, number, std::chars_format::fixed, 0)
            : std::to_chars(buffer, buffer + sizeof buffer, number, std::chars_format::general, 15);
  std::replace(buffer, result.ptr, 'e', 'E');
  AppendAscii(text, std::string_view(buffer, static_cast<std::size_t>(result.ptr - buffer)));
}

String FormatNumber(double number) {
  String text;
  AppendNumber(text, number);
  return text;
}

double RoundHalfToEven(double number) {
  const double low = std::floor(number);
  const double rest = number - low;
  if (rest < 0.5) return low;
  if (rest > 0.5) return low + 1;
  return std::fmod(low, 2) == 0 ? low : low + 1;
}

}  // namespace norvo
