#include "move/SongSpace.h"

#include "automation/Attempt.h"
#include "move/MoveError.h"
#include "text/Encoding.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

template <class Counts>
std::uint64_t BytesOf(const std::vector<MovedSong>& songs, Counts&& counts) {
  std::uint64_t bytes = 0;
  for (const MovedSong& song : songs) {
    if (counts(song)) bytes += static_cast<std::uint64_t>(song.size);
  }
  return bytes;
}

bool IsOnItsWay(const MovedSong& song) {
  return song.state == MovedSong::State::Planned && !song.place.empty();
}

}  // namespace

std::optional<std::uint64_t> SongSpace::FreeAt(StringView groupRoot) const {
  return isAsked_ ? machines_.freeBytes(groupRoot) : std::nullopt;
}

void SongSpace::RequireForAll(const std::vector<MovedSong>& songs, StringView groupRoot) const {
  const std::optional<std::uint64_t> free = FreeAt(groupRoot);
  const std::uint64_t needed = BytesOf(songs, [](const MovedSong&) { return true; });
  if (!free || needed <= *free) return;
  // What is there without settings may be the songs of an earlier move.
  if (AnswerOr(true, [&] { return machines_.to->Files().FolderExists(groupRoot); })) return;
  throw MoveError(MoveFault::SpaceMissing, ToUtf8(DriveName(groupRoot)), {}, {needed, *free});
}

void SongSpace::RequireForPlanned(const std::vector<MovedSong>& songs, StringView groupRoot) const {
  const std::optional<std::uint64_t> free = FreeAt(groupRoot);
  if (!free || BytesOf(songs, IsOnItsWay) <= *free) return;
  // Only now is the machine itself asked: of the plan every song is there.
  FileSystem& files = machines_.to->Files();
  const std::uint64_t needed = BytesOf(songs, [&](const MovedSong& song) {
    return IsOnItsWay(song) && !AnswerOr(false, [&] { return files.FileExists(song.place); });
  });
  if (needed <= *free) return;
  throw MoveError(MoveFault::SpaceMissing, ToUtf8(DriveName(groupRoot)), ToUtf8(groupRoot),
                  {needed, *free});
}

}  // namespace norvo
