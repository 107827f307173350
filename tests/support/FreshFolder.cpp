#include "support/FreshFolder.h"

#include <chrono>
#include <stdexcept>
#include <system_error>

#ifdef _WIN32
#include <windows.h>
#endif

namespace norvo {
namespace {

namespace fs = std::filesystem;

#ifdef _WIN32

/// By paths in the form that may be long, whose names are taken as they are. Links are removed,
/// never followed.
void RemoveTree(const std::wstring& path) {
  const DWORD attributes = ::GetFileAttributesW(path.c_str());
  ::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
    ::DeleteFileW(path.c_str());
    return;
  }
  if ((attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) {
    WIN32_FIND_DATAW found = {};
    const HANDLE search = ::FindFirstFileW((path + L"\\*").c_str(), &found);
    do {
      const std::wstring name = found.cFileName;
      if (name != L"." && name != L"..") RemoveTree(path + L"\\" + name);
    } while (::FindNextFileW(search, &found));
    ::FindClose(search);
  }
  ::RemoveDirectoryW(path.c_str());
}

void RemoveAll(const fs::path& folder) {
  RemoveTree(L"\\\\?\\" + fs::path(folder).make_preferred().wstring());
}

#else

void RemoveAll(const fs::path& folder) {
  std::error_code ignored;
  fs::remove_all(folder, ignored);
}

#endif

}  // namespace

FreshFolder::FreshFolder(const std::string& name) {
  // The same test may run a second time beside this one, on a poorer system.
  constexpr int kMostTrials = 1000;
  const auto start = std::chrono::steady_clock::now().time_since_epoch().count();
  for (int i = 0; i < kMostTrials; ++i) {
    path_ = fs::temp_directory_path() / (name + "-" + std::to_string(start + i));
    if (fs::create_directory(path_)) return;
  }
  throw std::runtime_error("no folder for the test can be made");
}

FreshFolder::~FreshFolder() {
  RemoveAll(path_);
}

}  // namespace norvo
