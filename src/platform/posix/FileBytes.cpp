#include <fcntl.h>
#include <sys/types.h>
#include <unistd.h>

#include <cerrno>
#include <limits>

#include "platform/files/SystemCalls.h"
#include "platform/posix/Descriptor.h"
#include "platform/posix/Errno.h"
#include "platform/posix/InsideFolder.h"

namespace norvo {
namespace {

constexpr auto kFarthest = static_cast<std::uint64_t>(std::numeric_limits<off_t>::max());

}  // namespace

FileResult<std::size_t> ReadSome(const SystemFile& file, std::uint64_t offset,
                                 std::span<char> buffer) {
  if (offset > kFarthest) return std::size_t{0};  // no file is as long
  ssize_t got = -1;
  do {
    got = ::pread(DescriptorOf(file), buffer.data(), buffer.size(), static_cast<off_t>(offset));
  } while (got < 0 && errno == EINTR);
  if (got < 0) return LastFailure();
  return static_cast<std::size_t>(got);
}

FileFailure WriteAll(const SystemFile& file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(DescriptorOf(file), bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return LastFailure();
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return {};
}

FileFailure CutFile(const SystemFile& root, const std::string& path, std::uint64_t size) {
  if (size > kFarthest) return {};  // no file is longer
  const FileResult<SystemFile> file = OpenInside(root, path, O_WRONLY | O_NONBLOCK);
  if (!file) return file.Failure();
  return FailureUnlessZero(::ftruncate(DescriptorOf(*file), static_cast<off_t>(size)));
}

}  // namespace norvo
