#include "model/AsxEntry.h"

namespace norvo {

void AsxEntry::SetSongName(StringView value) {
  FormatEntry::SetSongName(value);
  // The second set changes nothing; the sequence is kept on purpose.
  if (SongName().empty()) FormatEntry::SetSongName(value);
}

void AsxEntry::SetArtist(StringView value) {
  asx_.Set(kArtist, value);
  SetArtistName(asx_.At(kArtist));  // the value may have been a view of what has just moved
}

void AsxEntry::SetAlbum(StringView value) {
  asx_.Set(kAlbum, value);
  SetAlbumName(asx_.At(kAlbum));
}

const MemberTable& AsxEntry::Interface() {
  using E = AsxEntry;
  static const MemberTable table =
      TableWith(u"AsxEntry",
                {
                    Property<&E::Author, &E::SetAuthor>(u"ASX_Author"),
                    Property<&E::Artist, &E::SetArtist>(u"ASX_Artist"),
                    Property<&E::Album, &E::SetAlbum>(u"ASX_Album"),
                    Property<&E::Copyright, &E::SetCopyright>(u"Copyright"),
                    Property<&E::Href, &E::SetHref>(u"HREF"),
                    Property<&E::AsxSongName, &E::SetAsxSongName>(u"ASX_SongName"),
                    Property<&E::Title, &E::SetTitle>(u"ASX_Title"),
                    Property<&E::BitRate, &E::SetBitRate>(u"BitRate"),
                    Property<&E::DigitallySecure, &E::SetDigitallySecure>(u"DigitallySecure"),
                    Property<&E::MediaAttribute, &E::SetMediaAttribute>(u"MediaAttribute"),
                    Property<&E::MediaType, &E::SetMediaType>(u"MediaType"),
                    Property<&E::PlaylistAttribute, &E::SetPlaylistAttribute>(u"PlaylistAttribute"),
                    Property<&E::PlayCount, &E::SetPlayCount>(u"PlayCount"),
                    Property<&E::Abstract, &E::SetAbstract>(u"Abstract"),
                });
  return table;
}

}  // namespace norvo
