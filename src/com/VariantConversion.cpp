#include "com/VariantConversion.h"

#include <span>

#include "automation/Conversions.h"
#include "com/BasicString.h"
#include "com/ErrorInfo.h"
#include "com/OwnedValue.h"

namespace norvo::com {
namespace {

void Check(HRESULT status) {
  if (FAILED(status)) throw ErrorOf(status);
}

/// The elements of an array, locked while this lives.
template <class Element>
class ArrayElements {
 public:
  explicit ArrayElements(SAFEARRAY* array) : array_(array) {
    Check(::SafeArrayAccessData(array, &data_));
  }
  ~ArrayElements() { ::SafeArrayUnaccessData(array_); }
  ArrayElements(const ArrayElements&) = delete;
  ArrayElements& operator=(const ArrayElements&) = delete;

  std::span<Element> All() const {
    return {static_cast<Element*>(data_), array_->rgsabound[0].cElements};
  }

 private:
  SAFEARRAY* array_;
  void* data_ = nullptr;
};

ObjectRef ObjectOf(Apartment& apartment, IUnknown* object) {
  if (object == nullptr) return nullptr;
  const auto face = ComPointer<IUnknown>(object).As<IDispatch>();
  if (!face) throw RunTimeError(error::kTypeMismatch);
  return apartment.ObjectOf(face.Get());
}

Variant TextsFrom(Apartment& apartment, SAFEARRAY* array, VARTYPE type) {
  if (array == nullptr) return StringArray();
  if (::SafeArrayGetDim(array) != 1) throw RunTimeError(error::kTypeMismatch);
  auto texts = std::make_shared<std::vector<String>>();
  if (type == VT_BSTR) {
    const ArrayElements<BSTR> elements(array);
    for (BSTR text : elements.All()) texts->push_back(FromBasicString(text));
  } else if (type == VT_VARIANT) {
    const ArrayElements<VARIANT> elements(array);
    for (const VARIANT& each : elements.All())
      texts->push_back(ToText(FromNative(apartment, each)));
  } else {
    throw RunTimeError(error::kTypeMismatch);
  }
  return StringArray(std::move(texts));
}

/// Any other number.
Variant NumberFrom(const VARIANT& value) {
  OwnedValue number;
  Check(::VariantChangeType(&number, const_cast<VARIANT*>(&value), 0, VT_R8));
  return number->dblVal;
}

Variant FromPlain(Apartment& apartment, const VARIANT& value) {
  switch (value.vt) {
    case VT_EMPTY:
      return {};
    case VT_NULL:
      return Null{};
    case VT_BOOL:
      return value.boolVal != VARIANT_FALSE;
    case VT_UI1:
      return static_cast<std::uint8_t>(value.bVal);
    case VT_I2:
      return static_cast<std::int16_t>(value.iVal);
    case VT_I4:
    case VT_INT:
      return static_cast<std::int32_t>(value.lVal);
    case VT_R8:
      return value.dblVal;
    case VT_DATE:
      return Date{value.date};
    case VT_BSTR:
      return FromBasicString(value.bstrVal);
    case VT_DISPATCH:
    case VT_UNKNOWN:
      return ObjectOf(apartment, value.punkVal);
    case VT_ERROR:
      if (value.scode == DISP_E_PARAMNOTFOUND) return Missing{};
      throw RunTimeError(error::kTypeMismatch);
    case VT_I1:
    case VT_UI2:
    case VT_UI4:
    case VT_UINT:
    case VT_I8:
    case VT_UI8:
    case VT_R4:
    case VT_CY:
    case VT_DECIMAL:
      return NumberFrom(value);
    default:
      break;
  }
  if ((value.vt & VT_ARRAY) == 0) throw RunTimeError(error::kTypeMismatch);
  return TextsFrom(apartment, value.parray, static_cast<VARTYPE>(value.vt & VT_TYPEMASK));
}

SAFEARRAY* MakeArray(VARTYPE type, std::size_t count) {
  SAFEARRAY* const array = ::SafeArrayCreateVector(type, 0, static_cast<ULONG>(count));
  if (array == nullptr) throw RunTimeError(error::kOutOfMemory);
  return array;
}

SAFEARRAY* ToVariantArray(const StringArray& texts) {
  SAFEARRAY* const array = MakeArray(VT_VARIANT, texts ? texts->size() : 0);
  if (!texts || texts->empty()) return array;
  const ArrayElements<VARIANT> elements(array);
  for (std::size_t i = 0; i < texts->size(); ++i) {
    elements.All()[i].vt = VT_BSTR;
    elements.All()[i].bstrVal = ToBasicString((*texts)[i]);
  }
  return array;
}

/// Sets the type tag and the value behind it.
struct NativeMaker {
  Apartment& apartment;
  VARIANT* made;

  void operator()(std::monostate) const {}
  void operator()(Missing) const {
    made->vt = VT_ERROR;
    made->scode = DISP_E_PARAMNOTFOUND;
  }
  void operator()(Null) const { made->vt = VT_NULL; }
  void operator()(bool value) const {
    made->vt = VT_BOOL;
    made->boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
  }
  void operator()(std::uint8_t value) const {
    made->vt = VT_UI1;
    made->bVal = value;
  }
  void operator()(std::int16_t value) const {
    made->vt = VT_I2;
    made->iVal = value;
  }
  void operator()(std::int32_t value) const {
    made->vt = VT_I4;
    made->lVal = value;
  }
  void operator()(double value) const {
    made->vt = VT_R8;
    made->dblVal = value;
  }
  void operator()(Date value) const {
    made->vt = VT_DATE;
    made->date = value.days;
  }
  void operator()(const String& value) const {
    made->bstrVal = ToBasicString(value);
    made->vt = VT_BSTR;
  }
  void operator()(const ObjectRef& value) const {
    made->pdispVal = apartment.FaceOf(value).Detach();
    made->vt = VT_DISPATCH;
  }
  void operator()(const StringArray& value) const {
    made->parray = ToVariantArray(value);
    made->vt = VT_ARRAY | VT_VARIANT;
  }
};

}  // namespace

Variant FromNative(Apartment& apartment, const VARIANT& value) {
  if ((value.vt & VT_BYREF) == 0) return FromPlain(apartment, value);
  if (value.vt == (VT_BYREF | VT_VARIANT)) return FromNative(apartment, *value.pvarVal);
  OwnedValue plain;
  Check(::VariantCopyInd(&plain, const_cast<VARIANT*>(&value)));
  return FromPlain(apartment, *plain);
}

void ToNative(Apartment& apartment, const Variant& value, VARIANT* made) {
  ::VariantInit(made);
  std::visit(NativeMaker{apartment, made}, value);
}

SAFEARRAY* ToTextArray(const StringArray& texts) {
  SAFEARRAY* const array = MakeArray(VT_BSTR, texts ? texts->size() : 0);
  if (!texts || texts->empty()) return array;
  const ArrayElements<BSTR> elements(array);
  for (std::size_t i = 0; i < texts->size(); ++i) elements.All()[i] = ToBasicString((*texts)[i]);
  return array;
}

void WriteBack(Apartment& apartment, const Variant& value, const VARIANT& place) {
  OwnedValue made;
  ToNative(apartment, value, &made);
  const auto type = static_cast<VARTYPE>(place.vt & ~VT_BYREF);
  if (type == VT_VARIANT) {
    Check(::VariantCopy(place.pvarVal, &made));
    return;
  }
  Check(::VariantChangeType(&made, &made, 0, type));
  switch (type) {
    case VT_BSTR:
      std::swap(*place.pbstrVal, made->bstrVal);
      break;
    case VT_DISPATCH:
    case VT_UNKNOWN:
      std::swap(*place.ppunkVal, made->punkVal);
      break;
    case VT_UI1:
    case VT_I1:
      *place.pbVal = made->bVal;
      break;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
      *place.piVal = made->iVal;
      break;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
      *place.plVal = made->lVal;
      break;
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_DATE:
    case VT_CY:
      *place.pllVal = made->llVal;
      break;
    default:
      throw RunTimeError(error::kTypeMismatch);
  }
}

}  // namespace norvo::com
