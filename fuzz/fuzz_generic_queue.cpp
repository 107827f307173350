// Any bytes as the list file: the queue consumes it, or leaves it, and never raises.
#include "FuzzedPlaylist.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto platform = std::make_shared<norvo::MemoryPlatform>();
  platform->ConfigureProduct();
  platform->AddFile(u"C:\\Mix.m3u", "#EXTM3U\r\nC:\\a.mp3");
  platform->AddFile(u"C:\\My Documents\\Norvo Media\\KVs\\PlayLists.txt",
                    norvo::AsBytes(data, size));
  const auto component = norvo::OpenLibrary(platform);
  norvo::Variant mode = std::int32_t{0};
  component->Create(u"helperMan")->Call(u"GenericQueue", norvo::Arguments(&mode, 1));
  return 0;
}
