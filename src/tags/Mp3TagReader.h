#pragma once

#include <array>
#include <cstdint>

#include "services/Component.h"
#include "text/Text.h"

namespace norvo {

class TagBytes;

/// Reads the descriptive tags of one audio file: the ID3v1 trailer and a simplified walk over the
/// ID3v2 frames. Texts are the tags' bytes in the 8-bit code page, whatever a frame says of its
/// encoding; they hold until the next `ReadFile`. The file is open only during that call: one open,
/// and for ordinary tags two reads.
class Mp3TagReader {
 public:
  explicit Mp3TagReader(Component& component) : component_(component) {}

  /// How much is read: everything, or only the ID3v2 frames of a file that has them, for a caller
  /// to whom they hide the ID3v1 trailer. The file's name and size are then not learnt either.
  enum class Extent { Whole, FramesHideTrailer };

  /// True when the file begins with an ID3v2 header or ends in an ID3v1 trailer. False after any
  /// error; the fields read until then keep their values.
  bool ReadFile(StringView fileName, Extent extent = Extent::Whole);

  bool HasTAG() const { return hasTag_; }
  bool HasID3() const { return hasId3_; }
  std::int32_t FileSize() const { return fileSize_; }
  StringView FileName() const { return fileName_; }

  // The ID3v1 trailer, its texts cut at the first NUL and trimmed.
  StringView SongName() const { return TextOf(kTitle); }
  StringView Artist() const { return TextOf(kArtist); }
  StringView Album() const { return TextOf(kAlbum); }
  StringView Year() const { return TextOf(kYear); }
  StringView Comment() const { return TextOf(kComment); }
  std::uint8_t Genre() const { return genre_; }
  String GenreString() const;

  // The ID3v2 frames, as they stand in the file, NULs included.
  StringView ID3SongName() const { return TextOf(kId3Title); }
  StringView ID3Artist() const { return TextOf(kId3Artist); }
  StringView ID3Album() const { return TextOf(kId3Album); }
  StringView ID3Genre() const { return TextOf(kId3Genre); }
  StringView ID3Year() const { return TextOf(kId3Year); }
  StringView ID3SongLyrics() const { return TextOf(kId3Lyrics); }
  StringView ID3RecordingStudio() const { return TextOf(kId3Copyright); }
  StringView ID3WebAddress() const { return TextOf(kId3WebAddress); }
  /// Whole seconds, a half to the even one; 0 when the frame holds no number.
  std::int32_t ID3Duration() const;
  /// 0 when the frame holds no number: "3/12" is none.
  std::int16_t ID3TrackNumber() const;
  /// "Digital", "Analog" or "Unknown".
  StringView ID3EncodingStyle() const;

 private:
  enum Text : std::uint8_t {
    kTitle,
    kArtist,
    kAlbum,
    kYear,
    kComment,
    kId3Media,
    kId3Title,
    kId3Track,
    kId3Artist,
    kId3Album,
    kId3Genre,
    kId3Length,
    kId3Year,
    kId3WebAddress,
    kId3Lyrics,
    kId3Copyright,
    kTextCount
  };
  struct Place {
    std::size_t start = 0;
    std::size_t length = 0;
  };
  struct FrameRow;

  static const FrameRow* FindFrame(std::uint32_t id);
  StringView TextOf(Text text) const {
    return StringView(units_).substr(places_[text].start, places_[text].length);
  }
  void Store(Text text, std::string_view bytes);
  void ForgetReplaced();
  void Reset();
  void ReadTags(StringView path, Extent extent);
  void WalkFrames(TagBytes& file);
  void ReadTrailer(TagBytes& file);

  Component& component_;
  // All texts in one piece of memory, which serves for the next file, too.
  String units_;
  std::array<Place, kTextCount> places_{};
  String fileName_;
  std::int32_t fileSize_ = 0;
  std::uint8_t genre_ = 0;
  bool hasId3_ = false;
  bool hasTag_ = false;
};

}  // namespace norvo
