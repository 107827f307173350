#pragma once

#include <vector>

#include "clients/Held.h"
#include "clients/Values.h"

namespace norvo::clients {

/// A client that knows an object by the names of its members alone.
class LateBound {
 public:
  explicit LateBound(Held<IDispatch> object) : object_(std::move(object)) {}

  Value Get(const wchar_t* name) const { return Ask(name, DISPATCH_PROPERTYGET, {}); }
  /// A method; variables are passed as references to them.
  Value Call(const wchar_t* name, std::vector<VARIANT> arguments = {}) const {
    return Ask(name, DISPATCH_METHOD, std::move(arguments));
  }
  void Put(const wchar_t* name, const Value& value) const {
    Ask(name, DISPATCH_PROPERTYPUT, {value.Get()});
  }
  void Set(const wchar_t* name, const LateBound& value) const {
    Ask(name, DISPATCH_PROPERTYPUTREF, {Value(value.object_.Get()).Get()});
  }
  /// The object that a member gives.
  LateBound Object(const wchar_t* name, std::vector<VARIANT> arguments = {}) const;

  const Held<IDispatch>& Face() const { return object_; }
  /// How the last call ended, and what it raised.
  HRESULT Status() const { return status_; }
  const std::wstring& Description() const { return description_; }

  static VARIANT Variable(VARTYPE type, void* place) {
    VARIANT variable;
    ::VariantInit(&variable);
    variable.vt = static_cast<VARTYPE>(type | VT_BYREF);
    variable.byref = place;
    return variable;
  }

 private:
  Value Ask(const wchar_t* name, WORD kind, std::vector<VARIANT> arguments) const;

  Held<IDispatch> object_;
  mutable HRESULT status_ = S_OK;
  mutable std::wstring description_;
};

}  // namespace norvo::clients
