#include "tags/TagCache.h"

#include <algorithm>
#include <cstring>

namespace norvo {
namespace {

bool IsNarrow(StringView text) {
  unsigned all = 0;
  for (const char16_t unit : text) all |= unit;
  return all < 0x100;
}

}  // namespace

std::optional<AudioTag> TagCache::Find(const Fingerprint& path, const FileStamp& stamp) const {
  const std::optional<std::uint32_t> place = places_.Find(path);
  if (!place || tags_[*place].stamp != stamp) return std::nullopt;
  const Packed& packed = tags_[*place];
  const char* bytes = BytesOf(packed);
  AudioTag tag;
  std::size_t units = 0;
  for (const std::uint16_t length : packed.lengths) units += length;
  tag.texts.Reserve(units);
  std::array<char16_t, kLongestText> text;
  for (std::size_t i = 0; i < packed.lengths.size(); ++i) {
    const std::size_t length = packed.lengths[i];
    if (packed.isWide) {
      std::memcpy(text.data(), bytes, length * 2);
    } else {
      std::transform(bytes, bytes + length, text.data(),
                     [](char byte) { return static_cast<unsigned char>(byte); });
    }
    tag.texts.Set(i, {text.data(), length});
    bytes += packed.isWide ? length * 2 : length;
  }
  tag.kind = packed.kind;
  tag.duration = packed.duration;
  tag.track = packed.track;
  return tag;
}

/// Room for so many bytes.
char* TagCache::Take(std::size_t size, std::uint32_t& start) {
  if (used_ % kBlock + size > kBlock) used_ += kBlock - used_ % kBlock;
  if (used_ / kBlock == blocks_.size()) blocks_.push_back(std::make_unique<char[]>(kBlock));
  start = static_cast<std::uint32_t>(used_);
  used_ += size;
  return blocks_[start / kBlock].get() + start % kBlock;
}

void TagCache::Keep(const Fingerprint& path, const FileStamp& stamp, const AudioTag& tag) {
  std::size_t length = 0;
  Packed packed;
  for (std::size_t i = 0; i < packed.lengths.size(); ++i) {
    const StringView text = tag.texts.At(i);
    length += text.size();
    packed.lengths[i] = static_cast<std::uint16_t>(text.size());
    packed.isWide = packed.isWide || !IsNarrow(text);
  }
  const std::size_t size = packed.isWide ? length * 2 : length;
  const std::optional<std::uint32_t> place = places_.Find(path);
  const bool isFull = !place && tags_.size() >= kMostTags;
  if (length > kLongestText || isFull || used_ + size + kBlock > kMostBytes) return;
  packed.stamp = stamp;
  packed.duration = tag.duration;
  packed.track = tag.track;
  packed.kind = tag.kind;
  char* bytes = Take(size, packed.start);
  for (std::size_t i = 0; i < packed.lengths.size(); ++i) {
    const StringView text = tag.texts.At(i);
    if (packed.isWide) {
      std::memcpy(bytes, text.data(), text.size() * 2);
      bytes += text.size() * 2;
    } else {
      bytes = std::transform(text.begin(), text.end(), bytes,
                             [](char16_t unit) { return static_cast<char>(unit); });
    }
  }
  if (place) {
    tags_[*place] = packed;
  } else {
    tags_.push_back(packed);
    places_.Insert(path, static_cast<std::uint32_t>(tags_.size() - 1));
  }
}

}  // namespace norvo
