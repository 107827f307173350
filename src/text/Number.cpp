#include "text/Number.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>

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
  return static_cast<long>(point) - static_cast<long>(first) + exponent <= 0;
}

String Widen(const char* first, const char* last) {
  return String(first, last);
}

}  // namespace

std::optional<double> ParseNumber(StringView text) {
  text = Trim(text);
  if (text.empty() || text.size() > kMostCharacters) return std::nullopt;
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

String FormatInteger(std::int64_t number) {
  char buffer[24];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, number);
  return Widen(buffer, result.ptr);
}

String FormatNumber(double number) {
  constexpr double kExactlyWhole = 9007199254740992.0;
  if (std::trunc(number) == number && std::fabs(number) < kExactlyWhole) {
    return FormatInteger(static_cast<std::int64_t>(number));
  }
  char buffer[400];
  const bool whole = std::trunc(number) == number;
  const auto result =
      whole ? std::to_chars(buffer, buffer + sizeof buffer, number, std::chars_format::fixed, 0)
            : std::to_chars(buffer, buffer + sizeof buffer, number, std::chars_format::general, 15);
  std::replace(buffer, result.ptr, 'e', 'E');
  return Widen(buffer, result.ptr);
}

double RoundHalfToEven(double number) {
  const double low = std::floor(number);
  const double rest = number - low;
  if (rest < 0.5) return low;
  if (rest > 0.5) return low + 1;
  return std::fmod(low, 2) == 0 ? low : low + 1;
}

}  // namespace norvo
