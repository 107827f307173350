// Any bytes as a Windows Media Player playlist.
#include "FuzzedPlaylist.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  norvo::ReadFuzzedPlaylist(1, u"Mix.asx", norvo::AsBytes(data, size));
  return 0;
}
