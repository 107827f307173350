#include "com/ForeignObject.h"

#include <dispex.h>

#include <utility>

#include "com/BasicString.h"
#include "com/ErrorInfo.h"
#include "com/OwnedValue.h"
#include "com/VariantConversion.h"

namespace norvo::com {
namespace {

/// The name that the object's type information gives its class, without the mark of a default
/// interface.
String ClassNameOf(IDispatch& object) {
  ComPointer<ITypeInfo> type;
  if (FAILED(object.GetTypeInfo(0, LOCALE_USER_DEFAULT, type.Receive())) || !type) return {};
  BSTR name = nullptr;
  if (FAILED(type->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr))) return {};
  String text = FromBasicString(name);
  ::SysFreeString(name);
  if (text.starts_with(u'_')) text.erase(0, 1);
  return text;
}

/// Arguments as the system passes them: the last first.
class NativeArguments {
 public:
  NativeArguments(Apartment& apartment, Arguments arguments) : values_(arguments.size()) {
    for (VARIANT& value : values_) ::VariantInit(&value);
    try {
      for (std::size_t i = 0; i < arguments.size(); ++i) {
        ToNative(apartment, arguments[i], &values_[values_.size() - 1 - i]);
      }
    } catch (...) {
      Clear();
      throw;
    }
  }
  ~NativeArguments() { Clear(); }
  NativeArguments(const NativeArguments&) = delete;
  NativeArguments& operator=(const NativeArguments&) = delete;

  std::vector<VARIANT>& All() { return values_; }

 private:
  void Clear() {
    for (VARIANT& value : values_) ::VariantClear(&value);
  }

  std::vector<VARIANT> values_;
};

}  // namespace

ForeignObject::ForeignObject(std::shared_ptr<Apartment> apartment, ComPointer<IDispatch> face)
    : apartment_(std::move(apartment)),
      face_(std::move(face)),
      className_(ClassNameOf(*face_.Get())) {}

ForeignObject::~ForeignObject() = default;

DISPID ForeignObject::IdentifierOf(StringView name) {
  String text(name);
  wchar_t* wide = ToWide(text);
  DISPID identifier = DISPID_UNKNOWN;
  HRESULT status = face_->GetIDsOfNames(IID_NULL, &wide, 1, LOCALE_USER_DEFAULT, &identifier);
  if (FAILED(status)) {
    // Objects of a VBScript class tell their names through this interface alone.
    if (const auto extended = face_.As<IDispatchEx>()) {
      BSTR counted = ToBasicString(name);
      status = extended->GetDispID(counted, fdexNameCaseInsensitive, &identifier);
      ::SysFreeString(counted);
    }
  }
  if (FAILED(status)) throw RunTimeError(error::kNoSuchMember);
  return identifier;
}

HRESULT ForeignObject::Invoke(DISPID identifier, WORD kind, Arguments arguments, Variant& value) {
  NativeArguments native(*apartment_, arguments);
  DISPID put = DISPID_PROPERTYPUT;
  const bool isPut = (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
  DISPPARAMS parameters{native.All().data(), isPut ? &put : nullptr,
                        static_cast<UINT>(native.All().size()), isPut ? 1U : 0U};
  OwnedValue result;
  EXCEPINFO information{};
  UINT wrongArgument = 0;
  const HRESULT status = face_->Invoke(identifier, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters,
                                       isPut ? nullptr : &result, &information, &wrongArgument);
  if (status == DISP_E_EXCEPTION) throw ErrorOf(information);
  if (SUCCEEDED(status)) value = FromNative(*apartment_, *result);
  return status;
}

Variant ForeignObject::Ask(StringView name, std::span<const WORD> kinds, Arguments arguments) {
  const DISPID identifier = IdentifierOf(name);
  HRESULT status = DISP_E_MEMBERNOTFOUND;
  for (const WORD kind : kinds) {
    Variant value;
    status = Invoke(identifier, kind, arguments, value);
    if (SUCCEEDED(status)) return value;
  }
  throw ErrorOf(status);
}

// One kind at a time: a JScript object hands out a plain property only when it is not asked for a
// method in the same call.

Variant ForeignObject::Get(StringView name, Arguments arguments) {
  constexpr WORD kKinds[] = {DISPATCH_PROPERTYGET, DISPATCH_METHOD};
  return Ask(name, kKinds, arguments);
}

Variant ForeignObject::Call(StringView name, Arguments arguments) {
  constexpr WORD kKinds[] = {DISPATCH_METHOD, DISPATCH_PROPERTYGET};
  return Ask(name, kKinds, arguments);
}

void ForeignObject::Let(StringView name, Arguments arguments, const Variant& value) {
  std::vector<Variant> all(arguments.begin(), arguments.end());
  all.push_back(value);
  constexpr WORD kReference[] = {DISPATCH_PROPERTYPUTREF, DISPATCH_PROPERTYPUT};
  constexpr WORD kValue[] = {DISPATCH_PROPERTYPUT};
  const bool isObject = std::holds_alternative<ObjectRef>(value);
  Ask(name, isObject ? std::span<const WORD>(kReference) : kValue, all);
}

}  // namespace norvo::com
