#include <fcntl.h>
#include <sys/resource.h>

#include "platform/files/SystemCalls.h"
#include "platform/posix/Descriptor.h"

namespace norvo {

void WillRead(const SystemFile& file, std::uint64_t offset, std::uint64_t size) {
#ifdef POSIX_FADV_WILLNEED
  ::posix_fadvise(DescriptorOf(file), static_cast<off_t>(offset), static_cast<off_t>(size),
                  POSIX_FADV_WILLNEED);
#else
  static_cast<void>(file);
  static_cast<void>(offset);
  static_cast<void>(size);
#endif
}

std::optional<std::uint64_t> DiskWaits() {
#ifdef RUSAGE_THREAD
  rusage used = {};
  if (::getrusage(RUSAGE_THREAD, &used) != 0) return std::nullopt;
  // Some file systems are programs of their own: these cost a wait, but no blocks of a disk.
  return static_cast<std::uint64_t>(used.ru_inblock) + static_cast<std::uint64_t>(used.ru_nvcsw);
#else
  return std::nullopt;
#endif
}

}  // namespace norvo
