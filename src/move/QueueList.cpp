#include "move/QueueList.h"

#include "model/PlaylistTypes.h"
#include "services/ProfileFile.h"
#include "text/Number.h"

namespace norvo {
String QueueListPath(const ProductSettings& settings) {
  return DataAreaOf(settings) + u"PlayLists.txt";
}

std::vector<ListedPlaylist> ReadQueueList(Component& component, const ProductSettings& settings) {
  std::vector<ListedPlaylist> playlists;
  ProfileFile file(component);
  file.OpenFile(QueueListPath(settings));
  for (const PlaylistType* const type : QueuedTypes()) {
    if (!file.SelectSection(type->name)) continue;
    ListedPlaylist listed{type->code, {}};
    for (std::int32_t number = 1; file.ReadValue(u"File" + FormatInteger(number), listed.path) == 0;
         ++number) {
      playlists.push_back(listed);
    }
  }
  return playlists;
}

}  // namespace norvo
