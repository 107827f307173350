#include "com/ModulePath.h"

#include "platform/windows/WideText.h"

namespace norvo::com {
namespace {

HMODULE OwnModule() {
  HMODULE module = nullptr;
  ::GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      reinterpret_cast<LPCWSTR>(&OwnModule), &module);
  return module;
}

}  // namespace

String ModulePath() {
  constexpr std::size_t kLongestPath = 32768;
  for (String path(MAX_PATH, u'\0');; path.resize(path.size() * 2)) {
    const DWORD length =
        ::GetModuleFileNameW(OwnModule(), ToWide(path), static_cast<DWORD>(path.size()));
    const bool whole = length < path.size();
    if (whole || path.size() >= kLongestPath) return path.substr(0, length);
  }
}

}  // namespace norvo::com
