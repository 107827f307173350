#pragma once

#include <dispex.h>

#include <functional>
#include <map>
#include <vector>

#include "automation/RunTimeError.h"
#include "com/ComPointer.h"
#include "com/VariantConversion.h"
#include "platform/windows/WideText.h"

namespace norvo::com {

/// An object of a host's or of a script: answers as the test tells it, and notes how it was asked.
/// It belongs to the test, which looks at the references that are held to it.
class HostObject final : public IDispatchEx {
 public:
  /// One call as it came in.
  struct Asked {
    DISPID member;
    WORD kind;
    const DISPPARAMS& parameters;
    VARIANT* result;
    EXCEPINFO* information;
  };
  using Answer = std::function<HRESULT(const Asked&)>;

  /// Members count from 1.
  explicit HostObject(Answer answer = {}) : answer_(std::move(answer)) {}
  HostObject(const HostObject&) = delete;
  HostObject& operator=(const HostObject&) = delete;

  void Know(StringView name, DISPID member) { members_[Fold(name)] = member; }
  /// Names are told through IDispatchEx alone, as objects of VBScript classes do.
  void HideNames() { hidesNames_ = true; }
  void SetType(ComPointer<ITypeInfo> type) { type_ = std::move(type); }

  ULONG References() const { return references_; }
  const std::vector<WORD>& Kinds() const { return kinds_; }

  STDMETHODIMP QueryInterface(REFIID identifier, void** found) override {
    *found = nullptr;
    const bool known = identifier == IID_IUnknown || identifier == IID_IDispatch ||
                       (identifier == __uuidof(IDispatchEx) && hidesNames_);
    if (!known) return E_NOINTERFACE;
    *found = static_cast<IDispatchEx*>(this);
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override { return --references_; }

  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    *count = type_ ? 1 : 0;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** type) override {
    *type = ComPointer<ITypeInfo>(type_).Detach();
    return *type != nullptr ? S_OK : E_NOTIMPL;
  }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* members) override {
    return hidesNames_ ? DISP_E_UNKNOWNNAME : Find(FromWide(names[0]), members);
  }
  STDMETHODIMP Invoke(DISPID member, REFIID, LCID, WORD kind, DISPPARAMS* parameters,
                      VARIANT* result, EXCEPINFO* information, UINT*) override {
    kinds_.push_back(kind);
    return answer_({member, kind, *parameters, result, information});
  }

  STDMETHODIMP GetDispID(BSTR name, DWORD options, DISPID* member) override {
    return options == fdexNameCaseInsensitive ? Find(FromWide(name), member) : E_INVALIDARG;
  }
  STDMETHODIMP InvokeEx(DISPID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                        IServiceProvider*) override {
    return E_NOTIMPL;
  }
  STDMETHODIMP DeleteMemberByName(BSTR, DWORD) override { return E_NOTIMPL; }
  STDMETHODIMP DeleteMemberByDispID(DISPID) override { return E_NOTIMPL; }
  STDMETHODIMP GetMemberProperties(DISPID, DWORD, DWORD*) override { return E_NOTIMPL; }
  STDMETHODIMP GetMemberName(DISPID, BSTR*) override { return E_NOTIMPL; }
  STDMETHODIMP GetNextDispID(DWORD, DISPID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP GetNameSpaceParent(IUnknown**) override { return E_NOTIMPL; }

 private:
  HRESULT Find(StringView name, DISPID* member) const {
    const auto found = members_.find(Fold(name));
    *member = found == members_.end() ? DISPID_UNKNOWN : found->second;
    return found == members_.end() ? DISP_E_UNKNOWNNAME : S_OK;
  }

  Answer answer_;
  std::map<String, DISPID> members_;  // by folded name
  std::vector<WORD> kinds_;
  ComPointer<ITypeInfo> type_;
  bool hidesNames_ = false;
  ULONG references_ = 0;
};

}  // namespace norvo::com
