#include "lists/SongFrames.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace norvo {
namespace {

bool TellsOfSong(const TagLib::ByteVector& id) {
  constexpr std::array<std::string_view, 12> kIds{"TIT2", "TPE1", "TALB", "TCON", "TRCK", "TLEN",
                                                  "TT2",  "TP1",  "TAL",  "TCO",  "TRK",  "TLE"};
  return std::find(kIds.begin(), kIds.end(), std::string_view(id.data(), id.size())) != kIds.end();
}

}  // namespace

/// The header becomes that of a frame that nobody knows, without flags and as long as before.
void SongFrames::MakeUnknown(Frame::Header& header) {
  const unsigned size = header.frameSize();
  header.setData(TagLib::ByteVector("NONE\0\0\0\0\0\0", 10), header.version());
  header.setFrameSize(size);
}

bool SongFrames::updateFrame(Frame::Header* header) const {
  // Nothing else ends the walk over the frames.
  if (++frames_ > kMostFrames) header->setFrameSize(0);
  if (header->compression()) MakeUnknown(*header);
  return TellsOfSong(header->frameID()) && FrameFactory::updateFrame(header);
}

}  // namespace norvo
