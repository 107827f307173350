#include "platform/hosted/FileCopy.h"

#include <fcntl.h>
#include <sys/types.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>

#ifdef __linux__
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/sendfile.h>
#endif

namespace norvo {
namespace {

constexpr std::size_t kPiece = std::size_t{1024} * 1024;

// Small enough to stay in the processor's cache between the reading and the writing.
constexpr std::size_t kBuffer = std::size_t{128} * 1024;

/// One file on its way into another.
class Copying {
 public:
  Copying(const HostFile& source, const HostFile& target, std::uint64_t size, const ByteSink& sink)
      : source_(source), target_(target), size_(size), sink_(sink) {}

  int Run();

 private:
  enum class Way { Range, Send, Plain };

  bool Clone();
  void GoOn(Way way);
  ssize_t Move(std::size_t most);
  ssize_t MoveInside(std::size_t most);
  ssize_t MovePlain(std::size_t most);

  const HostFile& source_;
  const HostFile& target_;
  const std::uint64_t size_;
  const ByteSink& sink_;
  std::uint64_t done_ = 0;
  Way way_ = Way::Range;
  std::unique_ptr<char[]> buffer_;
};

int Copying::Run() {
  if (Clone()) {
    sink_(size_);
    return 0;
  }
  while (done_ < size_) {
    const std::uint64_t left = size_ - done_;
    const ssize_t moved = Move(static_cast<std::size_t>(std::min<std::uint64_t>(kPiece, left)));
    if (moved < 0 && errno == EINTR) continue;
    if (moved < 0) return errno;
    if (moved == 0) return kSourceChanged;
    done_ += static_cast<std::uint64_t>(moved);
    sink_(static_cast<std::uint64_t>(moved));
  }
  return 0;
}

#ifdef __linux__

/// Some disks let two files share their blocks.
bool Copying::Clone() {
  return ::ioctl(target_.Get(), FICLONE, source_.Get()) == 0;
}

/// Within the host's system, without a way through this process.
ssize_t Copying::MoveInside(std::size_t most) {
  off_t from = static_cast<off_t>(done_);
  if (way_ == Way::Send) return ::sendfile(target_.Get(), source_.Get(), &from, most);
  off_t to = from;
  return ::copy_file_range(source_.Get(), &from, target_.Get(), &to, most, 0);
}

#else

bool Copying::Clone() {
  return false;
}

ssize_t Copying::MoveInside(std::size_t) {
  errno = ENOSYS;
  return -1;
}

#endif

ssize_t Copying::MovePlain(std::size_t most) {
  if (!buffer_) buffer_ = std::make_unique<char[]>(kBuffer);
  const ssize_t got =
      ::pread(source_.Get(), buffer_.get(), std::min(most, kBuffer), static_cast<off_t>(done_));
  if (got <= 0) return got;
  const std::size_t bytes = static_cast<std::size_t>(got);
  return WriteAll(target_, {buffer_.get(), bytes}) ? got : -1;
}

void Copying::GoOn(Way way) {
  way_ = way;
  // The other ways write at the file's own place, which a failed call may have left anywhere.
  ::lseek(target_.Get(), static_cast<off_t>(done_), SEEK_SET);
}

/// What a quick way refuses, or takes for the end, is left to the next one; the plain way has the
/// last word on what is wrong.
ssize_t Copying::Move(std::size_t most) {
  while (way_ != Way::Plain) {
    const ssize_t moved = MoveInside(most);
    if (moved > 0 || (moved < 0 && errno == EINTR)) return moved;
    GoOn(way_ == Way::Range ? Way::Send : Way::Plain);
  }
  return MovePlain(most);
}

/// Reads until the buffer is full or the file ends; -1 when it cannot be read.
ssize_t ReadFully(const HostFile& file, char* buffer, std::size_t size, std::uint64_t offset) {
  std::size_t done = 0;
  while (done < size) {
    const ssize_t got =
        ::pread(file.Get(), buffer + done, size - done, static_cast<off_t>(offset + done));
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return -1;
    if (got == 0) break;
    done += static_cast<std::size_t>(got);
  }
  return static_cast<ssize_t>(done);
}

}  // namespace

int CopyFile(const HostFile& source, const HostFacts& facts, const HostFile& target,
             const ByteSink& sink) {
  const int reason = Copying(source, target, facts.size, sink).Run();
  if (reason != 0) return reason;
  const std::optional<HostFacts> after = LookUp(source);
  if (!after) return errno;
  if (after->size != facts.size || after->modified != facts.modified) return kSourceChanged;
  const std::optional<HostFacts> made = LookUp(target);
  if (!made) return errno;
  if (made->size != facts.size) return kSourceChanged;
  if (!SetTimes(target, facts.accessed, facts.modified)) return errno;
  return 0;
}

bool ClaimSpace(const HostFile& file, std::uint64_t size) {
#ifdef __linux__
  if (size == 0) return true;
  int result = -1;
  do {
    result = ::fallocate(file.Get(), FALLOC_FL_KEEP_SIZE, 0, static_cast<off_t>(size));
  } while (result != 0 && errno == EINTR);
  return result == 0 || (errno != ENOSPC && errno != EDQUOT && errno != EFBIG);
#else
  static_cast<void>(file);
  static_cast<void>(size);
  return true;
#endif
}

std::optional<bool> SameBytes(const HostFile& left, const HostFile& right, std::uint64_t size,
                              const ByteSink& sink) {
  const std::unique_ptr<char[]> buffer = std::make_unique<char[]>(2 * kBuffer);
  for (std::uint64_t done = 0; done < size;) {
    const std::size_t piece =
        static_cast<std::size_t>(std::min<std::uint64_t>(kBuffer, size - done));
    const ssize_t first = ReadFully(left, buffer.get(), piece, done);
    const ssize_t second = first < 0 ? -1 : ReadFully(right, buffer.get() + kBuffer, piece, done);
    if (second < 0) return std::nullopt;
    if (first != static_cast<ssize_t>(piece) || second != first ||
        std::memcmp(buffer.get(), buffer.get() + kBuffer, piece) != 0) {
      return false;
    }
    done += piece;
    sink(piece);
  }
  return true;
}

void KeepAccessTime(const HostFile& file) {
#ifdef O_NOATIME
  const int flags = ::fcntl(file.Get(), F_GETFL);
  if (flags >= 0) ::fcntl(file.Get(), F_SETFL, flags | O_NOATIME);
#else
  static_cast<void>(file);
#endif
}

}  // namespace norvo
