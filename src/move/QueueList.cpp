#include "move/QueueList.h"

#include "model/PlaylistTypes.h"
#include "services/ProfileFile.h"
#include "text/Number.h"

namespace norvo {
namespace {

// The queue takes type 6 before type 5.
constexpr std::int32_t kQueueOrder[] = {playlist_type::kWmpAsx,    playlist_type::kWmpM3u,
                                        playlist_type::kWinampM3u, playlist_type::kWinampPls,
                                        playlist_type::kMmjbM3u,   playlist_type::kSoniquePls};

}  // namespace

String QueueListPath(const ProductSettings& settings) {
  return DataAreaOf(settings) + u"PlayLists.txt";
}

std::vector<ListedPlaylist> ReadQueueList(Component& component, const ProductSettings& settings) {
  std::vector<ListedPlaylist> playlists;
  ProfileFile file(component);
  file.OpenFile(QueueListPath(settings));
  for (const std::int32_t type : kQueueOrder) {
    if (!file.SelectSection(FindPlaylistType(type)->name)) continue;
    ListedPlaylist listed{type, {}};
    for (std::int32_t number = 1; file.ReadValue(u"File" + FormatInteger(number), listed.path) == 0;
         ++number) {
      playlists.push_back(listed);
    }
  }
  return playlists;
}

}  // namespace norvo
