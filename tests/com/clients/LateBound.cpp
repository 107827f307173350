#include "clients/LateBound.h"

#include <algorithm>

namespace norvo::clients {

Value LateBound::Ask(const wchar_t* name, WORD kind, std::vector<VARIANT> arguments) const {
  std::wstring text(name);
  LPOLESTR names = text.data();
  DISPID member = DISPID_UNKNOWN;
  Value result;
  status_ = object_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &member);
  if (FAILED(status_)) return result;
  std::ranges::reverse(arguments);
  DISPID put = DISPID_PROPERTYPUT;
  const bool isPut = (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
  DISPPARAMS parameters{arguments.data(), isPut ? &put : nullptr,
                        static_cast<UINT>(arguments.size()), isPut ? 1U : 0U};
  EXCEPINFO raised{};
  status_ = object_->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters,
                            isPut ? nullptr : result.Receive(), &raised, nullptr);
  description_.clear();
  if (status_ == DISP_E_EXCEPTION) {
    status_ = raised.scode;
    Text description;
    std::swap(*description.Place(), raised.bstrDescription);
    description_ = description.All();
    ::SysFreeString(raised.bstrSource);
  }
  return result;
}

LateBound LateBound::Object(const wchar_t* name, std::vector<VARIANT> arguments) const {
  const Value value = Ask(name, DISPATCH_METHOD | DISPATCH_PROPERTYGET, std::move(arguments));
  Held<IDispatch> object;
  if (value.Type() == VT_DISPATCH && value.Get().pdispVal != nullptr) {
    value.Get().pdispVal->QueryInterface(IID_IDispatch, object.ReceiveAny());
  }
  return LateBound(object);
}

}  // namespace norvo::clients
