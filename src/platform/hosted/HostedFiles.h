#pragma once

#include <cstdint>
#include <optional>

#include "platform/files/SystemFile.h"
#include "platform/hosted/PathResolver.h"
#include "services/FileSystem.h"
#include "services/SharedFile.h"

namespace norvo {

/// A regular file open for reading.
class HostedBinaryFile final : public BinaryFile {
 public:
  /// `expectedEnd` is where an earlier look-up saw the file end: a reading that stops just there
  /// needs no further call. `size` is what the open file itself told, when it was asked.
  HostedBinaryFile(SystemFile file, std::uint64_t expectedEnd, std::optional<std::uint64_t> size,
                   StringView path)
      : file_(std::move(file)), expectedEnd_(expectedEnd), size_(size), path_(path) {}

  std::size_t ReadAt(std::uint64_t offset, std::span<char> buffer) override;
  std::uint64_t Size() override;

 private:
  SystemFile file_;
  std::uint64_t expectedEnd_;
  std::optional<std::uint64_t> size_;
  String path_;
};

/// A regular file open for appending.
class HostedAppendFile final : public AppendFile {
 public:
  HostedAppendFile(SystemFile file, StringView path) : file_(std::move(file)), path_(path) {}
  void Append(std::string_view bytes) override;

 private:
  SystemFile file_;
  String path_;
};

/// A regular file open for reading and appending, and locked.
class HostedSharedFile final : public SharedFile {
 public:
  /// `place` is where the file stands.
  HostedSharedFile(SystemFile file, DrivePath place, StringView path)
      : file_(std::move(file)), place_(std::move(place)), path_(path) {}
  ~HostedSharedFile() override;
  HostedSharedFile(const HostedSharedFile&) = delete;
  HostedSharedFile& operator=(const HostedSharedFile&) = delete;

  std::size_t ReadAt(std::uint64_t offset, std::span<char> buffer) override;
  std::uint64_t Size() override;
  void EndWith(std::uint64_t offset, std::string_view bytes) override;

 private:
  SystemFile file_;
  DrivePath place_;
  String path_;
};

}  // namespace norvo
