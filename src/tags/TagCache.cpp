#include "tags/TagCache.h"

namespace norvo {
namespace {

constexpr std::size_t kBlock = 32 * 1024;  // units

constexpr StringView AudioTag::*kTexts[] = {&AudioTag::album, &AudioTag::artist, &AudioTag::genre,
                                            &AudioTag::song, &AudioTag::year};

}  // namespace

std::optional<AudioTag> TagCache::Find(const Fingerprint& path, const FileStamp& stamp) const {
  const std::optional<std::uint32_t> place = places_.Find(path);
  if (!place || tags_[*place].stamp != stamp) return std::nullopt;
  const Packed& packed = tags_[*place];
  AudioTag tag;
  const char16_t* at = packed.texts;
  for (std::size_t i = 0; i < packed.lengths.size(); ++i) {
    tag.*kTexts[i] = {at, packed.lengths[i]};
    at += packed.lengths[i];
  }
  tag.kind = packed.kind;
  tag.duration = packed.duration;
  tag.track = packed.track;
  return tag;
}

/// Room for so many units, at most those of a block; null when all of it is taken.
char16_t* TagCache::Take(std::size_t units) {
  if (units > left_) {
    if ((blocks_.size() + 1) * kBlock > kMostText) return nullptr;
    blocks_.push_back(std::make_unique_for_overwrite<char16_t[]>(kBlock));
    left_ = kBlock;
  }
  char16_t* const place = blocks_.back().get() + (kBlock - left_);
  left_ -= units;
  return place;
}

void TagCache::Keep(const Fingerprint& path, const FileStamp& stamp, const AudioTag& tag) {
  std::size_t units = 0;
  for (const auto text : kTexts) units += (tag.*text).size();
  const std::optional<std::uint32_t> place = places_.Find(path);
  if (units > kLongestText || (!place && tags_.size() >= kMostTags)) return;
  char16_t* at = units == 0 ? nullptr : Take(units);
  if (at == nullptr && units > 0) return;
  Packed packed;
  packed.stamp = stamp;
  packed.texts = at;
  for (std::size_t i = 0; i < packed.lengths.size(); ++i) {
    const StringView text = tag.*kTexts[i];
    packed.lengths[i] = static_cast<std::uint16_t>(text.size());
    at += text.copy(at, text.size());
  }
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
