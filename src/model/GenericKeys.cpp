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

template <class Setter>
struct SetterOf;
template <class C, class V>
struct SetterOf<void (C::*)(V)> {
  using Class = C;
  using Value = std::remove_cvref_t<V>;
};

/// What `Let` does with the text.
template <auto kSetter>
void Set(FormatEntry& entry, StringView text) {
  using Setter = SetterOf<decltype(kSetter)>;
  using Value = typename Setter::Value;
  auto& own = static_cast<typename Setter::Class&>(entry);
  if constexpr (std::is_same_v<Value, StringView>) {
    (own.*kSetter)(text);
  } else {
    (own.*kSetter)(detail::Binding<Value>::From(Variant(String(text))));
  }
}

// The source address comes before its type, so an entry that is read looks for the file whatever
// the type will be: intended.
constexpr EntryKey kEntryKeys[] = {
    {u"Abstract", u"Abstract", Append<&AsxEntry::Abstract>, Set<&AsxEntry::SetAbstract>,
     KeyUse::AsxEntries},
    {u"ASX_Album", u"ASX_Album", Append<&AsxEntry::Album>, Set<&AsxEntry::SetAlbum>,
     KeyUse::AsxEntries},
    {u"ASX_Artist", u"ASX_Artist", Append<&AsxEntry::Artist>, Set<&AsxEntry::SetArtist>,
     KeyUse::AsxEntries},
    {u"ASX_Author", u"ASX_Author", Append<&AsxEntry::Author>, Set<&AsxEntry::SetAuthor>,
     KeyUse::AsxEntries},
    {u"ASX_SongName", u"ASX_SongName", Append<&AsxEntry::AsxSongName>,
     Set<&AsxEntry::SetAsxSongName>, KeyUse::AsxEntries},
    {u"ASX_Title", u"ASX_Title", Append<&AsxEntry::Title>, Set<&AsxEntry::SetTitle>,
     KeyUse::AsxEntries},
    {u"ASX_BitRate", u"BitRate", Append<&AsxEntry::BitRate>, Set<&AsxEntry::SetBitRate>,
     KeyUse::AsxEntries},
    {u"ASX_Copyright", u"Copyright", Append<&AsxEntry::Copyright>, Set<&AsxEntry::SetCopyright>,
     KeyUse::AsxEntries},
    {u"ASX_DigitallySecure", u"DigitallySecure", Append<&AsxEntry::DigitallySecure>,
     Set<&AsxEntry::SetDigitallySecure>, KeyUse::AsxEntries},
    {u"ASX_HREF", u"HREF", Append<&AsxEntry::Href>, Set<&AsxEntry::SetHref>, KeyUse::AsxEntries},
    {u"ASX_MediaAttribute", u"MediaAttribute", Append<&AsxEntry::MediaAttribute>,
     Set<&AsxEntry::SetMediaAttribute>, KeyUse::AsxEntries},
    {u"ASX_MediaType", u"MediaType", Append<&AsxEntry::MediaType>, Set<&AsxEntry::SetMediaType>,
     KeyUse::AsxEntries},
    {u"ASX_PlayCount", u"PlayCount", Append<&AsxEntry::PlayCount>, Set<&AsxEntry::SetPlayCount>,
     KeyUse::AsxEntries},
    {u"ASX_PlaylistAttribute", u"PlaylistAttribute", Append<&AsxEntry::PlaylistAttribute>,
     Set<&AsxEntry::SetPlaylistAttribute>, KeyUse::AsxEntries},
    {u"Artist", u"Entry_ArtistName", Append<&FormatEntry::ArtistName>,
     Set<&FormatEntry::SetArtistName>},
    {u"Album", u"Entry_AlbumName", Append<&FormatEntry::AlbumName>,
     Set<&FormatEntry::SetAlbumName>},
    {u"CreationDate", u"Entry_CreationDate", Append<&FormatEntry::CreationDate>,
     Set<&FormatEntry::SetCreationDate>},
    {u"Duration", u"Entry_Duration", Append<&FormatEntry::DurationText>,
     Set<&FormatEntry::SetDurationText>},
    {u"EntryType", u"Entry_EntryType", Append<&FormatEntry::EntryType>,
     Set<&FormatEntry::SetEntryType>, KeyUse::WrittenForAsxOnly},
    {u"FileName", u"Entry_FileName", Append<&FormatEntry::FileName>,
     Set<&FormatEntry::SetFileName>},
    {u"FileSize", u"Entry_FileSize", Append<&FormatEntry::FileSize>, nullptr, KeyUse::NeverRead},
    {u"PlayListName", u"Entry_PlayListName", Append<&FormatEntry::PlayListName>,
     Set<&FormatEntry::SetPlayListName>, KeyUse::WrittenForAsxOnly},
    {u"Genre", u"Entry_Genre", Append<&FormatEntry::Genre>, Set<&FormatEntry::SetGenre>},
    {u"HasExtendedInfo", u"HasExtendedInfo", Append<&FormatEntry::HasExtendedInfo>,
     Set<&FormatEntry::SetHasExtendedInfo>},
    {u"SongName", u"Entry_SongName", Append<&FormatEntry::SongName>,
     Set<&FormatEntry::SetSongName>},
    {u"SongTitle", u"Entry_SongTitle", Append<&FormatEntry::SongTitle>,
     Set<&FormatEntry::SetSongTitle>},
    {u"SourceURL", u"Entry_SourceURL", Append<&FormatEntry::SourceURL>,
     Set<&FormatEntry::SetSourceURL>},
    {u"TrackNumber", u"Entry_TrackNumber", Append<&FormatEntry::TrackNumber>,
     Set<&FormatEntry::SetTrackNumber>},
    {u"URLType", u"Entry_URLType", Append<&FormatEntry::Urltype>, Set<&FormatEntry::SetUrltype>},
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
