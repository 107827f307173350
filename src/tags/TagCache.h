#pragma once

#include <array>
#include <deque>
#include <memory>
#include <optional>
#include <vector>

#include "tags/AudioTag.h"
#include "text/FingerprintIndex.h"

namespace norvo {

/// Tags that were read, by the fingerprint of the file's path and the file's stamp. It holds so
/// many tags, and so much of their texts, and no more; those that come later are read each time.
/// The texts of a tag that it gives hold as long as the cache.
class TagCache {
 public:
  std::optional<AudioTag> Find(const Fingerprint& path, const FileStamp& stamp) const;
  void Keep(const Fingerprint& path, const FileStamp& stamp, const AudioTag& tag);

  static constexpr std::size_t kMostTags = 32768;
  /// Tags with more text are not kept; ordinary ones have about a tenth of it.
  static constexpr std::size_t kLongestText = 1024;
  /// Units of all texts, also of those of tags that were replaced.
  static constexpr std::size_t kMostText = std::size_t{8} * 1024 * 1024;

 private:
  /// A tag that is kept shall take little room.
  struct Packed {
    FileStamp stamp;
    const char16_t* texts = nullptr;
    std::array<std::uint16_t, 5> lengths{};
    std::int16_t track = 0;
    std::int32_t duration = 0;
    AudioTag::Kind kind = AudioTag::Kind::None;
  };

  char16_t* Take(std::size_t units);

  FingerprintIndex places_;  // of the paths' tags
  std::deque<Packed> tags_;
  std::vector<std::unique_ptr<char16_t[]>> blocks_;  // each holds the texts of many tags
  std::size_t left_ = 0;                             // units of the last block
};

}  // namespace norvo
