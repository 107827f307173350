#pragma once

#include <cstdint>

#include "services/Component.h"
#include "text/Text.h"

namespace norvo {

class TagBytes;

/// Reads the descriptive tags of one audio file: the ID3v1 trailer and a simplified walk over the
/// ID3v2 frames. Texts are the tags' bytes in the 8-bit code page, whatever a frame says of its
/// encoding. The file is open only during `ReadFile`: one open, and for ordinary tags two reads.
class Mp3TagReader {
 public:
  explicit Mp3TagReader(Component& component) : component_(component) {}

  /// How much is read: everything, or only the ID3v2 frames of a file that has them, for a caller
  /// to whom they hide the ID3v1 trailer. The file's size is then not learnt either.
  enum class Extent { Whole, FramesHideTrailer };

  /// True when the file begins with an ID3v2 header or ends in an ID3v1 trailer. False after any
  /// error; the fields read until then keep their values.
  bool ReadFile(StringView fileName, Extent extent = Extent::Whole);

  bool HasTAG() const { return hasTag_; }
  bool HasID3() const { return hasId3_; }
  std::int32_t FileSize() const { return fileSize_; }
  const String& FileName() const { return fileName_; }

  // The ID3v1 trailer, its texts cut at the first NUL and trimmed.
  const String& SongName() const { return title_; }
  const String& Artist() const { return artist_; }
  const String& Album() const { return album_; }
  const String& Year() const { return year_; }
  const String& Comment() const { return comment_; }
  std::uint8_t Genre() const { return genre_; }
  String GenreString() const;

  // The ID3v2 frames, as they stand in the file, NULs included.
  const String& ID3SongName() const { return id3_.title; }
  const String& ID3Artist() const { return id3_.artist; }
  const String& ID3Album() const { return id3_.album; }
  const String& ID3Genre() const { return id3_.genre; }
  const String& ID3Year() const { return id3_.year; }
  const String& ID3SongLyrics() const { return id3_.lyrics; }
  const String& ID3RecordingStudio() const { return id3_.copyright; }
  const String& ID3WebAddress() const { return id3_.webAddress; }
  /// Whole seconds, a half to the even one; 0 when the frame holds no number.
  std::int32_t ID3Duration() const;
  /// 0 when the frame holds no number: "3/12" is none.
  std::int16_t ID3TrackNumber() const;
  /// "Digital", "Analog" or "Unknown".
  StringView ID3EncodingStyle() const;

 private:
  struct Frames {
    String media, title, track, artist, album, genre, length, year, webAddress, lyrics, copyright;
  };

  void Reset();
  void ReadTags(StringView path, Extent extent);
  void WalkFrames(TagBytes& file);
  void ReadTrailer(TagBytes& file);
  String* StoreFor(std::string_view id);

  Component& component_;
  Frames id3_;
  String title_, artist_, album_, year_, comment_;
  String fileName_;
  std::int32_t fileSize_ = 0;
  std::uint8_t genre_ = 0;
  bool hasId3_ = false;
  bool hasTag_ = false;
};

}  // namespace norvo
