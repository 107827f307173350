#include "clients/ScriptEngine.h"

#include "clients/LateBound.h"

namespace norvo::clients {
namespace {

constexpr wchar_t kLibrary[] = L"library";

}  // namespace

ScriptEngine::ScriptEngine(const wchar_t* language) {
  CLSID type{};
  if (FAILED(::CLSIDFromProgID(language, &type))) return;
  ::CoCreateInstance(type, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IActiveScript),
                     engine_.ReceiveAny());
  if (!engine_) return;
  engine_.As<IActiveScriptParse>()->InitNew();
  engine_->SetScriptSite(this);
  engine_->AddNamedItem(kLibrary, SCRIPTITEM_ISVISIBLE);
}

ScriptEngine::~ScriptEngine() {
  Close();
}

std::wstring ScriptEngine::Run(const wchar_t* text) {
  error_.clear();
  const HRESULT status = engine_.As<IActiveScriptParse>()->ParseScriptText(
      text, nullptr, nullptr, nullptr, 0, 0, SCRIPTTEXT_ISVISIBLE, nullptr, nullptr);
  engine_->SetScriptState(SCRIPTSTATE_STARTED);
  return FAILED(status) && error_.empty() ? L"not parsed" : error_;
}

std::wstring ScriptEngine::Global(const wchar_t* name) {
  Held<IDispatch> globals;
  engine_->GetScriptDispatch(nullptr, globals.Receive());
  return LateBound(globals).Get(name).All();
}

void ScriptEngine::Close() {
  if (engine_) engine_->Close();
  engine_ = {};
}

STDMETHODIMP ScriptEngine::QueryInterface(REFIID identifier, void** found) {
  *found = nullptr;
  if (identifier != IID_IUnknown && identifier != __uuidof(IActiveScriptSite)) {
    return E_NOINTERFACE;
  }
  *found = static_cast<IActiveScriptSite*>(this);
  return S_OK;
}

STDMETHODIMP ScriptEngine::GetItemInfo(LPCOLESTR name, DWORD wanted, IUnknown** item, ITypeInfo**) {
  if (std::wstring_view(name) != kLibrary) return TYPE_E_ELEMENTNOTFOUND;
  if ((wanted & SCRIPTINFO_IUNKNOWN) != 0) *item = &creator_;
  return S_OK;
}

STDMETHODIMP ScriptEngine::OnScriptError(IActiveScriptError* raised) {
  EXCEPINFO information{};
  DWORD context = 0;
  ULONG line = 0;
  LONG column = 0;
  raised->GetExceptionInfo(&information);
  raised->GetSourcePosition(&context, &line, &column);
  Text description;
  std::swap(*description.Place(), information.bstrDescription);
  ::SysFreeString(information.bstrSource);
  ::SysFreeString(information.bstrHelpFile);
  error_ = L"line " + std::to_wstring(line + 1) + L": " + description.All();
  return S_OK;
}

STDMETHODIMP ScriptEngine::Creator::QueryInterface(REFIID identifier, void** found) {
  const bool known = identifier == IID_IUnknown || identifier == IID_IDispatch;
  *found = known ? this : nullptr;
  return known ? S_OK : E_NOINTERFACE;
}

STDMETHODIMP ScriptEngine::Creator::GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID,
                                                  DISPID* members) {
  const bool known = ::lstrcmpiW(names[0], L"Create") == 0;
  members[0] = known ? 1 : DISPID_UNKNOWN;
  return known ? S_OK : DISP_E_UNKNOWNNAME;
}

STDMETHODIMP ScriptEngine::Creator::Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS* parameters,
                                           VARIANT* result, EXCEPINFO*, UINT*) {
  CLSID type{};
  const std::wstring name = std::wstring(L"NorvoPlayList.") + parameters->rgvarg[0].bstrVal;
  const HRESULT status = ::CLSIDFromProgID(name.c_str(), &type);
  if (FAILED(status)) return status;
  result->vt = VT_DISPATCH;
  return ::CoCreateInstance(type, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                            reinterpret_cast<void**>(&result->pdispVal));
}

}  // namespace norvo::clients
