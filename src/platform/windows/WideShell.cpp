#include "platform/windows/WideShell.h"

#include <windows.h>

#include <shlobj.h>

#include "platform/windows/WideText.h"

namespace norvo {

std::optional<ShellFolders::Answer> WideShell::FolderPath(std::int32_t identifierAndFlags) {
  wchar_t path[MAX_PATH] = {};
  const HRESULT status =
      ::SHGetFolderPathW(nullptr, identifierAndFlags, nullptr, SHGFP_TYPE_CURRENT, path);
  return Answer{static_cast<std::uint32_t>(status), FromWide(path)};
}

String WideShell::SpecialFolderPath(std::int32_t identifier) {
  wchar_t path[MAX_PATH] = {};
  return ::SHGetSpecialFolderPathW(nullptr, path, identifier, TRUE) ? FromWide(path) : String();
}

}  // namespace norvo
