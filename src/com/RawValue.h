#pragma once

#include <concepts>

#include "automation/Conversions.h"
#include "com/BasicString.h"
#include "com/VariantConversion.h"

namespace norvo::com {

/// How a type of an early-bound member becomes a value (`Take`) and is made of one (`Give`: what
/// goes out is owned by the caller; `Drop` lets go of it).
template <class Type>
struct RawValue;

template <>
struct RawValue<BSTR> {
  static Variant Take(Apartment&, BSTR value) { return FromBasicString(value); }
  static BSTR Give(Apartment&, const Variant& value) { return ToBasicString(ToText(value)); }
  static void Drop(BSTR value) { ::SysFreeString(value); }
};

template <>
struct RawValue<VARIANT> {
  static Variant Take(Apartment& apartment, const VARIANT& value) {
    return FromNative(apartment, value);
  }
  static VARIANT Give(Apartment& apartment, const Variant& value) {
    VARIANT made;
    ToNative(apartment, value, &made);
    return made;
  }
  static void Drop(VARIANT& value) { ::VariantClear(&value); }
};

/// Booleans have this type too: true is the number with all bits set.
template <>
struct RawValue<short> {
  static Variant Take(Apartment&, short value) { return static_cast<std::int16_t>(value); }
  static short Give(Apartment&, const Variant& value) { return ToInt16(value); }
  static void Drop(short) {}
};

template <>
struct RawValue<long> {
  static Variant Take(Apartment&, long value) { return static_cast<std::int32_t>(value); }
  static long Give(Apartment&, const Variant& value) { return ToInt32(value); }
  static void Drop(long) {}
};

template <>
struct RawValue<double> {
  static double Give(Apartment&, const Variant& value) { return ToDouble(value); }
};

template <>
struct RawValue<SAFEARRAY*> {
  static SAFEARRAY* Give(Apartment&, const Variant& value) {
    return ToTextArray(std::get<StringArray>(value));
  }
};

template <std::derived_from<IDispatch> Interface>
struct RawValue<Interface*> {
  static Variant Take(Apartment& apartment, Interface* value) { return apartment.ObjectOf(value); }
  static Interface* Give(Apartment& apartment, const Variant& value) {
    ComPointer<IDispatch> face = apartment.FaceOf(ToObject(value));
    ComPointer<Interface> wanted = face.As<Interface>();
    if (face && !wanted) throw RunTimeError(error::kTypeMismatch);
    return wanted.Detach();
  }
  static void Drop(Interface* value) {
    if (value != nullptr) value->Release();
  }
};

/// An argument that is passed as it is.
template <class Raw>
class RawArgument {
 public:
  RawArgument(Apartment& apartment, const Raw& raw) : value_(RawValue<Raw>::Take(apartment, raw)) {}
  Variant Value() const { return value_; }
  void WriteBack(Apartment&, const Variant&) {}

 private:
  Variant value_;
};

/// An argument that is passed by reference: written back only when the member has changed it.
template <class Raw>
requires requires {
  &RawValue<Raw>::Drop;
}
class RawArgument<Raw*> {
 public:
  RawArgument(Apartment& apartment, Raw* raw) : raw_(raw) {
    if (raw == nullptr) throw RunTimeError(E_POINTER);
    value_ = RawValue<Raw>::Take(apartment, *raw);
  }
  Variant Value() const { return value_; }
  void WriteBack(Apartment& apartment, const Variant& value) {
    if (value == value_) return;
    Raw made = RawValue<Raw>::Give(apartment, value);
    std::swap(made, *raw_);
    RawValue<Raw>::Drop(made);
  }

 private:
  Raw* raw_;
  Variant value_;
};

}  // namespace norvo::com
