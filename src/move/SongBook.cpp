#include "move/SongBook.h"

#include "automation/Attempt.h"
#include "move/Growth.h"

namespace norvo {
SongIdentities::Id SongIdentities::Of(StringView path) {
  const TextPool::Id text = texts_.Add(path);
  if (text >= byPath_.size()) byPath_.resize(text + std::size_t{1}, kUnknown);
  if (byPath_[text] == kUnknown) {
    const auto next = static_cast<Id>(byIdentity_.size());
    byPath_[text] = byIdentity_.try_emplace(placer_.IdentityOf(path), next).first->second;
  }
  return byPath_[text];
}

/// Looks up before it notes anything: a failure leaves no number without a song.
std::size_t SongBook::NumberOf(StringView path, std::optional<double> size) {
  const SongIdentities::Id identity = identities_.Of(path);
  if (identity >= numbers_.size()) numbers_.resize(identity + std::size_t{1});
  if (numbers_[identity] == 0) numbers_[identity] = Add(path, size);
  return numbers_[identity] - 1;
}

/// How many songs there are then.
std::uint32_t SongBook::Add(StringView path, std::optional<double> size) {
  if (!size) {
    // Of what cannot be looked up more is told when it is brought.
    const auto facts = AnswerOr(std::optional<FileFacts>(), [&] { return files_.FactsOf(path); });
    size = facts ? facts->size : 0;
  }
  MakeRoom(songs_);
  MovedSong& song = songs_.emplace_back();
  song.source = path;
  song.size = *size;
  return static_cast<std::uint32_t>(songs_.size());
}

}  // namespace norvo
