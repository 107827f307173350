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

/// Numbers the media files of the old machine, each once, however its path is spelled.
class SongBook {
 public:
  /// All must outlive the book.
  SongBook(FileSystem& files, MediaPlacer& placer, std::vector<MovedSong>& songs)
      : files_(files), placer_(placer), songs_(songs) {}

  /// The 0-based number of the file at a full path that exists; new files are added. `size` where a
  /// look-up has just told it.
  std::size_t NumberOf(const String& path, std::optional<double> size = std::nullopt);
  const String& SourceOf(std::size_t number) const { return songs_[number].source; }

 private:
  std::size_t Add(const String& path, std::optional<double> size);

  FileSystem& files_;
  MediaPlacer& placer_;
  std::vector<MovedSong>& songs_;
  std::unordered_map<String, std::size_t> bySpelling_;
  std::unordered_map<std::string, std::size_t> byIdentity_;
};

}  // namespace norvo
