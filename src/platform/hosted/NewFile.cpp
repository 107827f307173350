#include "platform/hosted/NewFile.h"

#include <fcntl.h>
#include <stdio.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "platform/hosted/AtomicFile.h"
#include "platform/hosted/HostName.h"

namespace norvo {
namespace {

#ifdef O_TMPFILE

/// The one way by which everybody may give a name to an open file.
std::string DescriptorPath(const HostFile& file) {
  return "/proc/self/fd/" + std::to_string(file.Get());
}

HostFile CreateUnnamed(const HostPlace& place, unsigned mode) {
  static const bool canBeNamed = ::access("/proc/self/fd", X_OK) == 0;
  if (!canBeNamed) return {};
  return OpenInside(place.drive->Root(), std::string(HostParent(place.path)), O_TMPFILE | O_WRONLY,
                    mode);
}

int LinkDescriptor(const HostFile& file, const HostFile& folder, const std::string& name) {
  const std::string path = DescriptorPath(file);
  const int result =
      ::linkat(AT_FDCWD, path.c_str(), folder.Get(), name.c_str(), AT_SYMLINK_FOLLOW);
  return result == 0 ? 0 : errno;
}

#else

HostFile CreateUnnamed(const HostPlace&, unsigned) {
  return {};
}

int LinkDescriptor(const HostFile&, const HostFile&, const std::string&) {
  return ENOSYS;
}

#endif

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

/// Renames within a folder and never replaces anything.
int RenameNew(int folder, const std::string& from, const std::string& to) {
  if (RenameWhereFree(folder, from.c_str(), to.c_str()) == 0) return 0;
  if (errno != EINVAL && errno != ENOSYS && errno != ENOTSUP) return errno;
  // The disk or the system knows no such step. A second name does not replace anything either.
  if (::linkat(folder, from.c_str(), folder, to.c_str(), 0) == 0) {
    ::unlinkat(folder, from.c_str(), 0);
    return 0;
  }
  if (errno == EEXIST) return EEXIST;
  // Nor has the disk second names. To be replaced now, a file would have to come between two calls.
  if (LookUp(folder, to)) return EEXIST;
  return ::renameat(folder, from.c_str(), folder, to.c_str()) == 0 ? 0 : errno;
}

}  // namespace

NewFile::NewFile(NewFile&& other) noexcept
    : drive_(std::exchange(other.drive_, nullptr)),
      path_(std::move(other.path_)),
      temporary_(std::exchange(other.temporary_, {})),
      file_(std::move(other.file_)) {}

NewFile& NewFile::operator=(NewFile&& other) noexcept {
  if (this != &other) {
    Discard();
    drive_ = std::exchange(other.drive_, nullptr);
    path_ = std::move(other.path_);
    temporary_ = std::exchange(other.temporary_, {});
    file_ = std::move(other.file_);
  }
  return *this;
}

NewFile NewFile::For(const HostPlace& place, unsigned mode) {
  NewFile made;
  made.drive_ = place.drive;
  made.path_ = place.path;
  made.file_ = CreateUnnamed(place, mode);
  if (made.file_.IsOpen()) return made;
  // Whatever the reason was: the plain way succeeds, or has one that is worth telling.
  std::string temporary = TemporaryPath(place.path);
  made.file_ = CreateTemporary(place.drive->Root(), temporary, mode);
  if (made.file_.IsOpen()) made.temporary_ = std::move(temporary);
  return made;
}

int NewFile::GiveName(const HostFile& folder, const std::string& name) {
  if (temporary_.empty()) return LinkDescriptor(file_, folder, name);
  const int reason = RenameNew(folder.Get(), std::string(HostLeaf(temporary_)), name);
  if (reason == 0) temporary_.clear();
  return reason;
}

int NewFile::PutInPlace() {
  const HostFile folder = OpenFolderOf({drive_, path_});
  const int reason = folder.IsOpen() ? GiveName(folder, std::string(HostLeaf(path_))) : errno;
  Discard();
  return reason;
}

void NewFile::Discard() {
  file_.Close();
  if (temporary_.empty()) return;
  const int reason = errno;
  ::unlinkat(drive_->Root(), temporary_.c_str(), 0);
  temporary_.clear();
  errno = reason;
}

HostFile OpenFolderOf(const HostPlace& place) {
#ifdef O_PATH
  constexpr int kFlags = O_PATH | O_DIRECTORY;
#else
  constexpr int kFlags = O_RDONLY | O_DIRECTORY;
#endif
  return OpenInside(place.drive->Root(), std::string(HostParent(place.path)), kFlags);
}

int LinkFile(const HostFile& file, const HostPlace& found, const HostPlace& place) {
  const HostFile folder = OpenFolderOf(place);
  if (!folder.IsOpen()) return errno;
  const std::string name(HostLeaf(place.path));
  const int reason = LinkDescriptor(file, folder, name);
  if (reason != ENOENT && reason != ENOSYS) return reason;
  // No open file can be named here; its own name then has to do.
  const HostFile from = OpenFolderOf(found);
  if (!from.IsOpen()) return errno;
  const std::string old(HostLeaf(found.path));
  return ::linkat(from.Get(), old.c_str(), folder.Get(), name.c_str(), 0) == 0 ? 0 : errno;
}

void RemoveLeftover(const HostPlace& place) {
  ::unlinkat(place.drive->Root(), TemporaryPath(place.path).c_str(), 0);
}

}  // namespace norvo
