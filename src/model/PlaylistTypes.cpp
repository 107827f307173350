#include "model/PlaylistTypes.h"

#include <algorithm>

namespace norvo {
namespace {

// "Type" and "type" in the failure texts differ on purpose.
constexpr PlaylistType kTypes[] = {
    {playlist_type::kWmpAsx, u"WMP_ASX", u".asx", u"Windows Media Player", Syntax::Asx,
     u"NVERR_OPFAIL, PLAYLIST::ReadPlayList, ReadASX for Type WMP_ASX returned False"},
    {playlist_type::kWmpM3u, u"WMP_M3U", u".m3u", u"Windows Media Player", Syntax::Asx,
     u"NVERR_OPFAIL, PLAYLIST::ReadPlayList, ReadASX for Type WMP_M3U returned False"},
    {playlist_type::kWinampM3u, u"WINAMP_M3U", u".m3u", u"WinAmp", Syntax::M3u,
     u"NVERR_OPFAIL, PLAYLIST::ReadPlayList, ReadM3U for type WINAMP_M3U returned False"},
    {playlist_type::kWinampPls, u"WINAMP_PLS", u".pls", u"WinAmp", Syntax::Pls,
     u"NVERR_OPFAIL, PLAYLIST::ReadPlayList, ReadPLS for type WINAMP_PLS returned False"},
    {playlist_type::kSoniquePls, u"SONIQUE_PLS", u".pls", u"Sonique", Syntax::Pls,
     u"NVERR_OPFAIL, PLAYLIST::ReadPlayList, ReadPLS for type SONIQUE_PLS returned False"},
    {playlist_type::kMmjbM3u, u"MMJB_M3U", u".m3u", u"MusicMatch Jukebox", Syntax::BareM3u,
     u"NVERR_OPFAIL, PLAYLIST::ReadPlayList, ReadMMJB for type MMJB_M3U returned False"},
};

}  // namespace

std::span<const PlaylistType> PlaylistTypes() {
  return kTypes;
}

const PlaylistType* FindPlaylistType(std::int32_t code) {
  const auto* const found =
      std::find_if(std::begin(kTypes), std::end(kTypes),
                   [code](const PlaylistType& type) { return type.code == code; });
  return found == std::end(kTypes) ? nullptr : found;
}

bool HasAsxEntries(std::int32_t code) {
  return code == playlist_type::kWmpAsx || code == playlist_type::kWmpM3u;
}

StringView EntryExtension(std::int32_t code) {
  if (HasAsxEntries(code)) return u".asx";
  const PlaylistType* const type = FindPlaylistType(code);
  return type == nullptr ? StringView() : type->extension;
}

}  // namespace norvo
