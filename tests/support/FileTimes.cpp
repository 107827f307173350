#include "support/FileTimes.h"

#ifdef _WIN32
#include <windows.h>
#endif

namespace norvo {

#ifdef _WIN32

void MakeOld(const std::filesystem::path& path) {
  constexpr ULONGLONG kHour = ULONGLONG{3600} * 10'000'000;
  FILETIME now = {};
  ::GetSystemTimeAsFileTime(&now);
  const ULONGLONG then = (ULONGLONG{now.dwHighDateTime} << 32 | now.dwLowDateTime) - kHour;
  const FILETIME written = {static_cast<DWORD>(then), static_cast<DWORD>(then >> 32)};
  const HANDLE file = ::CreateFileW(path.c_str(), FILE_WRITE_ATTRIBUTES, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  ::SetFileTime(file, nullptr, nullptr, &written);
  ::CloseHandle(file);
}

#else

void MakeOld(const std::filesystem::path& path) {
  using Clock = std::filesystem::file_time_type::clock;
  std::filesystem::last_write_time(path, Clock::now() - std::chrono::hours(1));
}

#endif

}  // namespace norvo
