#include "tags/AudioTag.h"

#include <initializer_list>
#include <utility>

#include "tags/Mp3TagReader.h"
#include "tags/TagCache.h"

namespace norvo {
namespace {

/// What a component keeps of the tags that it read.
struct TagReading {
  TagCache cache;
  std::optional<Mp3TagReader> reader;  // its memory serves for all files
};

void SetTexts(AudioTag& tag, std::initializer_list<StringView> texts) {
  std::size_t units = 0;
  for (const StringView text : texts) units += text.size();
  tag.texts.Reserve(units);
  std::size_t place = 0;
  for (const StringView text : texts) tag.texts.Set(place++, text);
}

/// What the reader has; `whole` tells whether nothing failed on the way.
AudioTag ReadFromFile(Mp3TagReader& reader, StringView path, bool& whole) {
  whole = reader.ReadFile(path, Mp3TagReader::Extent::FramesHideTrailer);
  AudioTag tag;
  if (reader.HasID3()) {
    tag.kind = AudioTag::Kind::Id3v2;
    SetTexts(tag, {reader.ID3Album(), reader.ID3Artist(), reader.ID3Genre(), reader.ID3SongName(),
                   reader.ID3Year()});
    tag.duration = reader.ID3Duration();
    tag.track = reader.ID3TrackNumber();
  } else if (reader.HasTAG()) {
    tag.kind = AudioTag::Kind::Id3v1;
    const String genre = reader.GenreString();
    SetTexts(tag, {reader.Album(), reader.Artist(), genre, reader.SongName(), {}});
  }
  return tag;
}

}  // namespace

AudioTag ReadAudioTag(Component& component, StringView path,
                      const std::optional<FileStamp>& stamp) {
  TagReading& reading = component.Own<TagReading>();
  const Fingerprint print = stamp ? FingerprintOf(path) : Fingerprint();
  if (stamp) {
    if (std::optional<AudioTag> tag = reading.cache.Find(print, *stamp)) return std::move(*tag);
  }
  if (!reading.reader) reading.reader.emplace(component);
  bool whole = false;
  AudioTag tag = ReadFromFile(*reading.reader, path, whole);
  // A read that failed may do better the next time.
  if (stamp && whole) reading.cache.Keep(print, *stamp, tag);
  return tag;
}

}  // namespace norvo
