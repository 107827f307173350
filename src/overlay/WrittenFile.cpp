#include "overlay/WrittenFile.h"

#include <new>

namespace norvo {
namespace {

constexpr std::size_t kShort = std::size_t{16} * 1024;  // bytes

}  // namespace

void WrittenFile::Open() {
  if (users_++ == 0 && isPacked_) bytes_ = packed_.Bytes();
}

/// What was only read is still packed as it was.
void WrittenFile::Close() noexcept {
  if (--users_ > 0) return;
  if (!isPacked_ && bytes_.size() > kShort) {
    try {
      packed_ = PackedBytes(bytes_);
      isPacked_ = true;
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
