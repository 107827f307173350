#pragma once

#include <array>
#include <optional>
#include <vector>

#include "tags/AudioTag.h"
#include "text/FingerprintIndex.h"

namespace norvo {

/// Tags that were read, by the file's path and stamp. It holds so many tags and no more; those
/// that come later are read each time.
class TagCache {
 public:
  std::optional<AudioTag> Find(StringView path, const FileStamp& stamp) const;
  void Keep(StringView path, const FileStamp& stamp, const AudioTag& tag);

  static constexpr std::size_t kMostTags = 32768;
  /// Tags with more text are not kept; ordinary ones have about a tenth of it.
  static constexpr std::size_t kLongestText = 1024;

 private:
  /// All texts in one, since a tag that is kept shall take little room.
  struct Packed {
    FileStamp stamp;
    String texts;
    std::array<std::uint16_t, 4> lengths{};  // of all texts but the last
    std::int32_t duration = 0;
    std::int16_t track = 0;
    AudioTag::Kind kind = AudioTag::Kind::None;
  };

  static Packed Pack(const FileStamp& stamp, const AudioTag& tag, std::size_t length);

  FingerprintIndex places_;  // of the paths' tags
  std::vector<Packed> tags_;
};

}  // namespace norvo
