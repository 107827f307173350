#pragma once

#include "clients/Held.h"

#include <activscp.h>

#include <string>

namespace norvo::clients {

/// One of the system's script engines, hosted in this process until the end of this. Its scripts
/// make the library's objects by `library.Create("Entry")`: the engines of Wine 8 never let go of
/// the class factories that their own functions ask for.
class ScriptEngine final : public IActiveScriptSite {
 public:
  explicit ScriptEngine(const wchar_t* language);
  ~ScriptEngine();
  ScriptEngine(const ScriptEngine&) = delete;
  ScriptEngine& operator=(const ScriptEngine&) = delete;

  bool IsReady() const { return static_cast<bool>(engine_); }
  /// Runs a text; what it raises, with the line, or nothing when it came to its end.
  std::wstring Run(const wchar_t* text);
  /// A global variable as a text.
  std::wstring Global(const wchar_t* name);
  /// Lets go of the engine and of all that its scripts hold.
  void Close();

  STDMETHODIMP QueryInterface(REFIID identifier, void** found) override;
  // It belongs to the test.
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }

  STDMETHODIMP GetLCID(LCID*) override { return E_NOTIMPL; }
  STDMETHODIMP GetItemInfo(LPCOLESTR name, DWORD wanted, IUnknown** item, ITypeInfo**) override;
  STDMETHODIMP GetDocVersionString(BSTR*) override { return E_NOTIMPL; }
  STDMETHODIMP OnScriptTerminate(const VARIANT*, const EXCEPINFO*) override { return S_OK; }
  STDMETHODIMP OnStateChange(SCRIPTSTATE) override { return S_OK; }
  STDMETHODIMP OnScriptError(IActiveScriptError* raised) override;
  STDMETHODIMP OnEnterScript() override { return S_OK; }
  STDMETHODIMP OnLeaveScript() override { return S_OK; }

 private:
  /// The object that the scripts know as `library`.
  class Creator final : public IDispatch {
   public:
    STDMETHODIMP QueryInterface(REFIID identifier, void** found) override;
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* members) override;
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO*, UINT*) override;
  };

  Creator creator_;
  Held<IActiveScript> engine_;
  std::wstring error_;
};

}  // namespace norvo::clients
