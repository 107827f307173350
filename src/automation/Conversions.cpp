#include "automation/Conversions.h"

#include <cmath>
#include <cstdio>
#include <limits>
#include <optional>
#include <utility>

#include "automation/RunTimeError.h"
#include "text/Number.h"
#include "text/Wildcard.h"

namespace norvo {
namespace {

template <class Whole>
Whole Narrow(double number) {
  const double rounded = RoundHalfToEven(number);
  // Written so that a value that is no number at all is refused too.
  const bool inRange = rounded >= static_cast<double>(std::numeric_limits<Whole>::min()) &&
                       rounded <= static_cast<double>(std::numeric_limits<Whole>::max());
  if (!inRange) throw RunTimeError(error::kOverflow);
  return static_cast<Whole>(rounded);
}

double NumberFromText(StringView text) {
  const std::optional<double> number = ParseNumber(text);
  if (!number) throw RunTimeError(error::kTypeMismatch);
  if (std::isinf(*number)) throw RunTimeError(error::kOverflow);
  return *number;
}

/// A true boolean is the number with all bits set.
double NumberOf(bool value) {
  return value ? -1 : 0;
}

struct CivilDate {
  int year, month, day;
};

/// Calendar date of a count of days since 1 January 1970.
CivilDate CivilFromDays(std::int64_t days) {
  days += 719468;  // days since 1 March of year 0: leap days then end each year
  const std::int64_t era = (days >= 0 ? days : days - 146096) / 146097;
  const std::int64_t dayOfEra = days - era * 146097;
  const std::int64_t yearOfEra =
      (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
  const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
  const std::int64_t shifted = (5 * dayOfYear + 2) / 153;
  const std::int64_t month = shifted < 10 ? shifted + 3 : shifted - 9;
  const std::int64_t year = yearOfEra + era * 400 + (month <= 2 ? 1 : 0);
  return {static_cast<int>(year), static_cast<int>(month),
          static_cast<int>(dayOfYear - (153 * shifted + 2) / 5 + 1)};
}

}  // namespace

std::int16_t NarrowToInt16(double number) {
  return Narrow<std::int16_t>(number);
}
std::int32_t NarrowToInt32(double number) {
  return Narrow<std::int32_t>(number);
}
std::int16_t Int16FromText(StringView text) {
  return NarrowToInt16(NumberFromText(text));
}
std::int32_t Int32FromText(StringView text) {
  return NarrowToInt32(NumberFromText(text));
}

std::int16_t CountToInt16(std::size_t count) {
  if (count > std::numeric_limits<std::int16_t>::max()) throw RunTimeError(error::kOverflow);
  return static_cast<std::int16_t>(count);
}

std::int32_t CountToInt32(std::size_t count) {
  if (count > std::numeric_limits<std::int32_t>::max()) throw RunTimeError(error::kOverflow);
  return static_cast<std::int32_t>(count);
}

double ToDouble(const Variant& value) {
  if (std::holds_alternative<std::monostate>(value)) return 0;
  if (const auto* boolean = std::get_if<bool>(&value)) return NumberOf(*boolean);
  if (const auto* byte = std::get_if<std::uint8_t>(&value)) return *byte;
  if (const auto* int16 = std::get_if<std::int16_t>(&value)) return *int16;
  if (const auto* int32 = std::get_if<std::int32_t>(&value)) return *int32;
  if (const auto* number = std::get_if<double>(&value)) return *number;
  if (const auto* date = std::get_if<Date>(&value)) return date->days;
  if (const auto* text = std::get_if<String>(&value)) return NumberFromText(*text);
  if (std::holds_alternative<Null>(value)) throw RunTimeError(error::kInvalidNull);
  throw RunTimeError(error::kTypeMismatch);
}

std::uint8_t ToByte(const Variant& value) {
  return Narrow<std::uint8_t>(ToDouble(value));
}
std::int16_t ToInt16(const Variant& value) {
  return NarrowToInt16(ToDouble(value));
}
std::int32_t ToInt32(const Variant& value) {
  if (const auto* int32 = std::get_if<std::int32_t>(&value)) return *int32;
  return NarrowToInt32(ToDouble(value));
}

bool ToBoolean(const Variant& value) {
  if (const auto* boolean = std::get_if<bool>(&value)) return *boolean;
  if (const auto* text = std::get_if<String>(&value)) {
    if (EqualsIgnoreCase(Trim(*text), u"True")) return true;
    if (EqualsIgnoreCase(Trim(*text), u"False")) return false;
  }
  return ToDouble(value) != 0;
}

ObjectRef ToObject(const Variant& value) {
  if (const auto* object = std::get_if<ObjectRef>(&value)) return *object;
  if (std::holds_alternative<std::monostate>(value)) return nullptr;
  throw RunTimeError(error::kTypeMismatch);
}

String BooleanText(bool value) {
  return value ? u"True" : u"False";
}

String DateText(Date date) {
  constexpr std::int64_t kSecondsPerDay = 86400;
  constexpr std::int64_t kDaysFrom1899To1970 = 25569;
  // The fraction is the time of day also before 1899, where it does not count backwards.
  const double wholeDays = std::trunc(date.days);
  auto days = static_cast<std::int64_t>(wholeDays);
  std::int64_t time = std::llround(std::fabs(date.days - wholeDays) * kSecondsPerDay);
  if (time == kSecondsPerDay) {
    time = 0;
    ++days;
  }
  const CivilDate civil = CivilFromDays(days - kDaysFrom1899To1970);
  const int hour = static_cast<int>(time / 3600);
  char buffer[64];
  const int length =
      std::snprintf(buffer, sizeof buffer, "%d/%d/%d %d:%02d:%02d %s", civil.month, civil.day,
                    civil.year, hour % 12 == 0 ? 12 : hour % 12, static_cast<int>(time / 60 % 60),
                    static_cast<int>(time % 60), hour < 12 ? "AM" : "PM");
  return String(buffer, buffer + length);
}

String ToText(const Variant& value) {
  if (const auto* text = std::get_if<String>(&value)) return *text;
  if (const auto* boolean = std::get_if<bool>(&value)) return BooleanText(*boolean);
  if (const auto* int32 = std::get_if<std::int32_t>(&value)) return FormatInteger(*int32);
  if (const auto* date = std::get_if<Date>(&value)) return DateText(*date);
  if (std::holds_alternative<std::monostate>(value)) return {};
  return FormatNumber(ToDouble(value));
}

String ToText(Variant&& value) {
  if (auto* text = std::get_if<String>(&value)) return std::move(*text);
  return ToText(std::as_const(value));
}

bool Like(StringView text, StringView pattern, Compare compare) {
  if (!IsValidPattern(pattern)) throw RunTimeError(error::kInvalidPattern);
  return Matches(text, pattern, compare);
}

}  // namespace norvo
