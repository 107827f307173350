#include "platform/windows/WindowsFiles.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <utility>

#include "automation/RunTimeError.h"
#include "platform/win32/QuietDrives.h"
#include "platform/windows/SystemPath.h"
#include "platform/windows/WideText.h"
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

/// Reads until the buffer is full or the file has ended.
std::size_t ReadFull(const FileHandle& file, std::uint64_t offset, std::span<char> buffer,
                     const String& path) {
  constexpr auto kFarthest = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
  std::size_t done = 0;
  while (done < buffer.size() && offset <= kFarthest - done) {
    DWORD got = 0;
    if (!ReadPiece(file, offset + done, buffer.subspan(done), got)) {
      throw RunTimeError(error::kDeviceInputOutput,
                         String(DescriptionOf(error::kDeviceInputOutput)) + u": " + path);
    }
    if (got == 0) break;
    done += got;
  }
  return done;
}

std::uint64_t SizeOf(const FileHandle& file, const String& path) {
  LARGE_INTEGER size = {};
  if (!::GetFileSizeEx(file.Get(), &size)) {
    RaiseWindowsError(::GetLastError(), Subject::File, path);
  }
  return static_cast<std::uint64_t>(size.QuadPart);
}

/// False, with the reason in `GetLastError`, when the file cannot be cut.
bool Cut(const String& systemPath, std::uint64_t size) {
  const QuietDrives quiet;
  const FileHandle file(::CreateFileW(ToWide(systemPath), GENERIC_WRITE,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                      FILE_ATTRIBUTE_NORMAL, nullptr));
  LARGE_INTEGER end = {};
  end.QuadPart = static_cast<LONGLONG>(size);
  return file.IsOpen() && ::SetFilePointerEx(file.Get(), end, nullptr, FILE_BEGIN) &&
         ::SetEndOfFile(file.Get());
}

}  // namespace

std::size_t WindowsBinaryFile::ReadAt(std::uint64_t offset, std::span<char> buffer) {
  return ReadFull(file_, offset, buffer, path_);
}

std::uint64_t WindowsBinaryFile::Size() {
  return SizeOf(file_, path_);
}

void WindowsAppendFile::Append(std::string_view bytes) {
  if (!WriteAll(file_, bytes)) RaiseWindowsError(::GetLastError(), Subject::File, path_);
}

WindowsSharedFile::WindowsSharedFile(FileHandle file, StringView path)
    : file_(std::move(file)), path_(path) {
  // The byte that is locked is far beyond what anybody reads, since nobody can read a locked one.
  OVERLAPPED place = {};
  place.OffsetHigh = 0x40000000;
  ::LockFileEx(file_.Get(), LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &place);
}

std::size_t WindowsSharedFile::ReadAt(std::uint64_t offset, std::span<char> buffer) {
  return ReadFull(file_, offset, buffer, path_);
}

std::uint64_t WindowsSharedFile::Size() {
  return SizeOf(file_, path_);
}

void WindowsSharedFile::EndWith(std::uint64_t offset, std::string_view bytes) {
  const std::optional<String> systemPath = ToSystemPath(path_);
  const bool isWritten =
      (offset >= Size() || (systemPath && Cut(*systemPath, offset))) && WriteAll(file_, bytes);
  if (!isWritten) RaiseWindowsError(::GetLastError(), Subject::File, path_);
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
