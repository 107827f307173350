#include "tags/AudioTag.h"

#include "tags/Mp3TagReader.h"
#include "tags/TagCache.h"

namespace norvo {
namespace {

/// What the reader has; `whole` tells whether nothing failed on the way.
AudioTag ReadFromFile(Component& component, StringView path, bool& whole) {
  Mp3TagReader reader(component);
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
    tag.genre = reader.GenreString();
    tag.song = reader.SongName();
  }
  return tag;
}

}  // namespace

AudioTag ReadAudioTag(Component& component, StringView path,
                      const std::optional<FileStamp>& stamp) {
  TagCache& cache = component.Own<TagCache>();
  if (stamp) {
    if (std::optional<AudioTag> tag = cache.Find(path, *stamp)) return std::move(*tag);
  }
  bool whole = false;
  AudioTag tag = ReadFromFile(component, path, whole);
  // A read that failed may do better the next time.
  if (stamp && whole) cache.Keep(path, *stamp, tag);
  return tag;
}

}  // namespace norvo
