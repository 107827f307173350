#include "platform/hosted/HostedFiles.h"

#include <sys/types.h>
#include <unistd.h>

#include <cerrno>
#include <limits>

#include "automation/RunTimeError.h"

namespace norvo {
namespace {

constexpr auto kFarthest = static_cast<std::uint64_t>(std::numeric_limits<off_t>::max());

}  // namespace

std::size_t HostedBinaryFile::ReadAt(std::uint64_t offset, std::span<char> buffer) {
  std::size_t done = 0;
  while (done < buffer.size() && offset <= kFarthest - done) {
    const ssize_t got = ::pread(file_.Get(), buffer.data() + done, buffer.size() - done,
                                static_cast<off_t>(offset + done));
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) {
      throw RunTimeError(error::kDeviceInputOutput,
                         String(DescriptionOf(error::kDeviceInputOutput)) + u": " + path_);
    }
    if (got == 0) break;
    done += static_cast<std::size_t>(got);
    // The known end is reached: a further call would only say so.
    if (offset + done == expectedEnd_) break;
  }
  return done;
}

std::uint64_t HostedBinaryFile::Size() {
  if (!size_) {
    const std::optional<HostFacts> facts = LookUp(file_);
    if (!facts) RaiseHostCallError(errno, Subject::File, path_);
    size_ = facts->size;
  }
  return *size_;
}

void HostedAppendFile::Append(std::string_view bytes) {
  if (!WriteAll(file_, bytes)) RaiseHostCallError(errno, Subject::File, path_);
}

}  // namespace norvo
