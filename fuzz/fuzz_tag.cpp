// Any bytes as an audio file with tags: what is read of it without its trailer is what is read of
// it with all.
#include "FuzzedPlaylist.h"
#include "tags/Mp3TagReader.h"

namespace {

using namespace norvo;

void CheckSameFrames(const Mp3TagReader& all, const Mp3TagReader& frames) {
  Require(all.HasID3() == frames.HasID3());
  if (!all.HasID3()) return;
  Require(all.ID3SongName() == frames.ID3SongName() && all.ID3Artist() == frames.ID3Artist());
  Require(all.ID3Album() == frames.ID3Album() && all.ID3Genre() == frames.ID3Genre());
  Require(all.ID3Year() == frames.ID3Year() && all.ID3Duration() == frames.ID3Duration());
  Require(all.ID3TrackNumber() == frames.ID3TrackNumber());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const auto machine = std::make_shared<MemoryPlatform>();
  static const auto component = OpenLibrary(machine);
  machine->AddFile(u"C:\\a.mp3", AsBytes(data, size));
  Mp3TagReader reader(*component);
  const bool found = reader.ReadFile(u"C:\\a.mp3");
  Require(!found || reader.HasID3() || reader.HasTAG());
  Require(!reader.GenreString().empty());
  for (const StringView text : {reader.SongName(), reader.Artist(), reader.Album()}) {
    Require(text.size() <= 30);
  }
  Mp3TagReader frames(*component);
  frames.ReadFile(u"C:\\a.mp3", Mp3TagReader::Extent::FramesHideTrailer);
  CheckSameFrames(reader, frames);
  machine->Log().Clear();
  return 0;
}
