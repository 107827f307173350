#include "readers/AsxParams.h"

#include <algorithm>
#include <type_traits>

#include "readers/AsxLineParser.h"

namespace norvo {
namespace {

void SetArtist(AsxEntry& entry, StringView value) {
  entry.SetArtist(value);
  entry.SetArtistName(entry.Artist());
}

void SetAlbum(AsxEntry& entry, StringView value) {
  entry.SetAlbum(value);
  entry.SetAlbumName(entry.Album());
}

void SetName(AsxEntry& entry, StringView value) {
  entry.SetAsxSongName(value);
  entry.SetSongName(entry.AsxSongName());
}

void SetAlbumTitle(AsxEntry& entry, StringView value) {
  if (entry.AlbumName().empty()) entry.SetAlbumName(value);
  if (entry.Album().empty()) entry.SetAlbum(entry.AlbumName());
}

void SetGenreWhenEmpty(AsxEntry& entry, StringView value) {
  if (entry.Genre().empty()) entry.SetGenre(value);
}

template <auto kSetter>
void Set(AsxEntry& entry, StringView value) {
  if constexpr (std::is_invocable_v<decltype(kSetter), AsxEntry&, StringView>) {
    (entry.*kSetter)(value);
  } else {
    (entry.*kSetter)(Variant(String(value)));
  }
}

struct EntryRow {
  StringView name;
  void (*apply)(AsxEntry&, StringView);
};

// "Is_Protected", "Is_Trusted", "TOC", "type", "WMFSDKNeeded" and "WMFSDKVersion" are known and
// ignored, like every name that does not stand here.
constexpr EntryRow kEntryRows[] = {
    {u"Artist", SetArtist},
    {u"Album", SetAlbum},
    {u"Name", SetName},
    {u"SourceURL", Set<&AsxEntry::SetSourceURL>},
    {u"WM/AlbumTitle", SetAlbumTitle},
    {u"PlaylistAttribute", Set<&AsxEntry::SetPlaylistAttribute>},
    {u"Genre", Set<&AsxEntry::SetGenre>},
    {u"WM/Genre", SetGenreWhenEmpty},
    {u"MediaType", Set<&AsxEntry::SetMediaType>},
    {u"MediaAttribute", Set<&AsxEntry::SetMediaAttribute>},
    {u"OriginalIndex", Set<&AsxEntry::SetTrackNumber>},
    {u"Bitrate", Set<&AsxEntry::SetBitRate>},
    {u"DigitallySecure", Set<&AsxEntry::SetDigitallySecure>},
    {u"PlayCount", Set<&AsxEntry::SetPlayCount>},
    {u"CreationDate", Set<&AsxEntry::SetCreationDate>},
};

template <String PlaylistRecord::*kField>
void SetField(PlaylistRecord& playlist, StringView value) {
  playlist.*kField = value;
}

struct PlaylistRow {
  StringView name;
  void (*apply)(PlaylistRecord&, StringView);
};

constexpr PlaylistRow kPlaylistRows[] = {
    {u"Author", SetField<&PlaylistRecord::asxAuthor>},
    {u"Title", SetField<&PlaylistRecord::asxTitle>},
    {u"PlaylistAttribute", SetField<&PlaylistRecord::asxPlayListAttribute>},
    {u"CreationTime", SetField<&PlaylistRecord::creationTime>},
    {u"AllowShuffle", SetField<&PlaylistRecord::asxAllowShuffle>},
    {u"Name", [](PlaylistRecord& playlist,
                 StringView value) { playlist.SetName(value, NameOrigin::Playlist); }},
    {u"Artist", SetField<&PlaylistRecord::asxArtist>},
    {u"Album", SetField<&PlaylistRecord::asxAlbum>},
};

template <class Target, class Row, std::size_t kCount>
void Apply(StringView line, Target& target, const Row (&rows)[kCount]) {
  const StringView name = AttributeValue(line, u"Name");
  const auto* const row = std::find_if(std::begin(rows), std::end(rows), [&](const Row& candidate) {
    return EqualsIgnoreCase(candidate.name, name);
  });
  if (row != std::end(rows)) row->apply(target, AttributeValue(line, u"Value"));
}

}  // namespace

void ApplyEntryParam(StringView line, AsxEntry& entry) {
  Apply(line, entry, kEntryRows);
}

void ApplyPlaylistParam(StringView line, PlaylistRecord& playlist) {
  Apply(line, playlist, kPlaylistRows);
}

}  // namespace norvo
