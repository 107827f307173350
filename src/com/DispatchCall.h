#pragma once

#include "automation/MemberTable.h"
#include "com/Apartment.h"

namespace norvo::com {

/// Late-bound calls of one object: names and calls by number, over its member table. A member's
/// number is its position, counted from 1.
class DispatchCall {
 public:
  DispatchCall(Apartment& apartment, AutomationObject& object, const MemberTable& table)
      : apartment_(apartment), object_(object), table_(table) {}

  /// `IDispatch::GetIDsOfNames`: the first name is a member's, the others are its parameters'.
  static HRESULT FindNames(const MemberTable& table, LPOLESTR* names, UINT count,
                           DISPID* identifiers);

  /// `IDispatch::Invoke`. Arguments of any type are converted to those of the member, and
  /// variables that it changes are written back in their own type.
  HRESULT Invoke(DISPID identifier, WORD kind, const DISPPARAMS& parameters, VARIANT* result,
                 EXCEPINFO* information);

 private:
  void Let(const Member& member, const DISPPARAMS& parameters);
  void Call(const Member& member, const DISPPARAMS& parameters, VARIANT* result);

  Apartment& apartment_;
  AutomationObject& object_;
  const MemberTable& table_;
};

}  // namespace norvo::com
