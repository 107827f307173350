#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/files/DiskPath.h"
#include "platform/files/SystemCalls.h"
#include "platform/posix/Descriptor.h"
#include "platform/posix/Errno.h"
#include "platform/posix/InsideFolder.h"

namespace norvo {
namespace {

constexpr mode_t kEverybody = 0777;

/// In one step; -1 with the reason in `errno`.
#if defined(RENAME_NOREPLACE)
int RenameWhereFree(int folder, const char* from, const char* to) {
  return ::renameat2(folder, from, folder, to, RENAME_NOREPLACE);
}
#elif defined(RENAME_EXCL)
int RenameWhereFree(int folder, const char* from, const char* to) {
  return ::renameatx_np(folder, from, folder, to, RENAME_EXCL);
}
#else
int RenameWhereFree(int, const char*, const char*) {
  errno = ENOSYS;
  return -1;
}
#endif

#ifdef O_TMPFILE

/// The one way by which everybody may give a name to an open file.
FileFailure NameOpenFile(const SystemFile& file, const InsideFolder& in) {
  const std::string path = "/proc/self/fd/" + std::to_string(DescriptorOf(file));
  return FailureUnlessZero(
      ::linkat(AT_FDCWD, path.c_str(), in.Folder(), in.Name(), AT_SYMLINK_FOLLOW));
}

#else

FileFailure NameOpenFile(const SystemFile&, const InsideFolder&) {
  return FailureOf(ENOSYS);
}

#endif

bool IsThere(int folder, const char* name) {
  struct stat found;
  return ::fstatat(folder, name, &found, AT_SYMLINK_NOFOLLOW) == 0;
}

FileFailure RenameNewIn(int folder, const char* from, const char* to) {
  if (RenameWhereFree(folder, from, to) == 0) return {};
  if (errno != EINVAL && errno != ENOSYS && errno != ENOTSUP) return LastFailure();
  // The disk or the system knows no such step. A second name does not replace anything either.
  if (::linkat(folder, from, folder, to, 0) == 0) {
    ::unlinkat(folder, from, 0);
    return {};
  }
  if (errno == EEXIST) return LastFailure();
  // Nor has the disk second names. To be replaced now, a file would have to come between two calls.
  if (IsThere(folder, to)) return FailureOf(EEXIST);
  return FailureUnlessZero(::renameat(folder, from, folder, to));
}

}  // namespace

FileFailure GiveName(const SystemFile& unnamed, const SystemFile& root, const std::string& path) {
  const InsideFolder in(root, path);
  return in.Failure() ? in.Failure() : NameOpenFile(unnamed, in);
}

FileFailure LinkFile(const SystemFile& file, const SystemFile& fromRoot, const std::string& from,
                     const SystemFile& toRoot, const std::string& to) {
  const InsideFolder target(toRoot, to);
  if (target.Failure()) return target.Failure();
  const FileFailure failure = NameOpenFile(file, target);
  if (failure.code != ENOENT && failure.code != ENOSYS) return failure;
  // No open file can be named here; its own name then has to do.
  const InsideFolder source(fromRoot, from);
  if (source.Failure()) return source.Failure();
  return FailureUnlessZero(
      ::linkat(source.Folder(), source.Name(), target.Folder(), target.Name(), 0));
}

FileFailure RenameNew(const SystemFile& root, const std::string& from, const std::string& to) {
  const InsideFolder in(root, from);
  if (in.Failure()) return in.Failure();
  return RenameNewIn(in.Folder(), in.Name(), std::string(LeafOf(to)).c_str());
}

FileFailure RenameOver(const SystemFile& root, const std::string& from, const std::string& to) {
  const InsideFolder in(root, from);
  if (in.Failure()) return in.Failure();
  const std::string name(LeafOf(to));
  return FailureUnlessZero(::renameat(in.Folder(), in.Name(), in.Folder(), name.c_str()));
}

FileFailure MakeFolder(const SystemFile& root, const std::string& path) {
  const InsideFolder in(root, path);
  if (in.Failure()) return in.Failure();
  return FailureUnlessZero(::mkdirat(in.Folder(), in.Name(), kEverybody));
}

FileFailure RemoveFile(const SystemFile& root, const std::string& path) {
  const InsideFolder in(root, path);
  if (in.Failure()) return in.Failure();
  return FailureUnlessZero(::unlinkat(in.Folder(), in.Name(), 0));
}

FileFailure SetPermissions(const SystemFile& file, std::uint32_t permissions) {
  return FailureUnlessZero(::fchmod(DescriptorOf(file), static_cast<mode_t>(permissions)));
}

}  // namespace norvo
