#include "automation/Conversions.h"

#include <cmath>
#include <limits>
#include <optional>
#include <utility>

#include "automation/Dates.h"
#include "automation/RunTimeError.h"
#include "text/Encoding.h"
#include "text/Number.h"
#include "text/Wildcard.h"

namespace norvo {
namespace {

template <class Whole>
Whole Narrow(double number) {
  // Nearly all are whole already, which costs less to see than to round.
  constexpr double kReach = 1 << 30;
  if (number > -kReach && number < kReach) {
    const auto whole = static_cast<std::int32_t>(number);
    if (static_cast<double>(whole) == number && std::in_range<Whole>(whole)) {
      return static_cast<Whole>(whole);
    }
  }
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

std::string ToUtf8Text(const Variant& value) {
  return ToUtf8(ToText(value));
}

bool Like(StringView text, StringView pattern, Compare compare) {
  if (!IsValidPattern(pattern)) throw RunTimeError(error::kInvalidPattern);
  return Matches(text, pattern, compare);
}

}  // namespace norvo
