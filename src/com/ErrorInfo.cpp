#include "com/ErrorInfo.h"

#include "com/BasicString.h"
#include "com/ComPointer.h"

namespace norvo::com {
namespace {

constexpr wchar_t kSource[] = L"NorvoPlayList";
constexpr HRESULT kFirstStatus = static_cast<HRESULT>(0x800A0000);
constexpr std::int32_t kMostNumbers = 0xFFFF;

std::int32_t NumberOf(HRESULT status) {
  switch (status) {
    case DISP_E_UNKNOWNNAME:
    case DISP_E_MEMBERNOTFOUND:
      return error::kNoSuchMember;
    case DISP_E_TYPEMISMATCH:
      return error::kTypeMismatch;
    case DISP_E_OVERFLOW:
      return error::kOverflow;
    case DISP_E_BADPARAMCOUNT:
    case DISP_E_PARAMNOTOPTIONAL:
      return error::kWrongArguments;
    case E_OUTOFMEMORY:
      return error::kOutOfMemory;
    default:
      break;
  }
  const bool carriesNumber = HRESULT_FACILITY(status) == FACILITY_CONTROL && FAILED(status);
  return carriesNumber ? HRESULT_CODE(status) : status;
}

}  // namespace

HRESULT StatusOf(const RunTimeError& failure) {
  const std::int32_t number = failure.Number();
  if (number < 0) return number;
  return kFirstStatus + (number <= kMostNumbers ? number : error::kInvalidArgument);
}

RunTimeError ErrorOf(HRESULT status, String description) {
  const std::int32_t number = NumberOf(status);
  if (description.empty()) return RunTimeError(number);
  return RunTimeError(number, std::move(description));
}

RunTimeError ErrorOf(EXCEPINFO& information) {
  if (information.pfnDeferredFillIn != nullptr) information.pfnDeferredFillIn(&information);
  const HRESULT status = information.wCode != 0 ? kFirstStatus + information.wCode
                                                : static_cast<HRESULT>(information.scode);
  RunTimeError failure =
      ErrorOf(FAILED(status) ? status : E_FAIL, FromBasicString(information.bstrDescription));
  ::SysFreeString(information.bstrDescription);
  ::SysFreeString(information.bstrSource);
  ::SysFreeString(information.bstrHelpFile);
  return failure;
}

HRESULT Report(const RunTimeError& failure, const IID& interfaceIdentifier) {
  ComPointer<ICreateErrorInfo> draft;
  if (SUCCEEDED(::CreateErrorInfo(draft.Receive()))) {
    String description = failure.Description();
    std::wstring source(kSource);
    draft->SetGUID(interfaceIdentifier);
    draft->SetSource(source.data());
    draft->SetDescription(ToWide(description));
    if (const auto information = draft.As<IErrorInfo>()) ::SetErrorInfo(0, information.Get());
  }
  return StatusOf(failure);
}

HRESULT Report(const RunTimeError& failure, EXCEPINFO& information) {
  information = {};
  information.scode = StatusOf(failure);
  information.bstrSource = ::SysAllocString(kSource);
  information.bstrDescription = ToBasicString(failure.Description());
  return DISP_E_EXCEPTION;
}

}  // namespace norvo::com
