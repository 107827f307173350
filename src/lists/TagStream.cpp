#include "lists/TagStream.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "automation/RunTimeError.h"

namespace norvo {
namespace {

/// A file that is larger than the tag library can count is read as far as it can.
long Countable(std::uint64_t size) {
  return static_cast<long>(
      std::min<std::uint64_t>(size, static_cast<std::uint64_t>(std::numeric_limits<long>::max())));
}

/// `base + offset`, within `[0, size]`; the end for a place before the start.
long PlaceFrom(long base, long offset, long size) {
  if (offset < -base) return size;
  return offset > size - base ? size : base + offset;
}

}  // namespace

TagStream::TagStream(BinaryFile& file) : file_(file), size_(Countable(file.Size())) {}

TagLib::ByteVector TagStream::readBlock(unsigned long length) {
  const std::size_t allowed = Allowed(length);
  ++requests_;
  bytes_ += allowed;
  TagLib::ByteVector block(static_cast<unsigned>(allowed), '\0');
  if (allowed == 0 || !Fill({block.data(), allowed})) return {};
  at_ += static_cast<long>(allowed);
  if (allowed == 4) HideId3Chunk(block);
  asfCounts_.Mend({block.data(), allowed}, static_cast<std::uint64_t>(size_ - at_));
  return block;
}

std::size_t TagStream::Allowed(unsigned long length) const {
  if (failed_ || requests_ >= kMostRequests) return 0;
  const auto left = static_cast<std::size_t>(size_ - at_);
  return std::min({std::size_t{length}, left, kLongestBlock, kMostBytes - bytes_});
}

bool TagStream::Fill(std::span<char> bytes) {
  if (bytes.size() > kWindow) return Read(static_cast<std::uint64_t>(at_), bytes);
  // A request lies in two windows at most.
  long at = at_;
  while (!bytes.empty()) {
    const long offset = at % static_cast<long>(kWindow);
    if (!MoveWindow(at - offset)) return false;
    const std::size_t part = std::min(bytes.size(), kWindow - static_cast<std::size_t>(offset));
    std::memcpy(bytes.data(), window_.data() + offset, part);
    bytes = bytes.subspan(part);
    at += static_cast<long>(part);
  }
  return true;
}

bool TagStream::MoveWindow(long offset) {
  if (windowAt_ == offset) return true;
  const auto left = static_cast<std::size_t>(size_ - offset);
  windowAt_ = offset;
  return Read(static_cast<std::uint64_t>(offset),
              std::span(window_).first(std::min(kWindow, left)));
}

bool TagStream::Read(std::uint64_t offset, std::span<char> bytes) {
  try {
    // Fewer bytes are those of a file that was cut meanwhile.
    failed_ = file_.ReadAt(offset, bytes) < bytes.size();
  } catch (const RunTimeError&) {
    failed_ = true;
  }
  return !failed_;
}

void TagStream::HideId3Chunk(TagLib::ByteVector& name) {
  if (name != "ID3 " && name != "id3 ") return;
  if (!id3Chunk_) id3Chunk_ = at_;
  name = "JUNK";
}

void TagStream::seek(long offset, Position from) {
  const long base = from == Current ? at_ : from == End ? size_ : 0;
  at_ = PlaceFrom(base, offset, size_);
}

}  // namespace norvo
