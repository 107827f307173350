#pragma once

#include <span>

#include "automation/Variant.h"

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

  virtual Variant Get(StringView name, Arguments arguments) = 0;
  virtual void Let(StringView name, Arguments arguments, const Variant& value) = 0;
  virtual Variant Call(StringView name, Arguments arguments) = 0;

  /// The class's public interface; null for an object that is not of the library.
  virtual const MemberTable* Members() const { return nullptr; }

  Variant Get(StringView name) { return Get(name, {}); }
  void Let(StringView name, const Variant& value) { Let(name, {}, value); }
  Variant Call(StringView name) { return Call(name, {}); }
};

}  // namespace norvo
