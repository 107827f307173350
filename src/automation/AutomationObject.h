#pragma once

#include <array>
#include <span>
#include <string_view>

#include "automation/CallArgument.h"
#include "automation/Variant.h"
#include "text/Encoding.h"

namespace norvo {

class MemberTable;

/// Arguments of a call, in order. A member that takes an argument by reference writes its result
/// back into the element.
using Arguments = std::span<Variant>;

/// Anything that answers to members by name. The library's own classes answer through their
/// member table; a host's or script's object overrides the three virtual calls. Names are matched
/// without regard to case. Every call raises error 438 for a name that the object does not know
/// and error 450 for a wrong number of arguments.
class AutomationObject {
 public:
  virtual ~AutomationObject() = default;
  AutomationObject() = default;
  AutomationObject(const AutomationObject&) = delete;
  AutomationObject& operator=(const AutomationObject&) = delete;

  /// Class name, as the object's creation by name would take it.
  virtual StringView ClassName() const = 0;

  /// The value of a property.
  virtual Variant Get(StringView name, Arguments arguments) = 0;
  /// Sets a property.
  virtual void Let(StringView name, Arguments arguments, const Variant& value) = 0;
  /// Runs a method; Empty when it gives nothing. A property's name gives its value.
  virtual Variant Call(StringView name, Arguments arguments) = 0;

  /// The class's public interface; null for an object that is not of the library.
  virtual const MemberTable* Members() const { return nullptr; }

  /// The value of a property that takes no arguments.
  Variant Get(StringView name) { return Get(name, {}); }
  /// Sets a property that takes no arguments.
  template <CallArgument Value>
  void Let(StringView name, const Value& value) {
    Let(name, {}, ToVariant(value));
  }
  /// Runs a method with these arguments, in order. What the method writes back into one of them is
  /// lost; a caller that wants it hands over `Arguments`.
  template <CallArgument... Values>
  Variant Call(StringView name, const Values&... values) {
    std::array<Variant, sizeof...(Values)> arguments{ToVariant(values)...};
    return Call(name, Arguments(arguments));
  }

  /// The same by a name in UTF-8.
  Variant Get(std::string_view name, Arguments arguments = {}) {
    return Get(FromUtf8Lossy(name), arguments);
  }
  /// The same by a name in UTF-8.
  void Let(std::string_view name, Arguments arguments, const Variant& value) {
    Let(FromUtf8Lossy(name), arguments, value);
  }
  /// The same by a name in UTF-8.
  template <CallArgument Value>
  void Let(std::string_view name, const Value& value) {
    Let(FromUtf8Lossy(name), value);
  }
  /// The same by a name in UTF-8.
  Variant Call(std::string_view name, Arguments arguments) {
    return Call(FromUtf8Lossy(name), arguments);
  }
  /// The same by a name in UTF-8.
  template <CallArgument... Values>
  Variant Call(std::string_view name, const Values&... values) {
    return Call(FromUtf8Lossy(name), values...);
  }
};

}  // namespace norvo
