#include "platform/hosted/DiskFlush.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>

namespace norvo {
namespace {

int FlushFile(int descriptor) {
  int result = -1;
  do {
    result = ::fsync(descriptor);
  } while (result != 0 && errno == EINTR);
  return result == 0 ? 0 : errno;
}

#ifdef __linux__

// Up to so many files are flushed one by one: each costs a command to the disk, but none waits for
// what other processes have written.
constexpr std::size_t kFewFiles = 4;

dev_t DiskOf(int descriptor) {
  struct stat found;
  return ::fstat(descriptor, &found) == 0 ? found.st_dev : dev_t{};
}

/// False leaves open which files failed.
bool FlushWhole(std::span<const int> descriptors) {
  if (descriptors.size() <= kFewFiles) return false;
  std::vector<dev_t> done;
  for (const int descriptor : descriptors) {
    const dev_t disk = DiskOf(descriptor);
    if (std::find(done.begin(), done.end(), disk) != done.end()) continue;
    if (::syncfs(descriptor) != 0) return false;
    done.push_back(disk);
  }
  return true;
}

#else

bool FlushWhole(std::span<const int>) {
  return false;
}

#endif

}  // namespace

std::vector<int> FlushToDisk(std::span<const int> descriptors) {
  std::vector<int> reasons(descriptors.size(), 0);
  if (!FlushWhole(descriptors)) {
    std::transform(descriptors.begin(), descriptors.end(), reasons.begin(), FlushFile);
  }
  return reasons;
}

}  // namespace norvo
