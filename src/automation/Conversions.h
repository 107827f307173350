#pragma once

#include <cstdint>
#include <string>

#include "automation/Variant.h"
#include "text/Text.h"

namespace norvo {

/// @{
/// Conversions of the automation platform. All raise error 13 for a value that does not convert
/// (94 for Null) and error 6 for a number outside the target's range; a half is rounded to the even
/// neighbour. Empty converts to 0, False or the empty text; texts convert as whole numbers or not
/// at all.
bool ToBoolean(const Variant& value);
std::uint8_t ToByte(const Variant& value);
std::int16_t ToInt16(const Variant& value);
std::int32_t ToInt32(const Variant& value);
double ToDouble(const Variant& value);
/// @}

/// No object for Empty; error 13 for what is no reference.
ObjectRef ToObject(const Variant& value);

/// @{
/// The text of a value, with the errors of the other conversions. Booleans become "True" and
/// "False", dates M/D/YYYY h:mm:ss AM or PM, numbers decimal text.
String ToText(const Variant& value);
String ToText(Variant&& value);
/// @}
/// The same in UTF-8.
std::string ToUtf8Text(const Variant& value);

/// @{
/// The same of a text and of a number alone.
std::int16_t Int16FromText(StringView text);
std::int32_t Int32FromText(StringView text);
std::int16_t NarrowToInt16(double number);
std::int32_t NarrowToInt32(double number);
/// @}

/// @{
/// The one narrowing of counts and positions: error 6 for one that is too large.
std::int16_t CountToInt16(std::size_t count);
std::int32_t CountToInt32(std::size_t count);
/// @}

/// "True" or "False".
String BooleanText(bool value);

/// Pattern match that raises error 93 for a pattern that is not valid.
bool Like(StringView text, StringView pattern, Compare compare);

}  // namespace norvo
