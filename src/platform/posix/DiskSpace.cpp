#include <sys/statvfs.h>

#include <algorithm>
#include <iterator>

#include "platform/files/SystemCalls.h"
#include "platform/posix/Descriptor.h"

#ifdef __linux__
#include <linux/magic.h>
#include <sys/vfs.h>
#endif

namespace norvo {
namespace {

#ifdef __linux__

// Which the system's header lacks.
constexpr unsigned long kXfs = 0x58465342;
constexpr unsigned long kBcachefs = 0xCA451A4E;
constexpr unsigned long kZfs = 0x2FC12FC1;
constexpr unsigned long kOcfs2 = 0x7461636F;

/// Between two files of such a disk, CopyBytes takes no space; of one on the network nobody knows.
bool MayShareBytes(const SystemFile& folder) {
  constexpr unsigned long kSharing[] = {
      BTRFS_SUPER_MAGIC,     kXfs,   kBcachefs,       kZfs,
      OVERLAYFS_SUPER_MAGIC, kOcfs2, NFS_SUPER_MAGIC, CIFS_SUPER_MAGIC,
      SMB2_SUPER_MAGIC};
  struct statfs found;
  if (::fstatfs(DescriptorOf(folder), &found) != 0) return true;
  // Its type has another width and sign on each system.
  const auto kind = static_cast<unsigned long>(found.f_type) & 0xFFFFFFFFUL;
  return std::find(std::begin(kSharing), std::end(kSharing), kind) != std::end(kSharing);
}

#else

bool MayShareBytes(const SystemFile&) {
  return false;
}

#endif

}  // namespace

std::optional<std::uint64_t> FreeBytes(const SystemFile& folder) {
  struct statvfs found;
  if (MayShareBytes(folder) || ::fstatvfs(DescriptorOf(folder), &found) != 0) return std::nullopt;
  if (found.f_blocks == 0) return std::nullopt;  // so do disks that do not count
  return std::uint64_t{found.f_bavail} * found.f_frsize;
}

}  // namespace norvo
