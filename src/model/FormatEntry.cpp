#include "model/FormatEntry.h"

namespace norvo {

MemberTable FormatEntry::TableWith(StringView className, std::vector<Member> own) {
  using E = FormatEntry;
  std::vector<Member> members = {
      Property<&E::AlbumName, &E::SetAlbumName>(u"Entry_AlbumName"),
      Property<&E::ArtistName, &E::SetArtistName>(u"Entry_ArtistName"),
      Property<&E::CreationDate, &E::SetCreationDate>(u"Entry_CreationDate"),
      Property<&E::Duration, &E::SetDuration>(u"Entry_Duration"),
      LetByReference(Property<&E::EntryType, &E::SetEntryType>(u"Entry_EntryType")),
      Property<&E::FileName, &E::SetFileName>(u"Entry_FileName"),
      ReadOnly<&E::FileSize>(u"Entry_FileSize"),
      Property<&E::Genre, &E::SetGenre>(u"Entry_Genre"),
      Method<&E::GetID3TagInfo>(u"Entry_GetID3TagInfo"),
      Method<&E::DestinationPath>(u"Entry_DestinationPath"),
      WriteOnly<&E::SetNativeFormat>(u"Entry_NativeFormat"),
      Property<&E::PlayListName, &E::SetPlayListName>(u"Entry_PlayListName"),
      Property<&E::SongTitle, &E::SetSongTitle>(u"Entry_SongTitle"),
      Property<&E::TrackNumber, &E::SetTrackNumber>(u"Entry_TrackNumber"),
      Property<&E::SongName, &E::SetSongName>(u"Entry_SongName"),
      Property<&E::SourceURL, &E::SetSourceURL>(u"Entry_SourceURL"),
      Property<&E::Urltype, &E::SetUrltype>(u"Entry_URLType"),
      Property<&E::HasExtendedInfo, &E::SetHasExtendedInfo>(u"HasExtendedInfo"),
  };
  members.insert(members.end(), own.begin(), own.end());
  return MemberTable(className, std::move(members));
}

const MemberTable& M3UEntry::Interface() {
  static const MemberTable table = TableWith(u"M3UEntry");
  return table;
}

const MemberTable& PlsEntry::Interface() {
  static const MemberTable table = TableWith(u"PlsEntry");
  return table;
}

}  // namespace norvo
