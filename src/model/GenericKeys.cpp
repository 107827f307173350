#include "model/GenericKeys.h"

#include <type_traits>
#include <utility>

#include "model/AsxEntry.h"
#include "text/Number.h"

namespace norvo {
namespace {

/// What `ToText` gives of the property's value.
template <auto kGetter>
void Append(FormatEntry& entry, String& text) {
  using Class = typename detail::Signature<decltype(kGetter)>::Class;
  auto value = (static_cast<Class&>(entry).*kGetter)();
  using Value = decltype(value);
  if constexpr (std::is_same_v<Value, StringView>) {
    text += value;
  } else if constexpr (std::is_same_v<Value, std::int32_t>) {
    AppendInteger(text, value);
  } else if constexpr (std::is_same_v<Value, double>) {
    AppendNumber(text, value);
  } else if constexpr (std::is_same_v<Value, bool>) {
    text += value ? StringView(u"True") : StringView(u"False");
  } else {
    text += ToText(Variant(std::move(value)));
  }
}

// The source address comes before its type, so an entry that is read looks for the file whatever
// the type will be: intended.
constexpr EntryKey kEntryKeys[] = {
    {u"Abstract", u"Abstract", Append<&AsxEntry::Abstract>, KeyUse::AsxEntries},
    {u"ASX_Album", u"ASX_Album", Append<&AsxEntry::Album>, KeyUse::AsxEntries},
    {u"ASX_Artist", u"ASX_Artist", Append<&AsxEntry::Artist>, KeyUse::AsxEntries},
    {u"ASX_Author", u"ASX_Author", Append<&AsxEntry::Author>, KeyUse::AsxEntries},
    {u"ASX_SongName", u"ASX_SongName", Append<&AsxEntry::AsxSongName>, KeyUse::AsxEntries},
    {u"ASX_Title", u"ASX_Title", Append<&AsxEntry::Title>, KeyUse::AsxEntries},
    {u"ASX_BitRate", u"BitRate", Append<&AsxEntry::BitRate>, KeyUse::AsxEntries},
    {u"ASX_Copyright", u"Copyright", Append<&AsxEntry::Copyright>, KeyUse::AsxEntries},
    {u"ASX_DigitallySecure", u"DigitallySecure", Append<&AsxEntry::DigitallySecure>,
     KeyUse::AsxEntries},
    {u"ASX_HREF", u"HREF", Append<&AsxEntry::Href>, KeyUse::AsxEntries},
    {u"ASX_MediaAttribute", u"MediaAttribute", Append<&AsxEntry::MediaAttribute>,
     KeyUse::AsxEntries},
    {u"ASX_MediaType", u"MediaType", Append<&AsxEntry::MediaType>, KeyUse::AsxEntries},
    {u"ASX_PlayCount", u"PlayCount", Append<&AsxEntry::PlayCount>, KeyUse::AsxEntries},
    {u"ASX_PlaylistAttribute", u"PlaylistAttribute", Append<&AsxEntry::PlaylistAttribute>,
     KeyUse::AsxEntries},
    {u"Artist", u"Entry_ArtistName", Append<&FormatEntry::ArtistName>},
    {u"Album", u"Entry_AlbumName", Append<&FormatEntry::AlbumName>},
    {u"CreationDate", u"Entry_CreationDate", Append<&FormatEntry::CreationDate>},
    {u"Duration", u"Entry_Duration", Append<&FormatEntry::DurationText>},
    {u"EntryType", u"Entry_EntryType", Append<&FormatEntry::EntryType>, KeyUse::WrittenForAsxOnly},
    {u"FileName", u"Entry_FileName", Append<&FormatEntry::FileName>},
    {u"FileSize", u"Entry_FileSize", Append<&FormatEntry::FileSize>, KeyUse::NeverRead},
    {u"PlayListName", u"Entry_PlayListName", Append<&FormatEntry::PlayListName>,
     KeyUse::WrittenForAsxOnly},
    {u"Genre", u"Entry_Genre", Append<&FormatEntry::Genre>},
    {u"HasExtendedInfo", u"HasExtendedInfo", Append<&FormatEntry::HasExtendedInfo>},
    {u"SongName", u"Entry_SongName", Append<&FormatEntry::SongName>},
    {u"SongTitle", u"Entry_SongTitle", Append<&FormatEntry::SongTitle>},
    {u"SourceURL", u"Entry_SourceURL", Append<&FormatEntry::SourceURL>},
    {u"TrackNumber", u"Entry_TrackNumber", Append<&FormatEntry::TrackNumber>},
    {u"URLType", u"Entry_URLType", Append<&FormatEntry::Urltype>},
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
