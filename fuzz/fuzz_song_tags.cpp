// Any bytes as a song whose tag is read, under a name of each kind that is not asked for its
// content alone: what is told is one line of whole characters, and no more than a tag can hold.
#include "FuzzedPlaylist.h"
#include "lists/SongTags.h"
#include "text/Encoding.h"

namespace {

void CheckText(norvo::StringView text) {
  constexpr std::size_t kLongest = 4096;
  if (text.size() > kLongest || !norvo::IsWholeUtf16(text)) std::abort();
  if (norvo::Trim(text, norvo::IsBlankOrControl).size() != text.size()) std::abort();
  for (const char16_t unit : text) {
    if (norvo::IsAsciiControl(unit)) std::abort();
  }
}

void CheckTags(const norvo::SongTags& tags) {
  for (const norvo::StringView text : {tags.artist, tags.album, tags.title, tags.genre}) {
    CheckText(text);
  }
  if (tags.track < 0 || !(tags.seconds >= 0)) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  norvo::MemoryPlatform platform;
  for (const norvo::StringView name : {u"C:\\a.mp3", u"C:\\a.m4a", u"C:\\a"}) {
    platform.AddFile(name, norvo::AsBytes(data, size));
    const auto tags = norvo::ReadSongTags(platform.Files(), name);
    if (tags) CheckTags(*tags);
  }
  return 0;
}
