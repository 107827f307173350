#include "move/SongBook.h"

namespace norvo {

std::size_t SongBook::NumberOf(const String& path, std::optional<double> size) {
  const auto [spelling, isNewSpelling] = bySpelling_.try_emplace(path, songs_.size());
  if (!isNewSpelling) return spelling->second;
  const auto [file, isNewFile] = byIdentity_.try_emplace(placer_.IdentityOf(path), songs_.size());
  if (isNewFile) {
    if (!size) {
      const std::optional<FileFacts> facts = files_.FactsOf(path);
      size = facts ? facts->size : 0;
    }
    MovedSong& song = songs_.emplace_back();
    song.source = path;
    song.size = *size;
  }
  return spelling->second = file->second;
}

}  // namespace norvo
