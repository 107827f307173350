// Any bytes as the lines of an ASX file: what a line yields stands in it, and the properties of a
// playlist come back from the lines that are written of them.
#include <algorithm>
#include <vector>

#include "Fuzzing.h"
#include "readers/AsxLineParser.h"
#include "readers/AsxParams.h"
#include "readers/TextLines.h"
#include "text/CodePage.h"
#include "writers/AsxFormatter.h"

namespace {

using namespace norvo;

void HoldLine(StringView line) {
  for (const StringView part : {AttributeValue(line, u"Name"), AttributeValue(line, u"Value"),
                                ElementText(line), ElementValue(line)}) {
    Require(IsViewOf(part, line) && Trim(part).size() == part.size());
  }
  Require(AttributeValue(line, u"href").find(u'"') == StringView::npos);
  Require(ElementText(line).find(u'<') == StringView::npos);
  Require(!IsBannerEnd(line) || HoldsBannerEnd(line));
  const bool hasTag = line.find(u'<') != StringView::npos;
  Require(hasTag || (KindInsideEntry(line) == AsxLineKind::Other &&
                     KindOutsideEntry(line) == AsxLineKind::Other));
}

/// What a line can hold as a value and give back.
String Plain(StringView text) {
  String plain(Trim(text));
  std::replace_if(
      plain.begin(), plain.end(),
      [](char16_t unit) { return unit == u'"' || unit == u'<' || unit < u' '; }, u'-');
  return plain;
}

void CheckRoundTrip(const std::vector<StringView>& lines) {
  PlaylistRecord written;
  written.type = playlist_type::kWmpAsx;
  String* const fields[] = {&written.name,         &written.asxAllowShuffle,
                            &written.asxArtist,    &written.asxAlbum,
                            &written.creationTime, &written.asxPlayListAttribute};
  for (std::size_t i = 0; i < std::min(lines.size(), std::size(fields)); ++i) {
    *fields[i] = Plain(lines[i]);
  }
  PlaylistRecord read;
  read.type = written.type;
  AsxFormatter(written, [&read](StringView line) {
    if (KindOutsideEntry(line) == AsxLineKind::Param) ApplyPlaylistParam(line, read);
  }).Begin();
  Require(read.name == written.name && read.asxAllowShuffle == written.asxAllowShuffle);
  Require(read.asxArtist == written.asxArtist && read.asxAlbum == written.asxAlbum);
  Require(read.creationTime == written.creationTime);
  Require(read.asxPlayListAttribute == written.asxPlayListAttribute);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const String text = Windows1252().Decode(AsBytes(data, size));
  const std::vector<StringView> lines = SplitLines(text);
  for (const StringView line : lines) HoldLine(line);
  CheckRoundTrip(lines);
  return 0;
}
