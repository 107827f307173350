#pragma once

#include <concepts>
#include <cstdint>
#include <string_view>
#include <type_traits>
#include <utility>

#include "automation/RunTimeError.h"
#include "automation/Variant.h"
#include "text/Encoding.h"

namespace norvo {

namespace detail {

template <class Value, class... Types>
concept OneOf = (std::same_as<Value, Types> || ...);

template <class Value>
concept Character = OneOf<Value, char, wchar_t, char8_t, char16_t, char32_t>;

/// Whole numbers of a type that a `Variant` lacks.
template <class Value>
concept OtherInteger = std::integral<Value> && !Character<Value> &&
                       !OneOf<Value, bool, std::uint8_t, std::int16_t, std::int32_t>;

}  // namespace detail

/// What a C++ caller hands over as it is: texts in UTF-8 or UTF-16, truth values, numbers of every
/// size, references to objects, and every type that a `Variant` holds. No single characters.
template <class Value>
concept CallArgument =
    !detail::Character<Value> &&
    (std::convertible_to<const Value&, std::string_view> ||
     std::convertible_to<const Value&, StringView> ||
     std::convertible_to<const Value&, ObjectRef> ||
     std::constructible_from<Variant, const Value&> || detail::OtherInteger<Value>);

/// The value as an automation type. Whole numbers of a type that a `Variant` lacks become 32-bit
/// ones; error 6 for one that is too large. Each byte that is not valid UTF-8 becomes U+FFFD.
template <CallArgument Value>
Variant ToVariant(const Value& value) {
  if constexpr (std::convertible_to<const Value&, ObjectRef>) {
    return ObjectRef(value);
  } else if constexpr (std::convertible_to<const Value&, std::string_view>) {
    return FromUtf8Lossy(value);
  } else if constexpr (std::convertible_to<const Value&, StringView>) {
    return String(StringView(value));
  } else if constexpr (detail::OtherInteger<Value>) {
    if (!std::in_range<std::int32_t>(value)) throw RunTimeError(error::kOverflow);
    return static_cast<std::int32_t>(value);
  } else {
    return Variant(value);
  }
}

}  // namespace norvo
