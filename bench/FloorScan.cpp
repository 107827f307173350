// The least work that a scan needs: every folder below the given one is listed once, and the
// names are counted. Folders are told from files by the listing itself.

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstddef>
#include <cstdio>
#include <cstring>

namespace norvo::bench {
namespace {

bool IsSelfOrParent(const char* name) {
  return std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0;
}

/** Lists the folders of a tree; each one is opened relative to its parent. */
class Scanner {
 public:
  bool ScanBelow(int parent, const char* name) {
    const int folder = openat(parent, name, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0) return false;
    DIR* listing = fdopendir(folder);
    if (listing == nullptr) {
      close(folder);
      return false;
    }
    const bool isWhole = CountNames(listing, folder);
    closedir(listing);
    return isWhole;
  }

  std::size_t Names() const { return names_; }

 private:
  bool CountNames(DIR* listing, int folder) {
    bool isWhole = true;
    while (const dirent* item = readdir(listing)) {
      if (IsSelfOrParent(item->d_name)) continue;
      ++names_;
      if (item->d_type == DT_DIR) isWhole = ScanBelow(folder, item->d_name) && isWhole;
    }
    return isWhole;
  }

  std::size_t names_ = 0;
};

}  // namespace
}  // namespace norvo::bench

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: floor_scan DIR\n", stderr);
    return 2;
  }
  norvo::bench::Scanner scanner;
  if (!scanner.ScanBelow(AT_FDCWD, argv[1])) {
    std::perror("floor_scan");
    return 1;
  }
  std::printf("%zu\n", scanner.Names());
  return 0;
}
