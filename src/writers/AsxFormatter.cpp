#include "writers/AsxFormatter.h"

#include "automation/Conversions.h"
#include "model/TimeValues.h"

namespace norvo {
namespace {

// Together with the line's own end it leaves an empty line.
constexpr StringView kLineEnd = u"\r\n";

String Quoted(StringView value) {
  return String(u"\"").append(value).append(u"\"");
}

String Text(AutomationObject& entry, StringView property) {
  return ToText(entry.Get(property));
}

}  // namespace

AsxFormatter::AsxFormatter(const PlaylistRecord& playlist, Write write)
    : playlist_(playlist), write_(std::move(write)), fromAsx_(HasAsxEntries(playlist.type)) {}

void AsxFormatter::Element(StringView opening, const String& text, StringView closing) {
  if (text.empty()) return;
  write_(String(opening).append(text).append(closing).append(kLineEnd));
}

void AsxFormatter::Param(StringView name, const String& value) {
  if (value.empty()) return;
  write_(u"<Param Name = " + Quoted(name) + u" Value = " + Quoted(value) + u" />" +
         String(kLineEnd));
}

void AsxFormatter::Begin() {
  const String version = fromAsx_ ? playlist_.asxVersion : u"3.0";
  write_(u"<ASX Version = " + Quoted(version) + u" >");
  Element(u"<Author > ", playlist_.asxAuthor, u"</Author>");
  Element(u"<Title> ", playlist_.asxTitle, u"</Title>");
  PlaylistParams();
}

void AsxFormatter::PlaylistParams() {
  Param(u"Name", playlist_.name);
  Param(u"AllowShuffle", fromAsx_ ? playlist_.asxAllowShuffle : u"yes");
  Param(u"Artist", playlist_.asxArtist);
  Param(u"Album", playlist_.asxAlbum);
  Param(u"CreationTime", playlist_.creationTime);
  Param(u"PlayListAttribute", playlist_.asxPlayListAttribute);
}

void AsxFormatter::Entry(AutomationObject& entry) {
  write_(u"<Entry>");
  const String path = ToText(entry.Call(u"Entry_DestinationPath"));
  write_(u"<Ref href = " + Quoted(path) + u"/>" + String(kLineEnd));
  String duration = Text(entry, u"Entry_Duration");
  if (!fromAsx_ && !duration.empty()) duration = FormatAsxTime(duration);
  if (!duration.empty()) {
    write_(u"<Duration Value = " + Quoted(duration) + u" />" + String(kLineEnd));
  }
  if (fromAsx_) {
    AsxTexts(entry);
    AsxParams(entry, path);
  } else {
    Element(u"<Title> ", Text(entry, u"Entry_SongTitle"), u"</Title>");
    PlainParams(entry, path);
  }
  write_(u"</Entry>" + String(kLineEnd));
}

void AsxFormatter::AsxTexts(AutomationObject& entry) {
  Element(u"<Author > ", Text(entry, u"ASX_Author"), u"</Author>");
  Element(u"<Abstract > ", Text(entry, u"Abstract"), u"</Abstract>");
  Element(u"<CopyRight > ", Text(entry, u"Copyright"), u"</CopyRight>");
  Element(u"<Title> ", Text(entry, u"ASX_Title"), u"</Title>");
}

void AsxFormatter::AsxParams(AutomationObject& entry, const String& path) {
  Param(u"Name", Text(entry, u"ASX_SongName"));
  Param(u"Artist", Text(entry, u"ASX_Artist"));
  Param(u"Album", Text(entry, u"ASX_Album"));
  Param(u"Genre", Text(entry, u"Entry_Genre"));
  Param(u"MediaType", Text(entry, u"MediaType"));
  // A number of 0 is the text "0" and therefore written: intended.
  Param(u"MediaAttribute", Text(entry, u"MediaAttribute"));
  Param(u"OriginalIndex", Text(entry, u"Entry_TrackNumber"));
  Param(u"BitRate", Text(entry, u"BitRate"));
  Param(u"DigitallySecure", Text(entry, u"DigitallySecure"));
  Param(u"PlayCount", Text(entry, u"PlayCount"));
  write_(u"<Param Name = \"SourceURL\" Value = " + Quoted(path) + u" />" + String(kLineEnd));
  Param(u"CreationDate", Text(entry, u"Entry_CreationDate"));
}

void AsxFormatter::PlainParams(AutomationObject& entry, const String& path) {
  Param(u"Name", Text(entry, u"Entry_SongName"));
  Param(u"Artist", Text(entry, u"Entry_ArtistName"));
  Param(u"Album", Text(entry, u"Entry_AlbumName"));
  Param(u"Genre", Text(entry, u"Entry_Genre"));
  Param(u"OriginalIndex", Text(entry, u"Entry_TrackNumber"));
  write_(u"<Param Name = \"SourceURL\" Value = " + Quoted(path) + u" />" + String(kLineEnd));
  Param(u"CreationDate", Text(entry, u"Entry_CreationDate"));
}

}  // namespace norvo
