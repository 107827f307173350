#include "model/PlaylistRecord.h"

namespace norvo {

void PlaylistRecord::SetName(StringView text, NameOrigin origin) {
  const PlaylistType* const row = FindPlaylistType(type);
  std::size_t length = 0;
  if (row != nullptr) {
    length = row->keepsExtension ? text.size() : FindIgnoreCase(text, row->extension);
    if (length == StringView::npos) return;
  }
  name = text.substr(0, length);
  nameOrigin = origin;
}

}  // namespace norvo
