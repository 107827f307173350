#include "platform/windows/WindowsShell.h"

#include <windows.h>

#include <shlobj.h>

#include "platform/windows/AnsiPage.h"
#include "platform/windows/SystemPath.h"
#include "platform/windows/WideText.h"

namespace norvo {
namespace {

using FolderFunction = HRESULT(WINAPI*)(HWND, int, HANDLE, DWORD, LPSTR);

FolderFunction FindFunction(const LibraryHandle& library) {
  if (!library.IsOpen()) return nullptr;
  return reinterpret_cast<FolderFunction>(
      reinterpret_cast<void*>(::GetProcAddress(library.Get(), "SHGetFolderPathA")));
}

}  // namespace

std::optional<ShellFolders::Answer> WindowsShell::FolderPath(std::int32_t identifierAndFlags) {
  if (!library_.IsOpen()) {
    // By its full path, so that nobody can put another one in its way.
    library_ = LibraryHandle(::LoadLibraryW(ToWide(SystemFolderPath() + u"shfolder.dll")));
  }
  const FolderFunction function = FindFunction(library_);
  if (function == nullptr) return std::nullopt;
  char path[MAX_PATH] = {};
  const HRESULT status = function(nullptr, identifierAndFlags, nullptr, SHGFP_TYPE_CURRENT, path);
  return Answer{static_cast<std::uint32_t>(status), SystemAnsiPage().Decode(path)};
}

String WindowsShell::SpecialFolderPath(std::int32_t identifier) {
  char path[MAX_PATH] = {};
  if (!::SHGetSpecialFolderPathA(nullptr, path, identifier, TRUE)) return {};
  return SystemAnsiPage().Decode(path);
}

}  // namespace norvo
