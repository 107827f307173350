#pragma once

#include <taglib/id3v2tag.h>
#include <taglib/tfile.h>

#include <memory>
#include <span>

#include "lists/SongFrames.h"
#include "lists/TagStream.h"

namespace norvo {

/// A sound file as the tag library opens it: as the kind that its name says where that finds
/// anything, else as the kind that its content is.
class SongFile {
 public:
  /// The file must outlive this. `name` is read for its extension alone. Without `readsSound` an
  /// MPEG file whose tag tells anything has no audio properties: most of the work with it is to
  /// find its last frame.
  SongFile(BinaryFile& file, StringView name, bool readsSound = true);

  /// Null when it is no sound file that can be understood.
  TagLib::File* File() const { return file_.get(); }
  /// The ID3v2 tag of a WAV or AIFF file, of which `File()` knows nothing; null for every other.
  TagLib::ID3v2::Tag* ChunkTag() const { return chunkTag_.get(); }

 private:
  struct Kind;
  static std::span<const Kind> Kinds();

  void OpenByName(StringView name);
  void OpenByContent();
  bool LooksLike(const Kind& kind);
  bool Open(const Kind& kind);
  bool TellsAnything() const;
  template <class OpenedFile>
  void OpenPlain();
  template <class OpenedFile>
  void OpenWithFrames();
  void OpenMpeg();
  template <class OpenedFile>
  void OpenChunks();

  BinaryFile& bytes_;
  bool readsSound_;
  SongFrames frames_;
  std::unique_ptr<TagStream> stream_;
  std::unique_ptr<TagLib::File> file_;
  std::unique_ptr<TagLib::ID3v2::Tag> chunkTag_;
};

}  // namespace norvo
