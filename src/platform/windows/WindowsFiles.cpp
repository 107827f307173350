#include "platform/windows/WindowsFiles.h"

#include <algorithm>
#include <limits>

#include "automation/RunTimeError.h"
#include "platform/windows/WindowsError.h"

namespace norvo {
namespace {

/// As much as one call is given.
DWORD PieceOf(std::size_t left) {
  constexpr std::size_t kMost = std::size_t{1} << 30;
  return static_cast<DWORD>(std::min(left, kMost));
}

/// The bytes got, 0 at the end of the file. False, with the reason in `GetLastError`, when the disk
/// fails.
bool ReadPiece(const FileHandle& file, std::uint64_t offset, std::span<char> buffer, DWORD& got) {
  OVERLAPPED place = {};
  place.Offset = static_cast<DWORD>(offset & 0xFFFFFFFF);
  place.OffsetHigh = static_cast<DWORD>(offset >> 32);
  got = 0;
  return ::ReadFile(file.Get(), buffer.data(), PieceOf(buffer.size()), &got, &place) != FALSE ||
         ::GetLastError() == ERROR_HANDLE_EOF;
}

}  // namespace

std::size_t WindowsBinaryFile::ReadAt(std::uint64_t offset, std::span<char> buffer) {
  constexpr auto kFarthest = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
  std::size_t done = 0;
  while (done < buffer.size() && offset <= kFarthest - done) {
    DWORD got = 0;
    if (!ReadPiece(file_, offset + done, buffer.subspan(done), got)) {
      throw RunTimeError(error::kDeviceInputOutput,
                         String(DescriptionOf(error::kDeviceInputOutput)) + u": " + path_);
    }
    if (got == 0) break;
    done += got;
  }
  return done;
}

std::uint64_t WindowsBinaryFile::Size() {
  LARGE_INTEGER size = {};
  if (!::GetFileSizeEx(file_.Get(), &size)) {
    RaiseWindowsError(::GetLastError(), Subject::File, path_);
  }
  return static_cast<std::uint64_t>(size.QuadPart);
}

void WindowsAppendFile::Append(std::string_view bytes) {
  if (!WriteAll(file_, bytes)) RaiseWindowsError(::GetLastError(), Subject::File, path_);
}

bool WriteAll(const FileHandle& file, std::string_view bytes) {
  while (!bytes.empty()) {
    DWORD written = 0;
    if (!::WriteFile(file.Get(), bytes.data(), PieceOf(bytes.size()), &written, nullptr)) {
      return false;
    }
    bytes.remove_prefix(written);
  }
  return true;
}

}  // namespace norvo
