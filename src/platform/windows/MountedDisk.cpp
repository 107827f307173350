#include "platform/windows/MountedDisk.h"

#include <windows.h>

#include <algorithm>
#include <cstddef>

#include "platform/windows/WideText.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

// "\\?\Volume{...}\" with its end.
constexpr std::size_t kVolumeName = 50;

/// Where a volume is mounted, each path with a zero behind it; empty where the system does not
/// tell.
String PathsOfVolume(const wchar_t* volume) {
  String paths(MAX_PATH, u'\0');
  for (;;) {
    DWORD needed = 0;
    auto* const buffer = reinterpret_cast<wchar_t*>(paths.data());
    const auto size = static_cast<DWORD>(paths.size());
    if (::GetVolumePathNamesForVolumeNameW(volume, buffer, size, &needed)) {
      paths.resize(needed);
      return paths;
    }
    if (::GetLastError() != ERROR_MORE_DATA || needed <= size) return {};
    paths.resize(needed);
  }
}

bool HasLetter(StringView paths) {
  constexpr std::size_t kRoot = 3;
  while (!paths.empty() && paths.front() != u'\0') {
    const std::size_t end = std::min(paths.find(u'\0'), paths.size());
    if (end == kRoot && HasDrive(paths)) return true;
    paths.remove_prefix(std::min(end + 1, paths.size()));
  }
  return false;
}

}  // namespace

bool IsDiskWithoutLetter(const String& systemPath) {
  wchar_t volume[kVolumeName] = {};
  const String folder = systemPath + u'\\';
  if (!::GetVolumeNameForVolumeMountPointW(ToWide(folder), volume, kVolumeName)) return false;
  const String paths = PathsOfVolume(volume);
  return !paths.empty() && !HasLetter(paths);
}

}  // namespace norvo
