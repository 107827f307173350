#pragma once

#include "platform/windows/WideText.h"

#include <oleauto.h>

#include "automation/RunTimeError.h"

namespace norvo::com {

/// The text of a counted string of the system's; null is the empty text. NULs inside are kept.
inline String FromBasicString(BSTR text) {
  return text == nullptr ? String() : FromWide(text, ::SysStringLen(text));
}

/// A new counted string, owned by the caller. Error 7 when there is no memory for it.
inline BSTR ToBasicString(StringView text) {
  const auto length = static_cast<UINT>(text.size());
  BSTR made = ::SysAllocStringLen(reinterpret_cast<const wchar_t*>(text.data()), length);
  if (made == nullptr) throw RunTimeError(error::kOutOfMemory);
  return made;
}

}  // namespace norvo::com
