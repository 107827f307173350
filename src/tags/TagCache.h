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
  /// The tag's texts hold until the next call.
  std::optional<AudioTag> Find(const Fingerprint& path, const FileStamp& stamp);
  void Keep(const Fingerprint& path, const FileStamp& stamp, const AudioTag& tag);

  static constexpr std::size_t kMostTags = 32768;
  /// Tags with more text are not kept; ordinary ones have about a tenth of it.
  static constexpr std::size_t kLongestText = 1024;
  /// Bytes of all texts, also of those of tags that were replaced.
  static constexpr std::size_t kMostText = std::size_t{16} * 1024 * 1024;

 private:
  /// A tag that is kept shall take little room: a unit of its texts is one byte, unless one of them
  /// needs two.
  struct Packed {
    FileStamp stamp;
    const char* texts = nullptr;
    std::array<std::uint16_t, 5> lengths{};
    std::int16_t track = 0;
    std::int32_t duration = 0;
    AudioTag::Kind kind = AudioTag::Kind::None;
    bool isWide = false;
  };

  char* Take(std::size_t bytes);

  FingerprintIndex places_;  // of the paths' tags
  std::deque<Packed> tags_;
  std::vector<std::unique_ptr<char[]>> blocks_;  // each holds the texts of many tags
  std::size_t left_ = 0;                         // bytes of the last block
  std::array<char16_t, kLongestText> found_;     // the texts of the tag that was found last
};

}  // namespace norvo
