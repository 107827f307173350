#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "move/MediaPlacer.h"
#include "move/MoveResult.h"
#include "services/FileSystem.h"

namespace norvo {

/// What the placer says of the files of the old machine, which is asked of each path once.
class SongIdentities {
 public:
  /// The placer must outlive this.
  explicit SongIdentities(MediaPlacer& placer) : placer_(placer) {}

  /// See MediaPlacer::IdentityOf.
  const std::string& Of(const String& path) {
    const auto known = known_.find(path);
    return known != known_.end() ? known->second
                                 : known_.emplace(path, placer_.IdentityOf(path)).first->second;
  }

 private:
  MediaPlacer& placer_;
  std::unordered_map<String, std::string> known_;
};

/// Numbers the media files of the old machine, each once, however its path is spelled.
class SongBook {
 public:
  /// All must outlive the book.
  SongBook(FileSystem& files, SongIdentities& identities, std::vector<MovedSong>& songs)
      : files_(files), identities_(identities), songs_(songs) {}

  /// The 0-based number of the file at a full path that exists; new files are added. `size` where a
  /// look-up has just told it.
  std::size_t NumberOf(const String& path, std::optional<double> size = std::nullopt);
  const String& SourceOf(std::size_t number) const { return songs_[number].source; }

 private:
  std::size_t Add(const String& path, std::optional<double> size);

  FileSystem& files_;
  SongIdentities& identities_;
  std::vector<MovedSong>& songs_;
  std::unordered_map<String, std::size_t> bySpelling_;
  std::unordered_map<std::string, std::size_t> byIdentity_;
};

}  // namespace norvo
