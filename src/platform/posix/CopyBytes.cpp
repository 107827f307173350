#include <fcntl.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <memory>

#include "platform/files/SystemCalls.h"
#include "platform/posix/Descriptor.h"
#include "platform/posix/Errno.h"

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
  Copying(const SystemFile& source, const SystemFile& target, std::uint64_t size,
          const ByteSink& sink)
      : source_(source), target_(target), size_(size), sink_(sink) {}

  FileFailure Run();

 private:
  enum class Way { Range, Send, Plain };

  bool Clone();
  void GoOn(Way way);
  ssize_t Move(std::size_t most);
  ssize_t MoveInside(std::size_t most);
  ssize_t MovePlain(std::size_t most);

  const SystemFile& source_;
  const SystemFile& target_;
  const std::uint64_t size_;
  const ByteSink& sink_;
  std::uint64_t done_ = 0;
  Way way_ = Way::Range;
  std::unique_ptr<char[]> buffer_;
};

FileFailure Copying::Run() {
  if (Clone()) {
    sink_(size_);
    return {};
  }
  while (done_ < size_) {
    const std::uint64_t left = size_ - done_;
    const ssize_t moved = Move(static_cast<std::size_t>(std::min<std::uint64_t>(kPiece, left)));
    if (moved < 0 && errno == EINTR) continue;
    if (moved < 0) return LastFailure();
    if (moved == 0) return FileFailure::Kind::SourceChanged;
    done_ += static_cast<std::uint64_t>(moved);
    sink_(static_cast<std::uint64_t>(moved));
  }
  return {};
}

#ifdef __linux__

/// Some disks let two files share their blocks.
bool Copying::Clone() {
  return ::ioctl(DescriptorOf(target_), FICLONE, DescriptorOf(source_)) == 0;
}

/// Within the system, without a way through this process.
ssize_t Copying::MoveInside(std::size_t most) {
  off_t from = static_cast<off_t>(done_);
  if (way_ == Way::Send)
    return ::sendfile(DescriptorOf(target_), DescriptorOf(source_), &from, most);
  off_t to = from;
  return ::copy_file_range(DescriptorOf(source_), &from, DescriptorOf(target_), &to, most, 0);
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
  const ssize_t got = ::pread(DescriptorOf(source_), buffer_.get(), std::min(most, kBuffer),
                              static_cast<off_t>(done_));
  if (got <= 0) return got;
  const std::size_t bytes = static_cast<std::size_t>(got);
  return WriteAll(target_, {buffer_.get(), bytes}) ? -1 : got;
}

void Copying::GoOn(Way way) {
  way_ = way;
  // The other ways write at the file's own place, which a failed call may have left anywhere.
  ::lseek(DescriptorOf(target_), static_cast<off_t>(done_), SEEK_SET);
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

}  // namespace

FileFailure CopyBytes(const SystemFile& source, const SystemFile& target, std::uint64_t size,
                      const ByteSink& sink) {
  return Copying(source, target, size, sink).Run();
}

FileFailure SetTimes(const SystemFile& file, const DiskTime& accessed, const DiskTime& modified) {
  timespec times[2] = {};
  times[0].tv_sec = static_cast<time_t>(accessed.seconds);
  times[0].tv_nsec = static_cast<long>(accessed.nanoseconds);
  times[1].tv_sec = static_cast<time_t>(modified.seconds);
  times[1].tv_nsec = static_cast<long>(modified.nanoseconds);
  return FailureUnlessZero(::futimens(DescriptorOf(file), times));
}

FileFailure ClaimSpace(const SystemFile& file, std::uint64_t size) {
#ifdef __linux__
  if (size == 0) return {};
  int result = -1;
  do {
    result = ::fallocate(DescriptorOf(file), FALLOC_FL_KEEP_SIZE, 0, static_cast<off_t>(size));
  } while (result != 0 && errno == EINTR);
  const bool lacksIt = result != 0 && (errno == ENOSPC || errno == EDQUOT || errno == EFBIG);
  return lacksIt ? LastFailure() : FileFailure();
#else
  static_cast<void>(file);
  static_cast<void>(size);
  return {};
#endif
}

void KeepAccessTime(const SystemFile& file) {
#ifdef O_NOATIME
  const int flags = ::fcntl(DescriptorOf(file), F_GETFL);
  if (flags >= 0) ::fcntl(DescriptorOf(file), F_SETFL, flags | O_NOATIME);
#else
  static_cast<void>(file);
#endif
}

}  // namespace norvo
