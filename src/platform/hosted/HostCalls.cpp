#include "platform/hosted/HostCalls.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <memory>
#include <utility>

#ifdef __linux__
#include <linux/openat2.h>
#include <sys/syscall.h>
#endif

namespace norvo {
namespace {

HostFacts::Kind KindOf(unsigned mode) {
  if (S_ISREG(mode)) return HostFacts::Kind::File;
  if (S_ISDIR(mode)) return HostFacts::Kind::Folder;
  return S_ISLNK(mode) ? HostFacts::Kind::Link : HostFacts::Kind::Other;
}

#ifdef __linux__

std::optional<HostFacts> Stat(int folder, const char* path, int flags) {
  struct statx found;
  if (::statx(folder, path, flags, STATX_BASIC_STATS | STATX_BTIME, &found) != 0) {
    return std::nullopt;
  }
  HostFacts facts;
  facts.kind = KindOf(found.stx_mode);
  facts.mode = found.stx_mode & 07777u;
  facts.size = found.stx_size;
  facts.disk = std::uint64_t{found.stx_dev_major} << 32 | found.stx_dev_minor;
  facts.record = found.stx_ino;
  facts.accessed = {found.stx_atime.tv_sec, found.stx_atime.tv_nsec};
  facts.modified = {found.stx_mtime.tv_sec, found.stx_mtime.tv_nsec};
  facts.changed = {found.stx_ctime.tv_sec, found.stx_ctime.tv_nsec};
  const bool hasBirth = (found.stx_mask & STATX_BTIME) != 0;
  facts.created = hasBirth ? std::min<std::int64_t>(found.stx_btime.tv_sec, facts.modified.seconds)
                           : facts.modified.seconds;
  return facts;
}

constexpr int kItself = AT_EMPTY_PATH;

#else

std::optional<HostFacts> Convert(const struct stat& found) {
  HostFacts facts;
  facts.kind = KindOf(found.st_mode);
  facts.mode = found.st_mode & 07777u;
  facts.size = static_cast<std::uint64_t>(found.st_size);
  facts.disk = static_cast<std::uint64_t>(found.st_dev);
  facts.record = static_cast<std::uint64_t>(found.st_ino);
#ifdef __APPLE__
  facts.accessed = {found.st_atimespec.tv_sec, found.st_atimespec.tv_nsec};
  facts.modified = {found.st_mtimespec.tv_sec, found.st_mtimespec.tv_nsec};
  facts.changed = {found.st_ctimespec.tv_sec, found.st_ctimespec.tv_nsec};
  facts.created = std::min<std::int64_t>(found.st_birthtimespec.tv_sec, facts.modified.seconds);
#else
  facts.accessed = {found.st_atim.tv_sec, found.st_atim.tv_nsec};
  facts.modified = {found.st_mtim.tv_sec, found.st_mtim.tv_nsec};
  facts.changed = {found.st_ctim.tv_sec, found.st_ctim.tv_nsec};
  facts.created = facts.modified.seconds;
#endif
  return facts;
}

constexpr int kItself = 0;

std::optional<HostFacts> Stat(int folder, const char* path, int flags) {
  struct stat found;
  const int result =
      *path == '\0' ? ::fstat(folder, &found) : ::fstatat(folder, path, &found, flags);
  return result == 0 ? Convert(found) : std::nullopt;
}

#endif

#if defined(__linux__) && defined(SYS_openat2)

bool Creates(int flags) {
#ifdef O_TMPFILE
  if ((flags & O_TMPFILE) == O_TMPFILE) return true;
#endif
  return (flags & O_CREAT) != 0;
}

#endif

int OpenPlain(int folder, const char* path, int flags, unsigned mode) {
  return ::openat(folder, path, flags | O_NOFOLLOW, mode);
}

int OpenWithoutLinks(int folder, const char* path, int flags, unsigned mode) {
#if defined(__linux__) && defined(SYS_openat2)
  struct open_how how = {};
  how.flags = static_cast<decltype(how.flags)>(flags);
  how.mode = Creates(flags) ? mode : 0;
  how.resolve = RESOLVE_NO_SYMLINKS | RESOLVE_BENEATH;
  const long result = ::syscall(SYS_openat2, folder, path, &how, sizeof how);
  // Old systems lack the call, some containers refuse it, and a rename nearby can disturb it.
  if (result >= 0 || (errno != ENOSYS && errno != EPERM && errno != EAGAIN)) {
    return static_cast<int>(result);
  }
#endif
  return OpenPlain(folder, path, flags, mode);
}

}  // namespace

HostFile& HostFile::operator=(HostFile&& other) noexcept {
  if (this != &other) {
    Close();
    descriptor_ = other.Release();
  }
  return *this;
}

int HostFile::Release() {
  return std::exchange(descriptor_, -1);
}

void HostFile::Close() {
  if (!IsOpen()) return;
  const int reason = errno;
  ::close(Release());
  errno = reason;
}

std::optional<HostFacts> LookUp(int folder, const std::string& path) {
  return Stat(folder, path.c_str(), AT_SYMLINK_NOFOLLOW | (path.empty() ? kItself : 0));
}

std::optional<HostFacts> LookUp(const HostFile& file) {
  return Stat(file.Get(), "", kItself);
}

HostFile OpenInside(int folder, const std::string& path, int flags, unsigned mode) {
  const char* const name = path.empty() ? "." : path.c_str();
  int result = -1;
  do {
    result = OpenWithoutLinks(folder, name, flags | O_CLOEXEC, mode);
  } while (result < 0 && errno == EINTR);
  return HostFile(result);
}

HostFile OpenRoot(const std::string& path) {
#ifdef O_PATH
  constexpr int kFlags = O_PATH | O_DIRECTORY | O_CLOEXEC;
#else
  constexpr int kFlags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
#endif
  return HostFile(::open(path.c_str(), kFlags));
}

std::optional<std::string> RealPath(const std::string& path) {
  const std::unique_ptr<char, decltype(&std::free)> resolved(::realpath(path.c_str(), nullptr),
                                                             &std::free);
  if (!resolved) return std::nullopt;
  return std::string(resolved.get());
}

std::optional<std::string> ReadToEnd(const HostFile& file, std::size_t most) {
  constexpr std::size_t kPiece = 64 * 1024;
  const std::optional<HostFacts> facts = LookUp(file);
  if (facts && facts->size > most) {
    errno = ENOMEM;
    return std::nullopt;
  }
  // One byte more than the size, so that the usual file ends within the first piece.
  std::size_t piece = facts ? static_cast<std::size_t>(facts->size) + 1 : kPiece;
  std::string bytes;
  for (;;) {
    const std::size_t had = bytes.size();
    bytes.resize(had + piece);
    const ssize_t got = ::read(file.Get(), bytes.data() + had, piece);
    if (got < 0 && errno != EINTR) return std::nullopt;
    bytes.resize(had + (got > 0 ? static_cast<std::size_t>(got) : 0));
    if (got == 0) return bytes;
    if (bytes.size() > most) {  // it has grown, or its size says nothing
      errno = ENOMEM;
      return std::nullopt;
    }
    piece = kPiece;
  }
}

bool WriteAll(const HostFile& file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(file.Get(), bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

bool SetTimes(const HostFile& file, const HostTime& accessed, const HostTime& modified) {
  timespec times[2] = {};
  times[0].tv_sec = static_cast<time_t>(accessed.seconds);
  times[0].tv_nsec = static_cast<long>(accessed.nanoseconds);
  times[1].tv_sec = static_cast<time_t>(modified.seconds);
  times[1].tv_nsec = static_cast<long>(modified.nanoseconds);
  return ::futimens(file.Get(), times) == 0;
}

HostTime HostNow() {
  timespec now = {};
  ::clock_gettime(CLOCK_REALTIME, &now);
  return {now.tv_sec, now.tv_nsec};
}

std::int32_t ErrorNumber(int code, Subject subject) {
  switch (code) {
    case ENOENT:
      return subject == Subject::File ? error::kFileNotFound : error::kPathNotFound;
    case ENOTDIR:
      return error::kPathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
      return error::kPermissionDenied;
    case ENOSPC:
    case EDQUOT:
      return error::kDiskFull;
    case EIO:
      return error::kDeviceInputOutput;
    case ENOMEM:
      return error::kOutOfMemory;
    default:
      return error::kPathFileAccess;
  }
}

HostCallError::HostCallError(int code, Subject subject, StringView path)
    : RunTimeError(ErrorNumber(code, subject),
                   String(DescriptionOf(ErrorNumber(code, subject))).append(u": ").append(path)),
      code_(code) {}

void RaiseHostCallError(int code, Subject subject, StringView path) {
  throw HostCallError(code, subject, path);
}

}  // namespace norvo
