#include "platform/posix/InsideFolder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>
#include <utility>

#include "platform/files/DiskPath.h"
#include "platform/posix/Descriptor.h"
#include "platform/posix/Errno.h"

#ifdef __linux__
#include <linux/openat2.h>
#include <sys/syscall.h>
#endif

namespace norvo {
namespace {

/// Asks again as long as a signal comes in between.
template <class Call>
int Persist(Call&& call) {
  int result = -1;
  do {
    result = call();
  } while (result < 0 && errno == EINTR);
  return result;
}

bool IsLink(int folder, const char* name) {
  struct stat found;
  return ::fstatat(folder, name, &found, AT_SYMLINK_NOFOLLOW) == 0 && S_ISLNK(found.st_mode);
}

/// One name of a path, as the system's calls want it. It costs no allocation: such a name is short.
class PartName {
 public:
  explicit PartName(std::string_view part) : fits_(part.size() < sizeof text_) {
    if (fits_) text_[part.copy(text_, part.size())] = '\0';
  }

  bool Fits() const { return fits_; }
  bool LeadsUp() const { return std::string_view(text_) == ".."; }
  const char* Text() const { return text_; }

 private:
  bool fits_;
  char text_[256];  // no disk has longer names
};

FileResult<SystemFile> OpenPart(int folder, std::string_view part, int flags,
                                unsigned permissions) {
  const PartName name(part);
  if (!name.Fits()) return FailureOf(ENAMETOOLONG);
  if (name.LeadsUp()) return FailureOf(EXDEV);
  FileResult<SystemFile> file = Owned(Persist(
      [&] { return ::openat(folder, name.Text(), flags | O_NOFOLLOW | O_CLOEXEC, permissions); }));
  // Asked for a folder, the system tells of a link what it tells of all that is none.
  const bool isNoFolder = file.Failure().kind == FileFailure::Kind::NotAFolder;
  if (isNoFolder && IsLink(folder, name.Text())) return FailureOf(ELOOP);
  return file;
}

FileResult<SystemFile> OpenPartByPart(int root, std::string_view path, int flags,
                                      unsigned permissions) {
  SystemFile reached;
  std::size_t begin = 0;
  for (std::size_t end = 0; (end = path.find('/', begin)) != std::string_view::npos;
       begin = end + 1) {
    FileResult<SystemFile> next = OpenPart(reached.IsOpen() ? DescriptorOf(reached) : root,
                                           path.substr(begin, end - begin), kStartFlags, 0);
    if (!next) return next;
    reached = std::move(*next);
  }
  return OpenPart(reached.IsOpen() ? DescriptorOf(reached) : root, path.substr(begin), flags,
                  permissions);
}

#if defined(__linux__) && defined(SYS_openat2)

bool Creates(int flags) {
  return (flags & O_TMPFILE) == O_TMPFILE || (flags & O_CREAT) != 0;
}

FileResult<SystemFile> OpenAtOneStroke(int root, const char* path, int flags,
                                       unsigned permissions) {
  struct open_how how = {};
  how.flags = static_cast<decltype(how.flags)>(flags | O_CLOEXEC);
  how.mode = Creates(flags) ? permissions : 0;
  how.resolve = RESOLVE_NO_SYMLINKS | RESOLVE_BENEATH;
  return Owned(Persist(
      [&] { return static_cast<int>(::syscall(SYS_openat2, root, path, &how, sizeof how)); }));
}

#else

FileResult<SystemFile> OpenAtOneStroke(int, const char*, int, unsigned) {
  return FailureOf(ENOSYS);
}

#endif

/// Old systems lack the call, some containers and sandboxes refuse it in one way or another, and a
/// rename nearby can disturb it. Where it is the path that is refused, so is the other way.
bool IsOfTheCallItself(int code) {
  return code == ENOSYS || code == EPERM || code == EINVAL || code == E2BIG || code == EAGAIN;
}

}  // namespace

bool OpensAtOneStroke() {
  static const bool opens = bool(OpenAtOneStroke(AT_FDCWD, ".", kStartFlags, 0));
  return opens;
}

FileResult<SystemFile> OpenInside(const SystemFile& root, const std::string& path, int flags,
                                  unsigned permissions) {
  const char* const way = path.empty() ? "." : path.c_str();
  const int folder = DescriptorOf(root);
  if (OpensAtOneStroke()) {
    FileResult<SystemFile> file = OpenAtOneStroke(folder, way, flags, permissions);
    if (!IsOfTheCallItself(file.Failure().code)) return file;
  }
  return OpenPartByPart(folder, way, flags, permissions);
}

InsideFolder::InsideFolder(const SystemFile& root, const std::string& path)
    : root_(root), name_(path.c_str() + (path.size() - LeafOf(path).size())) {
  const std::string_view folder = ParentOf(path);
  if (std::string_view(name_) == "..") failure_ = FailureOf(EXDEV);
  if (folder.empty() || failure_) return;
  // Part by part it takes a view of the path, which spares the copy that the call itself needs.
  FileResult<SystemFile> opened = OpensAtOneStroke()
                                      ? OpenInside(root, std::string(folder), kStartFlags)
                                      : OpenPartByPart(DescriptorOf(root), folder, kStartFlags, 0);
  failure_ = opened.Failure();
  if (opened) reached_ = std::move(*opened);
}

}  // namespace norvo
