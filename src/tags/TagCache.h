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
class TagCache {
 public:
  std::optional<AudioTag> Find(const Fingerprint& path, const FileStamp& stamp) const;
  void Keep(const Fingerprint& path, const FileStamp& stamp, const AudioTag& tag);

  static constexpr std::size_t kMostTags = 32768;
  /// Tags with more text are not kept; ordinary ones have about a tenth of it.
  static constexpr std::size_t kLongestText = 1024;
  /// Bytes of all texts, also of those of tags that were replaced.
  static constexpr std::size_t kMostBytes = std::size_t{16} * 1024 * 1024;

 private:
  static constexpr std::size_t kBlock = 64 * 1024;  // a tag's texts stand in one block

  /// A tag that is kept shall take little room: a unit is one byte unless one of them needs two.
  struct Packed {
    FileStamp stamp;
    std::uint32_t start = 0;  // of its texts, in the blocks taken together
    std::array<std::uint16_t, AudioTag::kTextCount> lengths{};  // units
    std::int32_t duration = 0;
    std::int16_t track = 0;
    AudioTag::Kind kind = AudioTag::Kind::None;
    bool isWide = false;
  };

  const char* BytesOf(const Packed& packed) const {
    return blocks_[packed.start / kBlock].get() + packed.start % kBlock;
  }
  char* Take(std::size_t size, std::uint32_t& start);

  FingerprintIndex places_;  // of the paths' tags
  std::deque<Packed> tags_;
  std::vector<std::unique_ptr<char[]>> blocks_;
  std::size_t used_ = 0;  // bytes, counted over the blocks
};

}  // namespace norvo
