#include "support/Links.h"

#include "support/FreshFolder.h"

#ifdef _WIN32
#include <windows.h>
#endif

namespace norvo {

namespace fs = std::filesystem;

#ifdef _WIN32

namespace {

void MakeLink(const fs::path& target, const fs::path& name, DWORD kind) {
  constexpr DWORD kAlsoUnprivileged = 0x2;
  ::CreateSymbolicLinkW(name.c_str(), fs::path(target).make_preferred().c_str(),
                        kind | kAlsoUnprivileged);
}

bool TryToLink() {
  const FreshFolder folder("norvo-links");
  const fs::path link = folder.Path() / "link";
  MakeFileLink("nowhere", link);
  const DWORD attributes = ::GetFileAttributesW(link.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}

}  // namespace

bool CanMakeLinks() {
  static const bool can = TryToLink();
  return can;
}

void MakeFileLink(const fs::path& target, const fs::path& name) {
  MakeLink(target, name, 0);
}

void MakeFolderLink(const fs::path& target, const fs::path& name) {
  MakeLink(target, name, SYMBOLIC_LINK_FLAG_DIRECTORY);
}

#else

bool CanMakeLinks() {
  return true;
}

void MakeFileLink(const fs::path& target, const fs::path& name) {
  fs::create_symlink(target, name);
}

void MakeFolderLink(const fs::path& target, const fs::path& name) {
  fs::create_directory_symlink(target, name);
}

#endif

}  // namespace norvo
