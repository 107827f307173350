#include "model/GenericKeys.h"

namespace norvo {
namespace {

// The source address comes before its type, so an entry that is read looks for the file whatever
// the type will be: intended.
constexpr EntryKey kEntryKeys[] = {
    {u"Abstract", u"Abstract", KeyUse::AsxEntries},
    {u"ASX_Album", u"ASX_Album", KeyUse::AsxEntries},
    {u"ASX_Artist", u"ASX_Artist", KeyUse::AsxEntries},
    {u"ASX_Author", u"ASX_Author", KeyUse::AsxEntries},
    {u"ASX_SongName", u"ASX_SongName", KeyUse::AsxEntries},
    {u"ASX_Title", u"ASX_Title", KeyUse::AsxEntries},
    {u"ASX_BitRate", u"BitRate", KeyUse::AsxEntries},
    {u"ASX_Copyright", u"Copyright", KeyUse::AsxEntries},
    {u"ASX_DigitallySecure", u"DigitallySecure", KeyUse::AsxEntries},
    {u"ASX_HREF", u"HREF", KeyUse::AsxEntries},
    {u"ASX_MediaAttribute", u"MediaAttribute", KeyUse::AsxEntries},
    {u"ASX_MediaType", u"MediaType", KeyUse::AsxEntries},
    {u"ASX_PlayCount", u"PlayCount", KeyUse::AsxEntries},
    {u"ASX_PlaylistAttribute", u"PlaylistAttribute", KeyUse::AsxEntries},
    {u"Artist", u"Entry_ArtistName"},
    {u"Album", u"Entry_AlbumName"},
    {u"CreationDate", u"Entry_CreationDate"},
    {u"Duration", u"Entry_Duration"},
    {u"EntryType", u"Entry_EntryType", KeyUse::WrittenForAsxOnly},
    {u"FileName", u"Entry_FileName"},
    {u"FileSize", u"Entry_FileSize", KeyUse::NeverRead},
    {u"PlayListName", u"Entry_PlayListName", KeyUse::WrittenForAsxOnly},
    {u"Genre", u"Entry_Genre"},
    {u"HasExtendedInfo", u"HasExtendedInfo"},
    {u"SongName", u"Entry_SongName"},
    {u"SongTitle", u"Entry_SongTitle"},
    {u"SourceURL", u"Entry_SourceURL"},
    {u"TrackNumber", u"Entry_TrackNumber"},
    {u"URLType", u"Entry_URLType"},
};

constexpr AsxGlobalKey kAsxGlobalKeys[] = {
    {u"Author", &PlaylistRecord::asxAuthor},
    {u"Artist", &PlaylistRecord::asxArtist},
    {u"Album", &PlaylistRecord::asxAlbum},
    {u"AllowShuffle", &PlaylistRecord::asxAllowShuffle},
    {u"Title", &PlaylistRecord::asxTitle},
    {u"PlayListAttribute", &PlaylistRecord::asxPlayListAttribute},
    {u"ASX Version", &PlaylistRecord::asxVersion},
};

}  // namespace

bool EntryKey::IsWritten(bool forAsx) const {
  return forAsx || use == KeyUse::Always || use == KeyUse::NeverRead;
}

bool EntryKey::IsRead(bool forAsx) const {
  if (use == KeyUse::NeverRead) return false;
  return forAsx || use != KeyUse::AsxEntries;
}

std::span<const EntryKey> EntryKeys() {
  return kEntryKeys;
}

std::span<const AsxGlobalKey> AsxGlobalKeys() {
  return kAsxGlobalKeys;
}

}  // namespace norvo
