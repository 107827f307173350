#include "platform/windows/WindowsProduct.h"

#include <windows.h>

#include "platform/windows/SystemPath.h"
#include "platform/windows/WideText.h"
#include "platform/windows/WindowsError.h"
#include "services/Utility.h"
#include "text/WindowsPath.h"

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

/// `GetModuleFileNameW` cuts a path that is too long, and only says so by filling the buffer.
String PathOfModule(HMODULE module) {
  String path(MAX_PATH, u'\0');
  for (;;) {
    const auto size = static_cast<DWORD>(path.size());
    const DWORD length = ::GetModuleFileNameW(module, ToWide(path), size);
    if (length == 0) RaiseWindowsError(::GetLastError(), Subject::File, {});
    if (length < size) return path.substr(0, length);
    path.resize(path.size() * 2);
  }
}

}  // namespace

String WindowsProduct::BaseKey() {
  return u"SOFTWARE\\Norvo\\Migration";
}

String WindowsProduct::Value(StringView name) {
  RegistryKey key(registry_);
  String value;
  if (key.Open(BaseKey())) key.Read(name, value);
  return value;
}

String WindowsProduct::Folder() {
  const String folder = Value(u"ProductFolder");
  if (!folder.empty()) return Utility::AddBackslash(folder);
  return Utility::AddBackslash(ParentFolder(FromSystemPath(PathOfModule(OwnModule()))));
}

String WindowsProduct::Name() {
  return Value(u"ProductName");
}

}  // namespace norvo
