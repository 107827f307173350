#include "platform/windows/FileVersion.h"

#include <windows.h>

#include <vector>

#include "platform/windows/SystemPath.h"
#include "platform/windows/WideText.h"
#include "platform/windows/WindowsError.h"
#include "text/Number.h"

namespace norvo {
namespace {

String VersionText(DWORD high, DWORD low) {
  String text;
  for (const DWORD number : {high >> 16, high & 0xFFFF, low >> 16, low & 0xFFFF}) {
    if (!text.empty()) text.push_back(u'.');
    text += FormatInteger(number);
  }
  return text;
}

}  // namespace

String VersionOfFile(const String& systemPath) {
  const DWORD size = ::GetFileVersionInfoSizeW(ToWide(systemPath), nullptr);
  std::vector<char> block(size);
  if (size == 0 || !::GetFileVersionInfoW(ToWide(systemPath), 0, size, block.data())) {
    RaiseIfUntold(::GetLastError(), Subject::File, FromSystemPath(systemPath));
    return {};
  }
  void* found = nullptr;
  UINT length = 0;
  if (!::VerQueryValueW(block.data(), L"\\", &found, &length)) return {};
  if (length < sizeof(VS_FIXEDFILEINFO)) return {};
  const auto& version = *static_cast<const VS_FIXEDFILEINFO*>(found);
  return VersionText(version.dwFileVersionMS, version.dwFileVersionLS);
}

}  // namespace norvo
