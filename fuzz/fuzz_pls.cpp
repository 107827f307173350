// Any bytes as a PLS playlist.
#include "FuzzedPlaylist.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  norvo::ReadFuzzedPlaylist(4, u"Mix.pls", norvo::AsBytes(data, size));
  return 0;
}
