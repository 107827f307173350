#include "overlay/WrittenFile.h"

#include <new>

namespace norvo {
namespace {

constexpr std::size_t kShort = std::size_t{16} * 1024;  // bytes

}  // namespace

WrittenFile WrittenFile::Whole(std::string_view bytes, FileTime created, std::int64_t modified) {
  if (bytes.size() <= kShort) return {std::string(bytes), created, modified};
  WrittenFile file({}, created, modified);
  file.packed_ = PackedBytes(bytes);
  file.isPacked_ = true;
  file.lastPacked_ = bytes.size();
  return file;
}

void WrittenFile::Open() {
  if (users_ == 0 && isPacked_) bytes_ = packed_.Bytes();
  ++users_;
}

/// What was only read is still packed as it was. What grows line by line, as a log, is packed again
/// when it has doubled, so that it takes time in proportion.
void WrittenFile::Close() noexcept {
  if (--users_ > 0) return;
  if (!isPacked_ && bytes_.size() > kShort && bytes_.size() / 2 >= lastPacked_) {
    try {
      packed_ = PackedBytes(bytes_);
      isPacked_ = true;
      lastPacked_ = bytes_.size();
    } catch (const std::bad_alloc&) {
      // It stays as it is.
    }
  }
  if (isPacked_) std::string().swap(bytes_);  // an assignment would keep the room
}

void WrittenFile::Append(std::string_view bytes, std::int64_t now) {
  packed_ = {};
  isPacked_ = false;
  bytes_ += bytes;
  modified_ = now;
}

}  // namespace norvo
