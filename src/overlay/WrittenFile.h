#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "overlay/PackedBytes.h"
#include "services/FileSystem.h"

namespace norvo {

/// What a file holds that was written to an overlay. While nobody has it open it is packed, unless
/// it is short or has grown since.
class WrittenFile {
 public:
  WrittenFile(std::string bytes, FileTime created, std::int64_t modified)
      : bytes_(std::move(bytes)), created_(created), modified_(modified) {}

  /// A file that is written whole and closed, which is packed without another copy of its bytes.
  static WrittenFile Whole(std::string_view bytes, FileTime created, std::int64_t modified);

  /// Each time that it is opened and closed; of several the last one counts.
  void Open();
  void Close() noexcept;

  /// Only while it is open.
  std::string_view OpenedBytes() const { return bytes_; }
  void Append(std::string_view bytes, std::int64_t now);

  std::string Bytes() const { return isPacked_ && users_ == 0 ? packed_.Bytes() : bytes_; }
  std::size_t Size() const { return isPacked_ ? packed_.Size() : bytes_.size(); }
  FileTime Created() const { return created_; }
  std::int64_t Modified() const { return modified_; }

 private:
  std::string bytes_;   // but where it is packed and closed
  PackedBytes packed_;  // where it is packed
  bool isPacked_ = false;
  std::size_t lastPacked_ = 0;  // how long it was then
  std::size_t users_ = 0;
  FileTime created_;
  std::int64_t modified_;
};

}  // namespace norvo
