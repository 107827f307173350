#pragma once

#include "platform/windows/UniqueHandle.h"
#include "services/FileSystem.h"
#include "services/SharedFile.h"

namespace norvo {

/// A file opened with `GENERIC_READ`.
class WindowsBinaryFile final : public BinaryFile {
 public:
  WindowsBinaryFile(FileHandle file, StringView path) : file_(std::move(file)), path_(path) {}
  std::size_t ReadAt(std::uint64_t offset, std::span<char> buffer) override;
  std::uint64_t Size() override;

 private:
  FileHandle file_;
  String path_;
};

/// A file opened with `FILE_APPEND_DATA` alone: the system itself puts each write at the end.
class WindowsAppendFile final : public AppendFile {
 public:
  WindowsAppendFile(FileHandle file, StringView path) : file_(std::move(file)), path_(path) {}
  void Append(std::string_view bytes) override;

 private:
  FileHandle file_;
  String path_;
};

/// A file opened with `GENERIC_READ` and `FILE_APPEND_DATA`, and locked.
class WindowsSharedFile final : public SharedFile {
 public:
  /// `LockFileEx`, which waits.
  WindowsSharedFile(FileHandle file, StringView path);
  std::size_t ReadAt(std::uint64_t offset, std::span<char> buffer) override;
  std::uint64_t Size() override;
  /// To be cut, with `SetEndOfFile`, the file is opened once more, since what may write anywhere
  /// does not write at the end.
  void EndWith(std::uint64_t offset, std::string_view bytes) override;

 private:
  FileHandle file_;
  String path_;
};

/// Writes all bytes at the file's own place, in one call unless they are more than one can take.
/// False, with the reason in `GetLastError`, when that fails.
bool WriteAll(const FileHandle& file, std::string_view bytes);

}  // namespace norvo
