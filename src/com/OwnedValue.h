#pragma once

#include <oleauto.h>
#include <windows.h>

namespace norvo::com {

/// A variant of the system's that is cleared at the end.
class OwnedValue {
 public:
  OwnedValue() { ::VariantInit(&value_); }
  ~OwnedValue() { ::VariantClear(&value_); }
  OwnedValue(const OwnedValue&) = delete;
  OwnedValue& operator=(const OwnedValue&) = delete;

  VARIANT* operator&() { return &value_; }
  VARIANT* operator->() { return &value_; }
  const VARIANT& operator*() const { return value_; }

 private:
  VARIANT value_;
};

}  // namespace norvo::com
