#pragma once

#include <cstdint>
#include <memory>
#include <variant>
#include <vector>

#include "text/Text.h"

namespace norvo {

class AutomationObject;
/// A counted reference; the object lives until its last holder lets go. Null is "no object".
using ObjectRef = std::shared_ptr<AutomationObject>;
/// A shared array of texts, 0-based.
using StringArray = std::shared_ptr<const std::vector<String>>;

/// A date and time: days since 30 December 1899 in local time, the time of day as the fraction.
struct Date {
  double days = 0;                               ///< whole days, and the time of day
  bool operator==(const Date&) const = default;  ///< to the last digit
};

/// Stands for an optional argument that the caller left out; not the same as an empty value.
struct Missing {
  bool operator==(const Missing&) const = default;  ///< always
};

/// A value that is known to be no value, as databases have it; it converts to nothing.
struct Null {
  bool operator==(const Null&) const = default;  ///< always
};

/// A value of any automation type. Conversions between the types stand in
/// automation/Conversions.h; they are the only ones.
using Variant = std::variant<std::monostate, Missing, Null, bool, std::uint8_t, std::int16_t,
                             std::int32_t, double, Date, String, ObjectRef, StringArray>;

/// The types as they are named in the public interface. `Any` takes any type.
enum class ValueType {
  None,       ///< no value: of a method that gives none
  Boolean,    ///< `bool`
  Byte,       ///< `std::uint8_t`
  Int16,      ///< `std::int16_t`
  Int32,      ///< `std::int32_t`
  Double,     ///< `double`
  Text,       ///< `String`
  Object,     ///< `ObjectRef`
  TextArray,  ///< `StringArray`
  Any         ///< `Variant`
};

}  // namespace norvo
