#include "platform/windows/ModulePath.h"

#include <windows.h>

#include "platform/windows/SystemPath.h"
#include "platform/windows/WideText.h"
#include "platform/windows/WindowsError.h"

namespace norvo {
namespace {

/// The program or library that holds this very function; never unloaded while it runs.
HMODULE OwnModule() {
  constexpr DWORD kFlags =
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  HMODULE found = nullptr;
  if (!::GetModuleHandleExW(kFlags, reinterpret_cast<const wchar_t*>(&OwnModule), &found)) {
    RaiseWindowsError(::GetLastError(), Subject::File, {});
  }
  return found;
}

}  // namespace

String ModulePath() {
  // The system cuts a path that is too long, and only says so by filling the buffer.
  String path(MAX_PATH, u'\0');
  for (;;) {
    const auto size = static_cast<DWORD>(path.size());
    const DWORD length = ::GetModuleFileNameW(OwnModule(), ToWide(path), size);
    if (length == 0) RaiseWindowsError(::GetLastError(), Subject::File, {});
    if (length < size) return FromSystemPath(path.substr(0, length));
    path.resize(path.size() * 2);
  }
}

}  // namespace norvo
