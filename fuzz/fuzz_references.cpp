// Any text as a reference of a playlist: what it can mean begins with what is written, none of it
// is told twice, and every path of it names a place.
#include <algorithm>

#include "Fuzzing.h"
#include "lists/ReferencePaths.h"
#include "lists/ReferenceTexts.h"
#include "text/CodePage.h"
#include "text/WindowsPath.h"

namespace {

using namespace norvo;

bool IsOneTwice(std::vector<String> texts) {
  std::sort(texts.begin(), texts.end());
  return std::adjacent_find(texts.begin(), texts.end()) != texts.end();
}

bool NamesPlace(StringView path) {
  return HasDrive(path) || (path.size() > 2 && IsSeparator(path[0]) && IsSeparator(path[1]));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const String reference = Windows1252().Decode(AsBytes(data, size));
  const std::vector<String> texts = ReferenceTexts(reference, Windows1252());
  Require(!texts.empty() && texts.front() == reference);
  for (const String& text : texts) {
    Require(text.size() <= 3 * reference.size());
    Require(DecodePercent(text, Windows1252()).size() <= text.size());
    const std::vector<String> paths = ReferencePaths(text, u"C:\\Music", Windows1252());
    Require(!IsOneTwice(paths));
    for (const String& path : paths) Require(NamesPlace(path));
    IsInternetAddress(text);
  }
  return 0;
}
