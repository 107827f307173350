// Any bytes as the list file: the queue consumes it, or leaves it, and never raises.
#include <cctype>

#include "FuzzedPlaylist.h"

namespace {

/// A total of a million takes a second of going over what is not listed, and finds no more than one
/// of thousands; the tests have it.
bool HasLongNumber(std::string_view bytes) {
  constexpr int kDigits = 5;
  int digits = 0;
  for (const char byte : bytes) {
    digits = std::isdigit(static_cast<unsigned char>(byte)) != 0 ? digits + 1 : 0;
    if (digits == kDigits) return true;
  }
  return false;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (HasLongNumber(norvo::AsBytes(data, size))) return 0;
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
