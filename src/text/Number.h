#pragma once

#include <cstdint>
#include <optional>

#include "text/Text.h"

namespace norvo {

/// The number that a whole text holds: optional sign, decimal digits with an optional point, and
/// an optional exponent (E or D); blanks around it do not matter. Nothing for any other text, the
/// empty one included; thousands separators are not taken. A number too large for a double is
/// infinite.
std::optional<double> ParseNumber(StringView text);

/// Decimal text of a number: a whole number has neither point nor exponent, any other number has
/// up to 15 significant digits.
String FormatNumber(double number);
String FormatInteger(std::int64_t number);
/// Adds what `FormatNumber` and `FormatInteger` give.
void AppendNumber(String& text, double number);
void AppendInteger(String& text, std::int64_t number);

/// Nearest whole number; a half goes to the even neighbour.
double RoundHalfToEven(double number);

}  // namespace norvo
