#pragma once

#include <oaidl.h>
#include <windows.h>

#include <map>
#include <string>

#include "clients/Values.h"

namespace norvo::clients {

/// An object of the client's own, with properties that can be read. It belongs to the test, which
/// looks at the references that are held to it.
class OwnObject final : public IDispatch {
 public:
  explicit OwnObject(std::map<std::wstring, Value> properties)
      : properties_(std::move(properties)) {}
  OwnObject(const OwnObject&) = delete;
  OwnObject& operator=(const OwnObject&) = delete;

  ULONG References() const { return references_; }

  STDMETHODIMP QueryInterface(REFIID identifier, void** found) override {
    *found = nullptr;
    if (identifier != IID_IUnknown && identifier != IID_IDispatch) return E_NOINTERFACE;
    *found = static_cast<IDispatch*>(this);
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override { return --references_; }

  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* members) override {
    const auto found = properties_.find(names[0]);
    if (found == properties_.end()) return DISP_E_UNKNOWNNAME;
    members[0] = static_cast<DISPID>(std::distance(properties_.begin(), found));
    return S_OK;
  }
  STDMETHODIMP Invoke(DISPID member, REFIID, LCID, WORD kind, DISPPARAMS*, VARIANT* result,
                      EXCEPINFO*, UINT*) override {
    if ((kind & DISPATCH_PROPERTYGET) == 0) return DISP_E_MEMBERNOTFOUND;
    return CopyVariant(result, std::next(properties_.begin(), member)->second.Get());
  }

 private:
  std::map<std::wstring, Value> properties_;
  ULONG references_ = 0;
};

}  // namespace norvo::clients
