#include "writers/AsxFormatter.h"

#include <span>

#include "automation/Conversions.h"
#include "model/TimeValues.h"

namespace norvo {
namespace {

// Together with the line's own end it leaves an empty line.
constexpr StringView kEmptyLine = kLineEnd;

String Quoted(StringView value) {
  return String(u"\"").append(value).append(u"\"");
}

/// A line of an entry that tells one of its properties; without a property, its place.
struct LineRow {
  StringView before;
  StringView property;
  StringView behind;
};

constexpr StringView kParamEnd = u"\" />";

constexpr LineRow kAsxLines[] = {
    {u"<Author > ", u"ASX_Author", u"</Author>"},
    {u"<Abstract > ", u"Abstract", u"</Abstract>"},
    {u"<CopyRight > ", u"Copyright", u"</CopyRight>"},
    {u"<Title> ", u"ASX_Title", u"</Title>"},
    {u"<Param Name = \"Name\" Value = \"", u"ASX_SongName", kParamEnd},
    {u"<Param Name = \"Artist\" Value = \"", u"ASX_Artist", kParamEnd},
    {u"<Param Name = \"Album\" Value = \"", u"ASX_Album", kParamEnd},
    {u"<Param Name = \"Genre\" Value = \"", u"Entry_Genre", kParamEnd},
    {u"<Param Name = \"MediaType\" Value = \"", u"MediaType", kParamEnd},
    // A number of 0 is the text "0" and therefore written: intended.
    {u"<Param Name = \"MediaAttribute\" Value = \"", u"MediaAttribute", kParamEnd},
    {u"<Param Name = \"OriginalIndex\" Value = \"", u"Entry_TrackNumber", kParamEnd},
    {u"<Param Name = \"BitRate\" Value = \"", u"BitRate", kParamEnd},
    {u"<Param Name = \"DigitallySecure\" Value = \"", u"DigitallySecure", kParamEnd},
    {u"<Param Name = \"PlayCount\" Value = \"", u"PlayCount", kParamEnd},
    {u"<Param Name = \"SourceURL\" Value = \"", {}, kParamEnd},
    {u"<Param Name = \"CreationDate\" Value = \"", u"Entry_CreationDate", kParamEnd},
};

constexpr LineRow kPlainLines[] = {
    {u"<Title> ", u"Entry_SongTitle", u"</Title>"},
    {u"<Param Name = \"Name\" Value = \"", u"Entry_SongName", kParamEnd},
    {u"<Param Name = \"Artist\" Value = \"", u"Entry_ArtistName", kParamEnd},
    {u"<Param Name = \"Album\" Value = \"", u"Entry_AlbumName", kParamEnd},
    {u"<Param Name = \"Genre\" Value = \"", u"Entry_Genre", kParamEnd},
    {u"<Param Name = \"OriginalIndex\" Value = \"", u"Entry_TrackNumber", kParamEnd},
    {u"<Param Name = \"SourceURL\" Value = \"", {}, kParamEnd},
    {u"<Param Name = \"CreationDate\" Value = \"", u"Entry_CreationDate", kParamEnd},
};

/// The place under which the entry's song stands.
String PlaceOf(AutomationObject& entry) {
  if (FormatEntry* const own = OwnEntry(entry)) return own->DestinationPath();
  return ToText(entry.Call(u"Entry_DestinationPath"));
}

}  // namespace

AsxFormatter::AsxFormatter(const PlaylistRecord& playlist, Write write)
    : playlist_(playlist), write_(std::move(write)), fromAsx_(HasAsxEntries(playlist.type)) {
  const auto rows = fromAsx_ ? std::span<const LineRow>(kAsxLines) : kPlainLines;
  for (const LineRow& row : rows) {
    EntryLine& line = entryLines_.emplace_back();
    line.before = row.before;
    line.behind = row.behind;
    if (!row.property.empty()) line.text.emplace(row.property);
  }
}

void AsxFormatter::Element(StringView opening, const String& text, StringView closing) {
  if (text.empty()) return;
  write_(String(opening).append(text).append(closing).append(kEmptyLine));
}

void AsxFormatter::Param(StringView name, const String& value) {
  if (value.empty()) return;
  write_(u"<Param Name = " + Quoted(name) + u" Value = " + Quoted(value) + u" />" +
         String(kEmptyLine));
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
  const String path = PlaceOf(entry);
  AddressLines(entry, path);
  for (EntryLine& line : entryLines_) Line(line, entry, path);
  write_(u"</Entry>\r\n");
}

void AsxFormatter::AddressLines(AutomationObject& entry, const String& path) {
  line_.assign(u"<Ref href = \"").append(path).append(u"\"/>").append(kEmptyLine);
  write_(line_);
  String duration;
  duration_.Append(entry, duration);
  if (!fromAsx_ && !duration.empty()) duration = FormatAsxTime(duration);
  if (duration.empty()) return;
  line_.assign(u"<Duration Value = \"").append(duration).append(kParamEnd).append(kEmptyLine);
  write_(line_);
}

/// Texts of lines are put together in one place, which keeps its room.
void AsxFormatter::Line(EntryLine& line, AutomationObject& entry, const String& path) {
  line_ = line.before;
  if (line.text) {
    line.text->Append(entry, line_);
    if (line_.size() == line.before.size()) return;
  } else {
    line_ += path;
  }
  line_.append(line.behind).append(kEmptyLine);
  write_(line_);
}

}  // namespace norvo
