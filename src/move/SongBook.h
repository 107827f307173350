#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "move/MediaPlacer.h"
#include "move/MoveResult.h"
#include "move/TextPool.h"
#include "services/FileSystem.h"

namespace norvo {

/// Numbers the files of the old machine by what the placer says of them, which is asked of each
/// path once.
class SongIdentities {
 public:
  /// The same for every path that leads to one file; 0-based, in the order of asking.
  using Id = std::uint32_t;

  /// Both must outlive this. Most paths stand in the pool anyway.
  SongIdentities(MediaPlacer& placer, TextPool& texts) : placer_(placer), texts_(texts) {}

  /// See MediaPlacer::IdentityOf.
  Id Of(StringView path);

 private:
  static constexpr Id kUnknown = 0xFFFF'FFFF;

  MediaPlacer& placer_;
  TextPool& texts_;
  std::vector<Id> byPath_;  // by the path's number in the pool
  std::unordered_map<std::string, Id> byIdentity_;
};

/// Numbers the media files of the old machine, each once, however its path is spelled.
class SongBook {
 public:
  /// All must outlive the book.
  SongBook(FileSystem& files, SongIdentities& identities, std::vector<MovedSong>& songs)
      : files_(files), identities_(identities), songs_(songs) {}

  /// The 0-based number of the file at a full path that exists; new files are added. `size` where a
  /// look-up has just told it.
  std::size_t NumberOf(StringView path, std::optional<double> size = std::nullopt);
  const String& SourceOf(std::size_t number) const { return songs_[number].source; }

 private:
  std::uint32_t Add(StringView path, std::optional<double> size);

  FileSystem& files_;
  SongIdentities& identities_;
  std::vector<MovedSong>& songs_;
  std::vector<std::uint32_t> numbers_;  // by identity, from 1; 0 for a file that is no song yet
};

}  // namespace norvo
