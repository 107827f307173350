// Any bytes as an audio file with tags.
#include "FuzzedPlaylist.h"
#include "tags/Mp3TagReader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto platform = std::make_shared<norvo::MemoryPlatform>();
  platform->AddFile(u"C:\\a.mp3", norvo::AsBytes(data, size));
  const auto component = norvo::OpenLibrary(platform);
  norvo::Mp3TagReader reader(*component);
  const bool found = reader.ReadFile(u"C:\\a.mp3");
  if (found && !reader.HasID3() && !reader.HasTAG()) std::abort();
  if (reader.GenreString().empty()) std::abort();
  reader.ID3Duration();
  reader.ID3TrackNumber();
  return 0;
}
