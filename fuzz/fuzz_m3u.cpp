// Any bytes as a Winamp M3U playlist.
#include "FuzzedPlaylist.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  norvo::ReadFuzzedPlaylist(3, u"Mix.m3u", norvo::AsBytes(data, size));
  return 0;
}
