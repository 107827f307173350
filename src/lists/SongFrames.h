#pragma once

#include <taglib/id3v2framefactory.h>

namespace norvo {

/// Has the frames of an ID3v2 tag read that tell a song's names, track and length. All others are
/// passed over unread: chapters in chapters would fill the stack. So are compressed ones, of which
/// a few bytes can fill the memory.
class SongFrames final : public TagLib::ID3v2::FrameFactory {
 private:
  // A frame shows its header only to those that derive from it.
  struct Frame : TagLib::ID3v2::Frame {
    using Header = TagLib::ID3v2::Frame::Header;
  };

  static void MakeUnknown(Frame::Header& header);
  bool updateFrame(Frame::Header* header) const override;

  // Ordinary tags have some dozens; after so many a tag is taken to end.
  static constexpr int kMostFrames = 4096;

  mutable int frames_ = 0;
};

}  // namespace norvo
