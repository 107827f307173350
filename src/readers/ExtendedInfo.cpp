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
String TakeDuration(StringView line, FormatEntry& entry) {
  const std::size_t comma = line.find(u',');
  if (comma == StringView::npos) return {};
  const StringView before = line.substr(0, comma);
  const std::size_t length = std::min(before.size(), kDurationCharacters);
  const StringView duration = before.substr(before.size() - length);
  if (!duration.empty()) entry.SetDurationText(NVServices::StripNull(duration));
  String title(line.substr(comma + 1));
  Utility::Clean(title);
  return title;
}

String TitleText(StringView text, FormatEntry& entry, std::int32_t playlistType) {
  const PlaylistType* const type = FindPlaylistType(playlistType);
  switch (type == nullptr ? ItemInfo::None : type->itemInfo) {
    case ItemInfo::ExtInfLine:
      return TakeDuration(text, entry);
    case ItemInfo::Title:
      return String(text);
    case ItemInfo::None:
      break;
  }
  return {};
}

void FillFromTitle(String text, FormatEntry& entry) {
  Utility::Clean(text);
  const StringView title = NVServices::StripNull(text);
  entry.SetSongTitle(title);
  const TitlePieces pieces = SplitTitle(title);
  if (!pieces.song.empty()) entry.SetSongName(pieces.song);
  if (!pieces.artist.empty()) entry.SetArtistName(pieces.artist);
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
  const std::size_t at = std::min(title.find(u" - "), title.find(u" / "));
  if (at == StringView::npos) return pieces;
  pieces.split = true;
  pieces.song = NVServices::StripNull(title.substr(at + kSeparatorLength));
  const char16_t separator = title[at + 1];
  StringView artist = NVServices::StripNull(title.substr(0, at));
  while (artist.ends_with(separator)) artist = Trim(artist.substr(0, artist.size() - 1));
  pieces.artist = artist;
  return pieces;
}

bool ReadExtendedInfo(StringView text, FormatEntry& entry, std::int32_t playlistType) {
  bool found = false;
  if (!text.empty()) {
    String title = TitleText(text, entry, playlistType);
    if (!title.empty()) {
      FillFromTitle(std::move(title), entry);
      found = true;
    }
  }
  if (FillFromTag(entry)) found = true;
  if (!found && MayUseFileName(entry, playlistType)) found = FillFromFileName(entry);
  return found;
}

}  // namespace norvo
