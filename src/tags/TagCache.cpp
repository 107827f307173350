#include "tags/TagCache.h"

namespace norvo {
namespace {

constexpr String AudioTag::*kTexts[] = {&AudioTag::album, &AudioTag::artist, &AudioTag::genre,
                                        &AudioTag::song, &AudioTag::year};
constexpr std::size_t kTextCount = std::size(kTexts);

}  // namespace

std::optional<AudioTag> TagCache::Find(StringView path, const FileStamp& stamp) const {
  const std::optional<std::uint32_t> place = places_.Find(FingerprintOf(path));
  if (!place || tags_[*place].stamp != stamp) return std::nullopt;
  const Packed& packed = tags_[*place];
  AudioTag tag;
  StringView rest = packed.texts;
  for (std::size_t i = 0; i < kTextCount; ++i) {
    const StringView text = i < packed.lengths.size() ? rest.substr(0, packed.lengths[i]) : rest;
    tag.*kTexts[i] = text;
    rest.remove_prefix(text.size());
  }
  tag.kind = packed.kind;
  tag.duration = packed.duration;
  tag.track = packed.track;
  return tag;
}

TagCache::Packed TagCache::Pack(const FileStamp& stamp, const AudioTag& tag, std::size_t length) {
  Packed packed;
  packed.stamp = stamp;
  packed.texts.reserve(length);
  for (std::size_t i = 0; i < kTextCount; ++i) {
    const String& text = tag.*kTexts[i];
    packed.texts += text;
    if (i < packed.lengths.size()) packed.lengths[i] = static_cast<std::uint16_t>(text.size());
  }
  packed.kind = tag.kind;
  packed.duration = tag.duration;
  packed.track = tag.track;
  return packed;
}

void TagCache::Keep(StringView path, const FileStamp& stamp, const AudioTag& tag) {
  std::size_t length = 0;
  for (const auto text : kTexts) length += (tag.*text).size();
  if (length > kLongestText) return;
  const Fingerprint print = FingerprintOf(path);
  if (const std::optional<std::uint32_t> place = places_.Find(print)) {
    tags_[*place] = Pack(stamp, tag, length);
  } else if (tags_.size() < kMostTags) {
    tags_.push_back(Pack(stamp, tag, length));
    places_.Insert(print, static_cast<std::uint32_t>(tags_.size() - 1));
  }
}

}  // namespace norvo
