#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cerrno>

#include "platform/files/SystemCalls.h"
#include "platform/posix/Descriptor.h"
#include "platform/posix/Errno.h"

#ifdef __linux__
#include <linux/openat2.h>
#include <sys/syscall.h>
#endif

namespace norvo {
namespace {

constexpr unsigned kEverybodyReadsAndWrites = 0666;

#ifdef O_PATH
constexpr int kStartFlags = O_PATH | O_DIRECTORY;
#else
constexpr int kStartFlags = O_RDONLY | O_DIRECTORY;
#endif

int FlagsFor(OpenMode mode) {
  // What is no file is turned down by the caller; until then it is not to block.
  constexpr int kNeverWait = O_NONBLOCK | O_NOCTTY;
  switch (mode) {
    case OpenMode::Append:
      return O_WRONLY | O_APPEND | kNeverWait;
    case OpenMode::CreateForAppending:
      return O_WRONLY | O_APPEND | O_CREAT | kNeverWait;
    case OpenMode::List:
      return O_RDONLY | O_DIRECTORY | O_NONBLOCK;
    case OpenMode::Start:
      return kStartFlags;
    case OpenMode::Read:
      break;
  }
  return O_RDONLY | kNeverWait;
}

#if defined(__linux__) && defined(SYS_openat2)

bool Creates(int flags) {
#ifdef O_TMPFILE
  if ((flags & O_TMPFILE) == O_TMPFILE) return true;
#endif
  return (flags & O_CREAT) != 0;
}

#endif

int OpenPlain(int folder, const char* path, int flags, unsigned permissions) {
  return ::openat(folder, path, flags | O_NOFOLLOW, permissions);
}

int OpenWithoutLinks(int folder, const char* path, int flags, unsigned permissions) {
#if defined(__linux__) && defined(SYS_openat2)
  struct open_how how = {};
  how.flags = static_cast<decltype(how.flags)>(flags);
  how.mode = Creates(flags) ? permissions : 0;
  how.resolve = RESOLVE_NO_SYMLINKS | RESOLVE_BENEATH;
  const long result = ::syscall(SYS_openat2, folder, path, &how, sizeof how);
  // Old systems lack the call, some containers refuse it, and a rename nearby can disturb it.
  if (result >= 0 || (errno != ENOSYS && errno != EPERM && errno != EAGAIN)) {
    return static_cast<int>(result);
  }
#endif
  return OpenPlain(folder, path, flags, permissions);
}

FileResult<SystemFile> OwnedOrFailure(int descriptor) {
  if (descriptor < 0) return LastFailure();
  return SystemFile(descriptor);
}

FileResult<SystemFile> OpenInside(const SystemFile& root, const std::string& path, int flags,
                                  unsigned permissions) {
  const char* const name = path.empty() ? "." : path.c_str();
  int descriptor = -1;
  do {
    descriptor = OpenWithoutLinks(DescriptorOf(root), name, flags | O_CLOEXEC, permissions);
  } while (descriptor < 0 && errno == EINTR);
  return OwnedOrFailure(descriptor);
}

}  // namespace

void SystemFile::Close() {
  if (IsOpen()) ::close(static_cast<int>(Release()));
}

FileResult<SystemFile> OpenBeneath(const SystemFile& root, const std::string& path, OpenMode mode) {
  return OpenInside(root, path, FlagsFor(mode), kEverybodyReadsAndWrites);
}

FileResult<SystemFile> OpenRoot(const std::string& path) {
  return OwnedOrFailure(::open(path.c_str(), kStartFlags | O_CLOEXEC));
}

FileResult<SystemFile> OpenSystemPath(const std::string& path) {
  return OwnedOrFailure(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
}

FileResult<SystemFile> CreateNew(const SystemFile& root, const std::string& path,
                                 unsigned permissions) {
  return OpenInside(root, path, O_WRONLY | O_CREAT | O_EXCL, permissions);
}

#ifdef O_TMPFILE

FileResult<SystemFile> CreateUnnamed(const SystemFile& root, const std::string& folder,
                                     unsigned permissions) {
  // Without that folder it could get no name afterwards; see GiveName.
  static const bool canBeNamed = ::access("/proc/self/fd", X_OK) == 0;
  if (!canBeNamed) return FailureOf(ENOSYS);
  return OpenInside(root, folder, O_TMPFILE | O_WRONLY, permissions);
}

#else

FileResult<SystemFile> CreateUnnamed(const SystemFile&, const std::string&, unsigned) {
  return FailureOf(ENOSYS);
}

#endif

std::size_t MostOpenFiles() {
  rlimit limit = {};
  return ::getrlimit(RLIMIT_NOFILE, &limit) == 0 ? static_cast<std::size_t>(limit.rlim_cur) : 0;
}

}  // namespace norvo
