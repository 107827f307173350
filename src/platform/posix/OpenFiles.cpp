#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cerrno>

#include "platform/files/SystemCalls.h"
#include "platform/posix/Descriptor.h"
#include "platform/posix/Errno.h"
#include "platform/posix/InsideFolder.h"

namespace norvo {
namespace {

constexpr unsigned kEverybodyReadsAndWrites = 0666;

int FlagsFor(OpenMode mode) {
  // What is no file is turned down by the caller; until then it is not to block.
  constexpr int kNeverWait = O_NONBLOCK | O_NOCTTY;
  switch (mode) {
    case OpenMode::Append:
      return O_WRONLY | O_APPEND | kNeverWait;
    case OpenMode::CreateForAppending:
      return O_WRONLY | O_APPEND | O_CREAT | kNeverWait;
    case OpenMode::Share:
      return O_RDWR | O_APPEND | kNeverWait;
    case OpenMode::CreateToShare:
      return O_RDWR | O_APPEND | O_CREAT | kNeverWait;
    case OpenMode::List:
      return O_RDONLY | O_DIRECTORY | O_NONBLOCK;
    case OpenMode::Start:
      return kStartFlags;
    case OpenMode::Read:
      break;
  }
  return O_RDONLY | kNeverWait;
}

}  // namespace

void SystemFile::Close() {
  if (IsOpen()) ::close(static_cast<int>(Release()));
}

FileResult<SystemFile> OpenBeneath(const SystemFile& root, const std::string& path, OpenMode mode) {
  return OpenInside(root, path, FlagsFor(mode), kEverybodyReadsAndWrites);
}

FileResult<SystemFile> OpenRoot(const std::string& path) {
  return Owned(::open(path.c_str(), kStartFlags | O_CLOEXEC));
}

FileResult<SystemFile> OpenSystemPath(const std::string& path) {
  return Owned(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
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
