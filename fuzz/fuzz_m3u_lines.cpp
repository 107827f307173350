// Any bytes as the lines of an M3U: none is lost, none counts twice, and what an item and its title
// are made of stands in them.
#include <vector>

#include "Fuzzing.h"
#include "readers/ExtendedInfo.h"
#include "readers/M3uReader.h"
#include "readers/TextLines.h"
#include "text/CodePage.h"

namespace {

using namespace norvo;

void CheckLines(const std::vector<StringView>& lines, StringView text) {
  String joined(lines.front());
  for (std::size_t i = 1; i < lines.size(); ++i) joined.append(u"\r\n").append(lines[i]);
  Require(joined == text);
  Require(ReachableLines(lines) <= lines.size() && !ExceedsLineLimit(lines));
}

void CheckTitle(StringView title) {
  const TitlePieces pieces = SplitTitle(title);
  Require(IsViewOf(pieces.artist, title) && IsViewOf(pieces.song, title));
  Require(pieces.split || (pieces.artist.empty() && pieces.song.empty()));
  const FileNamePieces names = SplitFileName(title);
  Require(names.track.size() + names.artist.size() + names.song.size() <= title.size());
  for (const StringView part : {names.track, names.artist, names.song}) {
    Require(IsViewOf(part, title) && Trim(part).size() == part.size());
  }
  for (const char16_t unit : names.track) Require(IsDigit(unit));
}

void CheckItems(const std::vector<StringView>& lines, StringView text) {
  bool complete = false;
  const std::vector<M3uItem> items = SplitM3u(lines, complete);
  std::size_t used = complete ? 0 : 1;
  const char16_t* behind = text.data();  // the items stand in the order of their lines
  for (const M3uItem& item : items) {
    used += item.extended ? 2 : 1;
    Require(IsViewOf(item.reference, text) && IsViewOf(item.info, text));
    Require(item.extended || item.info.empty());
    if (!item.reference.empty()) {
      Require(item.reference.data() >= behind);
      behind = item.reference.data() + item.reference.size();
    }
    CheckTitle(item.info);
    CheckTitle(item.reference);
  }
  Require(used <= lines.size());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const String text = Windows1252().Decode(AsBytes(data, size));
  const std::vector<StringView> lines = SplitLines(text);
  CheckLines(lines, text);
  CheckItems(lines, text);
  return 0;
}
