#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/files/DiskPath.h"
#include "platform/files/SystemCalls.h"
#include "platform/posix/Descriptor.h"
#include "platform/posix/Errno.h"

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

FileResult<SystemFile> OpenFolderOf(const SystemFile& root, const std::string& path) {
  return OpenBeneath(root, std::string(ParentOf(path)), OpenMode::Start);
}

}  // namespace

#ifdef O_TMPFILE

FileFailure GiveName(const SystemFile& unnamed, const SystemFile& folder, const std::string& name) {
  // The one way by which everybody may give a name to an open file.
  const std::string path = "/proc/self/fd/" + std::to_string(DescriptorOf(unnamed));
  return FailureUnlessZero(
      ::linkat(AT_FDCWD, path.c_str(), DescriptorOf(folder), name.c_str(), AT_SYMLINK_FOLLOW));
}

#else

FileFailure GiveName(const SystemFile&, const SystemFile&, const std::string&) {
  return FailureOf(ENOSYS);
}

#endif

FileFailure LinkFile(const SystemFile& file, const SystemFile& fromRoot, const std::string& from,
                     const SystemFile& toRoot, const std::string& to) {
  const FileResult<SystemFile> folder = OpenFolderOf(toRoot, to);
  if (!folder) return folder.Failure();
  const std::string name(LeafOf(to));
  const FileFailure failure = GiveName(file, *folder, name);
  if (failure.code != ENOENT && failure.code != ENOSYS) return failure;
  // No open file can be named here; its own name then has to do.
  const FileResult<SystemFile> oldFolder = OpenFolderOf(fromRoot, from);
  if (!oldFolder) return oldFolder.Failure();
  const std::string oldName(LeafOf(from));
  return FailureUnlessZero(
      ::linkat(DescriptorOf(*oldFolder), oldName.c_str(), DescriptorOf(*folder), name.c_str(), 0));
}

FileFailure RenameNew(const SystemFile& folder, const std::string& from, const std::string& to) {
  const int in = DescriptorOf(folder);
  if (RenameWhereFree(in, from.c_str(), to.c_str()) == 0) return {};
  if (errno != EINVAL && errno != ENOSYS && errno != ENOTSUP) return LastFailure();
  // The disk or the system knows no such step. A second name does not replace anything either.
  if (::linkat(in, from.c_str(), in, to.c_str(), 0) == 0) {
    ::unlinkat(in, from.c_str(), 0);
    return {};
  }
  if (errno == EEXIST) return LastFailure();
  // Nor has the disk second names. To be replaced now, a file would have to come between two calls.
  if (LookUp(folder, to)) return FailureOf(EEXIST);
  return RenameOver(folder, from, to);
}

FileFailure RenameOver(const SystemFile& root, const std::string& from, const std::string& to) {
  const int in = DescriptorOf(root);
  return FailureUnlessZero(::renameat(in, from.c_str(), in, to.c_str()));
}

FileFailure MakeFolder(const SystemFile& root, const std::string& path) {
  return FailureUnlessZero(::mkdirat(DescriptorOf(root), path.c_str(), kEverybody));
}

FileFailure RemoveFile(const SystemFile& root, const std::string& path) {
  return FailureUnlessZero(::unlinkat(DescriptorOf(root), path.c_str(), 0));
}

FileFailure SetPermissions(const SystemFile& file, std::uint32_t permissions) {
  return FailureUnlessZero(::fchmod(DescriptorOf(file), static_cast<mode_t>(permissions)));
}

}  // namespace norvo
