#include "readers/ExtendedInfo.h"

#include <algorithm>

#include "services/DataCop.h"
#include "services/NVServices.h"
#include "services/Utility.h"

namespace norvo {
namespace {

constexpr std::size_t kSeparatorLength = 3;  // " - " and " / "
constexpr std::size_t kDurationCharacters = 3;

String Titled(StringView artist, StringView song) {
  return String(artist).append(u" - ").append(song);
}

/// Completes the entry from its file's tag; true when a tag was consulted. The title is composed
/// only when artist and song are both there.
bool FillFromTag(FormatEntry& entry) {
  if (!entry.GetID3TagInfo()) return false;
  if (entry.HasSongTitle()) return true;  // which stays
  const StringView artist = entry.ArtistName();
  const StringView song = entry.SongName();
  if (!artist.empty() && !song.empty()) entry.SetSongTitle(Titled(artist, song));
  return true;
}

/// Takes the duration from an "#EXTINF" line and gives its title; a line without a comma has
/// neither. Only the last three characters before the comma count, so that a short length keeps
/// its colon: intended.
StringView TakeDuration(StringView line, FormatEntry& entry) {
  const std::size_t comma = FindUnit(line, u',');
  if (comma == StringView::npos) return {};
  const StringView before = line.substr(0, comma);
  const std::size_t length = std::min(before.size(), kDurationCharacters);
  const StringView duration = before.substr(before.size() - length);
  if (!duration.empty()) entry.SetDurationText(NVServices::StripNull(duration));
  return line.substr(comma + 1);
}

/// Takes the cleaned title of the text; false when it has none. A line's title must still be one
/// when it is clean; a title that stands by itself need not: intended.
bool TakeTitle(StringView text, FormatEntry& entry, std::int32_t playlistType, String& title) {
  const PlaylistType* const type = FindPlaylistType(playlistType);
  const ItemInfo info = type == nullptr ? ItemInfo::None : type->itemInfo;
  if (info == ItemInfo::None) return false;
  const bool isLine = info == ItemInfo::ExtInfLine;
  title = isLine ? TakeDuration(text, entry) : text;
  Utility::Clean(title);
  return !isLine || !title.empty();
}

void FillFromTitle(StringView text, FormatEntry& entry) {
  const StringView title = NVServices::StripNull(text);
  entry.SetSongTitle(title);
  const TitlePieces pieces = SplitTitle(title);
  if (!pieces.song.empty()) entry.SetSongName(pieces.song);
  if (!pieces.artist.empty()) entry.SetArtistName(pieces.artist);
}

/// Where a mark between blanks begins, npos when there is none.
std::size_t FindBetweenBlanks(StringView text, char16_t mark) {
  for (std::size_t at = FindUnit(text, mark); at != StringView::npos;
       at = FindUnit(text, mark, at + 1)) {
    if (at > 0 && text[at - 1] == u' ' && text.substr(at + 1).starts_with(u' ')) return at - 1;
  }
  return StringView::npos;
}

bool FillFromFileName(FormatEntry& entry) {
  const FileNamePieces pieces = SplitFileName(entry.FileName());
  entry.SetArtistName(pieces.artist);
  entry.SetSongName(pieces.song);
  if (!pieces.track.empty()) entry.SetTrackNumber(pieces.track);
  if (pieces.artist.empty() || pieces.song.empty()) return false;
  entry.SetSongTitle(Titled(pieces.artist, pieces.song));
  return true;
}

bool MayUseFileName(FormatEntry& entry, std::int32_t playlistType) {
  return !HasAsxEntries(playlistType) && entry.Urltype() >= url_type::kFixedDrive &&
         entry.Urltype() <= url_type::kRamDisk;
}

bool IsAllDigits(StringView text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), IsDigit);
}

}  // namespace

FileNamePieces SplitFileName(StringView fileName) {
  FileNamePieces pieces;
  StringView rest = fileName.substr(0, fileName.rfind(u'.'));
  std::size_t dash = rest.find(u'-');
  if (dash != StringView::npos && IsAllDigits(Trim(rest.substr(0, dash)))) {
    pieces.track = Trim(rest.substr(0, dash));
    rest.remove_prefix(dash + 1);
    dash = rest.find(u'-');
  }
  if (dash != StringView::npos) {
    pieces.artist = Trim(rest.substr(0, dash));
    rest.remove_prefix(dash + 1);
  }
  pieces.song = Trim(rest);
  return pieces;
}

TitlePieces SplitTitle(StringView title) {
  TitlePieces pieces;
  const std::size_t at = std::min(FindBetweenBlanks(title, u'-'), FindBetweenBlanks(title, u'/'));
  if (at == StringView::npos) return pieces;
  pieces.split = true;
  pieces.song = NVServices::StripNull(title.substr(at + kSeparatorLength));
  const char16_t separator = title[at + 1];
  StringView artist = NVServices::StripNull(title.substr(0, at));
  while (artist.ends_with(separator)) artist = Trim(artist.substr(0, artist.size() - 1));
  pieces.artist = artist;
  return pieces;
}

bool ReadExtendedInfo(StringView text, FormatEntry& entry, std::int32_t playlistType,
                      String& buffer) {
  bool found = false;
  if (!text.empty() && TakeTitle(text, entry, playlistType, buffer)) {
    FillFromTitle(buffer, entry);
    found = true;
  }
  if (FillFromTag(entry)) found = true;
  if (!found && MayUseFileName(entry, playlistType)) found = FillFromFileName(entry);
  return found;
}

}  // namespace norvo
