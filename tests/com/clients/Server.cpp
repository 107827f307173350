#include "clients/Server.h"

#include <algorithm>

namespace norvo::clients {
namespace {

std::wstring WindowsPath(const std::string& path) {
  std::wstring wide(path.begin(), path.end());
  std::ranges::replace(wide, L'/', L'\\');
  return L"Z:" + wide;
}

}  // namespace

std::wstring LibraryPath() {
  return WindowsPath(NORVO_DLL);
}

std::wstring ManifestPath() {
  return WindowsPath(NORVO_MANIFEST);
}

SideBySide::SideBySide() {
  const std::wstring path = ManifestPath();
  ACTCTXW wanted{};
  wanted.cbSize = sizeof(wanted);
  wanted.lpSource = path.c_str();
  context_ = ::CreateActCtxW(&wanted);
  if (context_ != INVALID_HANDLE_VALUE) ::ActivateActCtx(context_, &cookie_);
}

SideBySide::~SideBySide() {
  if (cookie_ != 0) ::DeactivateActCtx(0, cookie_);
  if (context_ != INVALID_HANDLE_VALUE) ::ReleaseActCtx(context_);
}

}  // namespace norvo::clients
