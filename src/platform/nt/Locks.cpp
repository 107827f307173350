#include <windows.h>

#include <algorithm>
#include <string>

#include "platform/files/SystemCalls.h"
#include "platform/nt/Handle.h"
#include "platform/nt/WideNames.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

// The byte that is locked; far beyond what anybody reads, since nobody can read a locked one.
constexpr DWORD kFarAway = 0x40000000;

String ProgramName() {
  String path(MAX_PATH, u'\0');
  for (;;) {
    const auto size = static_cast<DWORD>(path.size());
    const DWORD length =
        ::GetModuleFileNameW(nullptr, reinterpret_cast<wchar_t*>(path.data()), size);
    // A path that is too long is cut, and fills the buffer.
    if (length < size) return String(BaseName(LastComponent(path.substr(0, length))));
    path.resize(path.size() * 2);
  }
}

/// What `call` writes into a buffer, of which it is told the size, and tells the length.
template <class Call>
std::string NameFrom(Call&& call, const char* otherwise) {
  char16_t name[300];
  DWORD length = static_cast<DWORD>(std::size(name));
  if (!call(reinterpret_cast<wchar_t*>(name), &length)) return otherwise;
  return FromWideName(StringView(name).substr(0, std::min<std::size_t>(length, std::size(name))));
}

std::string UserName() {
  std::string name = NameFrom(
      [](wchar_t* text, DWORD* length) {
        if (!::GetUserNameW(text, length)) return false;
        --*length;  // it counts the NUL
        return true;
      },
      "an unknown user");
  return name;
}

std::string HostName() {
  return NameFrom(
      [](wchar_t* text, DWORD* length) {
        return ::GetComputerNameExW(ComputerNamePhysicalDnsHostname, text, length) != 0;
      },
      "this system");
}

}  // namespace

LockAnswer LockFile(const SystemFile& file, bool wait) {
  OVERLAPPED place = {};
  place.OffsetHigh = kFarAway;
  const DWORD flags = LOCKFILE_EXCLUSIVE_LOCK | (wait ? 0 : LOCKFILE_FAIL_IMMEDIATELY);
  if (::LockFileEx(HandleOf(file), flags, 0, 1, 0, &place)) return LockAnswer::Taken;
  const DWORD reason = ::GetLastError();
  return reason == ERROR_LOCK_VIOLATION || reason == ERROR_IO_PENDING ? LockAnswer::Busy
                                                                      : LockAnswer::Refused;
}

void UnlockFile(const SystemFile& file) {
  OVERLAPPED place = {};
  place.OffsetHigh = kFarAway;
  ::UnlockFileEx(HandleOf(file), 0, 1, 0, &place);
}

std::string ThisProcess() {
  return FromWideName(ProgramName()) + " (process " + std::to_string(::GetCurrentProcessId()) +
         " of " + UserName() + " on " + HostName() + ")";
}

}  // namespace norvo
