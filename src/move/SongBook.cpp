#include "move/SongBook.h"

#include "automation/Attempt.h"

namespace norvo {

/// Looks up before it notes anything: a failure leaves no number without a song.
std::size_t SongBook::NumberOf(const String& path, std::optional<double> size) {
  const auto spelling = bySpelling_.find(path);
  if (spelling != bySpelling_.end()) return spelling->second;
  const std::string& identity = identities_.Of(path);
  auto file = byIdentity_.find(identity);
  if (file == byIdentity_.end()) file = byIdentity_.emplace(identity, Add(path, size)).first;
  return bySpelling_[path] = file->second;
}

std::size_t SongBook::Add(const String& path, std::optional<double> size) {
  if (!size) {
    // Of what cannot be looked up more is told when it is brought.
    const auto facts = AnswerOr(std::optional<FileFacts>(), [&] { return files_.FactsOf(path); });
    size = facts ? facts->size : 0;
  }
  MovedSong& song = songs_.emplace_back();
  song.source = path;
  song.size = *size;
  return songs_.size() - 1;
}

}  // namespace norvo
