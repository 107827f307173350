#include "support/windows/Junction.h"

#include <windows.h>

#include <winioctl.h>

#include <algorithm>

namespace norvo {

bool MakeJunction(const std::wstring& folder, const std::wstring& target) {
  const std::wstring place = L"\\??\\" + target;
  struct {
    DWORD tag = IO_REPARSE_TAG_MOUNT_POINT;
    WORD length = 0, reserved = 0;
    WORD nameOffset = 0, nameLength = 0, shownOffset = 0, shownLength = 0;
    wchar_t names[1024] = {};
  } data;
  data.nameLength = static_cast<WORD>(place.size() * sizeof(wchar_t));
  data.shownOffset = static_cast<WORD>(data.nameLength + sizeof(wchar_t));
  data.length = static_cast<WORD>(8 + data.nameLength + 2 * sizeof(wchar_t));
  std::copy(place.begin(), place.end(), data.names);
  const HANDLE opened =
      ::CreateFileW((L"\\\\?\\" + folder).c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                    FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
  DWORD ignored = 0;
  const bool made = ::DeviceIoControl(opened, FSCTL_SET_REPARSE_POINT, &data, 8u + data.length,
                                      nullptr, 0, &ignored, nullptr) != FALSE;
  ::CloseHandle(opened);
  return made;
}

}  // namespace norvo
