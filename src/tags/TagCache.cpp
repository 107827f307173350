#include "tags/TagCache.h"

#include <cstring>

namespace norvo {
namespace {

constexpr std::size_t kBlock = 64 * 1024;  // bytes

constexpr StringView AudioTag::*kTexts[] = {&AudioTag::album, &AudioTag::artist, &AudioTag::genre,
                                            &AudioTag::song, &AudioTag::year};

bool IsWide(StringView text) {
  constexpr std::uint64_t kHigherBytes = InEachLane(static_cast<char16_t>(0xFF00));
  return AnyWord(text, u'\0', [](std::uint64_t word) { return word & kHigherBytes; });
}

}  // namespace

std::optional<AudioTag> TagCache::Find(const Fingerprint& path, const FileStamp& stamp) {
  const std::optional<std::uint32_t> place = places_.Find(path);
  if (!place || tags_[*place].stamp != stamp) return std::nullopt;
  const Packed& packed = tags_[*place];
  std::size_t units = 0;
  for (const std::uint16_t length : packed.lengths) units += length;
  if (packed.isWide) {
    std::memcpy(found_.data(), packed.texts, units * sizeof(char16_t));
  } else {
    for (std::size_t i = 0; i < units; ++i) {
      found_[i] = static_cast<unsigned char>(packed.texts[i]);
    }
  }
  AudioTag tag;
  const char16_t* at = found_.data();
  for (std::size_t i = 0; i < packed.lengths.size(); ++i) {
    tag.*kTexts[i] = {at, packed.lengths[i]};
    at += packed.lengths[i];
  }
  tag.kind = packed.kind;
  tag.duration = packed.duration;
  tag.track = packed.track;
  return tag;
}

/// Room for so many bytes, at most those of a block; null when all of it is taken.
char* TagCache::Take(std::size_t bytes) {
  if (bytes > left_ || blocks_.empty()) {
    if ((blocks_.size() + 1) * kBlock > kMostText) return nullptr;
    blocks_.push_back(std::make_unique_for_overwrite<char[]>(kBlock));
    left_ = kBlock;
  }
  char* const place = blocks_.back().get() + (kBlock - left_);
  left_ -= bytes;
  return place;
}

void TagCache::Keep(const Fingerprint& path, const FileStamp& stamp, const AudioTag& tag) {
  Packed packed;
  std::size_t units = 0;
  for (std::size_t i = 0; i < packed.lengths.size(); ++i) {
    const StringView text = tag.*kTexts[i];
    units += text.size();
    packed.lengths[i] = static_cast<std::uint16_t>(text.size());
    packed.isWide = packed.isWide || IsWide(text);
  }
  const std::optional<std::uint32_t> place = places_.Find(path);
  if (units > kLongestText || (!place && tags_.size() >= kMostTags)) return;
  char* at = Take(packed.isWide ? units * sizeof(char16_t) : units);
  if (at == nullptr) return;
  packed.texts = at;
  for (const auto each : kTexts) {
    const StringView text = tag.*each;
    if (packed.isWide) {
      if (!text.empty()) std::memcpy(at, text.data(), text.size() * sizeof(char16_t));
      at += text.size() * sizeof(char16_t);
    } else {
      for (const char16_t unit : text) *at++ = static_cast<char>(unit);
    }
  }
  packed.stamp = stamp;
  packed.duration = tag.duration;
  packed.track = tag.track;
  packed.kind = tag.kind;
  if (place) {
    tags_[*place] = packed;
  } else {
    tags_.push_back(packed);
    places_.Insert(path, static_cast<std::uint32_t>(tags_.size() - 1));
  }
}

}  // namespace norvo
