#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>

#include <algorithm>
#include <memory>

#include "platform/files/SystemCalls.h"
#include "platform/posix/Descriptor.h"
#include "platform/posix/Errno.h"
#include "platform/posix/InsideFolder.h"

namespace norvo {
namespace {

FileRecord::Kind KindOf(unsigned mode) {
  if (S_ISREG(mode)) return FileRecord::Kind::File;
  if (S_ISDIR(mode)) return FileRecord::Kind::Folder;
  return S_ISLNK(mode) ? FileRecord::Kind::Link : FileRecord::Kind::Other;
}

#ifdef __linux__

FileResult<FileRecord> Stat(int folder, const char* path, int flags) {
  struct statx found;
  if (::statx(folder, path, flags, STATX_BASIC_STATS | STATX_BTIME, &found) != 0) {
    return LastFailure();
  }
  FileRecord record;
  record.kind = KindOf(found.stx_mode);
  record.permissions = found.stx_mode & 07777u;
  record.size = found.stx_size;
  record.disk = std::uint64_t{found.stx_dev_major} << 32 | found.stx_dev_minor;
  record.number = found.stx_ino;
  record.accessed = {found.stx_atime.tv_sec, found.stx_atime.tv_nsec};
  record.modified = {found.stx_mtime.tv_sec, found.stx_mtime.tv_nsec};
  record.changed = {found.stx_ctime.tv_sec, found.stx_ctime.tv_nsec};
  const bool hasBirth = (found.stx_mask & STATX_BTIME) != 0;
  record.created = hasBirth
                       ? std::min<std::int64_t>(found.stx_btime.tv_sec, record.modified.seconds)
                       : record.modified.seconds;
  return record;
}

constexpr int kItself = AT_EMPTY_PATH;

#else

FileRecord Convert(const struct stat& found) {
  FileRecord record;
  record.kind = KindOf(found.st_mode);
  record.permissions = found.st_mode & 07777u;
  record.size = static_cast<std::uint64_t>(found.st_size);
  record.disk = static_cast<std::uint64_t>(found.st_dev);
  record.number = static_cast<std::uint64_t>(found.st_ino);
#ifdef __APPLE__
  record.accessed = {found.st_atimespec.tv_sec, found.st_atimespec.tv_nsec};
  record.modified = {found.st_mtimespec.tv_sec, found.st_mtimespec.tv_nsec};
  record.changed = {found.st_ctimespec.tv_sec, found.st_ctimespec.tv_nsec};
  record.created = std::min<std::int64_t>(found.st_birthtimespec.tv_sec, record.modified.seconds);
#else
  record.accessed = {found.st_atim.tv_sec, found.st_atim.tv_nsec};
  record.modified = {found.st_mtim.tv_sec, found.st_mtim.tv_nsec};
  record.changed = {found.st_ctim.tv_sec, found.st_ctim.tv_nsec};
  record.created = record.modified.seconds;
#endif
  return record;
}

constexpr int kItself = 0;

FileResult<FileRecord> Stat(int folder, const char* path, int flags) {
  struct stat found;
  const int result =
      *path == '\0' ? ::fstat(folder, &found) : ::fstatat(folder, path, &found, flags);
  if (result != 0) return LastFailure();
  return Convert(found);
}

#endif

}  // namespace

FileResult<FileRecord> LookUp(const SystemFile& root, const std::string& path) {
  if (path.empty()) return LookUp(root);
  // No call looks up a path without following links. Where opening the folder is one call more,
  // and one to close it, that is too much for a look, by which nothing is opened or changed.
  if (OpensAtOneStroke()) return Stat(DescriptorOf(root), path.c_str(), AT_SYMLINK_NOFOLLOW);
  const InsideFolder in(root, path);
  if (in.Failure()) return in.Failure();
  return Stat(in.Folder(), in.Name(), AT_SYMLINK_NOFOLLOW);
}

FileResult<FileRecord> LookUp(const SystemFile& file) {
  return Stat(DescriptorOf(file), "", kItself);
}

FileResult<FileRecord> LookUpSystemPath(const std::string& path) {
  return Stat(AT_FDCWD, path.c_str(), AT_SYMLINK_NOFOLLOW);
}

FileResult<std::string> RealPath(const std::string& path) {
  const std::unique_ptr<char, decltype(&::free)> resolved(::realpath(path.c_str(), nullptr),
                                                          &::free);
  if (!resolved) return LastFailure();
  return std::string(resolved.get());
}

}  // namespace norvo
