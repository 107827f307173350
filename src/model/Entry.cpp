#include "model/Entry.h"

namespace norvo {

const MemberTable& Entry::Interface() {
  static const MemberTable table(
      u"Entry", {
                    Property<&Entry::AlbumName, &Entry::SetAlbumName>(u"AlbumName"),
                    Property<&Entry::ArtistName, &Entry::SetArtistName>(u"ArtistName"),
                    Property<&Entry::SongName, &Entry::SetSongName>(u"SongName"),
                    Property<&Entry::CreationDate, &Entry::SetCreationDate>(u"CreationDate"),
                    Property<&Entry::Duration, &Entry::SetDuration>(u"Duration"),
                    LetByReference(Property<&Entry::EntryType, &Entry::SetEntryType>(u"EntryType")),
                    Property<&Entry::FileName, &Entry::SetFileName>(u"FileName"),
                    ReadOnly<&Entry::FileSize>(u"FileSize"),
                    Property<&Entry::Genre, &Entry::SetGenre>(u"Genre"),
                    Property<&Entry::NativeFormat, &Entry::SetNativeFormat>(u"NativeFormat"),
                    Property<&Entry::PlayListName, &Entry::SetPlayListName>(u"PlayListName"),
                    Property<&Entry::SongTitle, &Entry::SetSongTitle>(u"SongTitle"),
                    Property<&Entry::SourceURL, &Entry::SetSourceURL>(u"SourceURL"),
                    Property<&Entry::Urltype, &Entry::SetUrltype>(u"Urltype"),
                    Property<&Entry::TrackNumber, &Entry::SetTrackNumber>(u"TrackNumber"),
                    Method<&Entry::DestinationPath>(u"DestinationPath"),
                    Method<&Entry::GetID3TagInfo>(u"GetID3TagInfo"),
                });
  return table;
}

}  // namespace norvo
