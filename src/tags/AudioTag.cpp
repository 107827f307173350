#include "tags/AudioTag.h"

#include "tags/Mp3TagReader.h"
#include "tags/TagCache.h"

namespace norvo {
namespace {

/// What a component keeps of the tags that it read.
struct TagReading {
  TagCache cache;
  std::optional<Mp3TagReader> reader;  // its memory serves for all files
  String genre;                        // of the last ID3v1 tag
};

/// What the reader has; `whole` tells whether nothing failed on the way.
AudioTag ReadFromFile(TagReading& reading, StringView path, bool& whole) {
  Mp3TagReader& reader = *reading.reader;
  whole = reader.ReadFile(path, Mp3TagReader::Extent::FramesHideTrailer);
  AudioTag tag;
  if (reader.HasID3()) {
    tag.kind = AudioTag::Kind::Id3v2;
    tag.album = reader.ID3Album();
    tag.artist = reader.ID3Artist();
    tag.genre = reader.ID3Genre();
    tag.song = reader.ID3SongName();
    tag.year = reader.ID3Year();
    tag.duration = reader.ID3Duration();
    tag.track = reader.ID3TrackNumber();
  } else if (reader.HasTAG()) {
    tag.kind = AudioTag::Kind::Id3v1;
    tag.album = reader.Album();
    tag.artist = reader.Artist();
    tag.genre = reading.genre = reader.GenreString();
    tag.song = reader.SongName();
  }
  return tag;
}

}  // namespace

AudioTag ReadAudioTag(Component& component, StringView path,
                      const std::optional<FileStamp>& stamp) {
  TagReading& reading = component.Own<TagReading>();
  const Fingerprint print = stamp ? FingerprintOf(path) : Fingerprint();
  if (stamp) {
    if (const std::optional<AudioTag> tag = reading.cache.Find(print, *stamp)) return *tag;
  }
  if (!reading.reader) reading.reader.emplace(component);
  bool whole = false;
  const AudioTag tag = ReadFromFile(reading, path, whole);
  // A read that failed may do better the next time.
  if (stamp && whole) reading.cache.Keep(print, *stamp, tag);
  return tag;
}

}  // namespace norvo
