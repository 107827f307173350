#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>

#include "platform/files/SystemCalls.h"
#include "platform/posix/Descriptor.h"
#include "platform/posix/Errno.h"

namespace norvo {
namespace {

FileFailure FlushFile(const SystemFile* file) {
  int result = -1;
  do {
    result = ::fsync(DescriptorOf(*file));
  } while (result != 0 && errno == EINTR);
  return FailureUnlessZero(result);
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
bool FlushWhole(std::span<const SystemFile* const> files) {
  if (files.size() <= kFewFiles) return false;
  std::vector<dev_t> done;
  for (const SystemFile* const file : files) {
    const dev_t disk = DiskOf(DescriptorOf(*file));
    if (std::find(done.begin(), done.end(), disk) != done.end()) continue;
    if (::syncfs(DescriptorOf(*file)) != 0) return false;
    done.push_back(disk);
  }
  return true;
}

#else

bool FlushWhole(std::span<const SystemFile* const>) {
  return false;
}

#endif

}  // namespace

std::vector<FileFailure> FlushToDisk(std::span<const SystemFile* const> files) {
  std::vector<FileFailure> failures(files.size());
  if (!FlushWhole(files)) {
    std::transform(files.begin(), files.end(), failures.begin(), FlushFile);
  }
  return failures;
}

std::size_t FlushesAtOnce() {
  return 1;
}

}  // namespace norvo
