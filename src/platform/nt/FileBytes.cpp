#include <algorithm>
#include <limits>

#include "platform/files/SystemCalls.h"
#include "platform/nt/Handle.h"
#include "platform/nt/InsideFolder.h"
#include "platform/nt/WindowsCode.h"

namespace norvo {
namespace {

constexpr auto kFarthest = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());

// One call counts its bytes in 32 bits.
constexpr std::size_t kMostAtOnce = std::size_t{1} << 30;

DWORD AtOnce(std::size_t bytes) {
  return static_cast<DWORD>(std::min(bytes, kMostAtOnce));
}

}  // namespace

FileResult<std::size_t> ReadSome(const SystemFile& file, std::uint64_t offset,
                                 std::span<char> buffer) {
  if (offset > kFarthest) return std::size_t{0};  // no file is as long
  OVERLAPPED place = {};
  place.Offset = static_cast<DWORD>(offset);
  place.OffsetHigh = static_cast<DWORD>(offset >> 32);
  DWORD got = 0;
  if (::ReadFile(HandleOf(file), buffer.data(), AtOnce(buffer.size()), &got, &place)) {
    return std::size_t{got};
  }
  if (::GetLastError() == ERROR_HANDLE_EOF) return std::size_t{0};
  return LastFailure();
}

FileFailure WriteAll(const SystemFile& file, std::string_view bytes) {
  while (!bytes.empty()) {
    DWORD written = 0;
    if (!::WriteFile(HandleOf(file), bytes.data(), AtOnce(bytes.size()), &written, nullptr)) {
      return LastFailure();
    }
    bytes.remove_prefix(written);
  }
  return {};
}

FileFailure CutFile(const SystemFile& root, const std::string& path, std::uint64_t size) {
  if (size > kFarthest) return {};  // no file is longer
  const FileResult<SystemFile> file =
      OpenInside(root, path, {FILE_WRITE_DATA, FILE_NON_DIRECTORY_FILE});
  if (!file) return file.Failure();
  FILE_END_OF_FILE_INFORMATION end = {};
  end.EndOfFile.QuadPart = static_cast<LONGLONG>(size);
  return FailureOfStatus(Set(HandleOf(*file), FileEndOfFileInformation, end));
}

}  // namespace norvo
