#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include "move/Move.h"
#include "platform/hosted/HostedPlatform.h"

namespace norvo {

/// Numbers the media files of the old machine, each once, however its path is spelled.
class SongBook {
 public:
  /// Both must outlive the book.
  SongBook(HostedPlatform& machine, std::vector<Song>& songs) : machine_(machine), songs_(songs) {}

  /// The 0-based number of the file at a full path that exists; new files are added.
  std::size_t NumberOf(const String& path);
  const String& SourceOf(std::size_t number) const { return songs_[number].source; }

 private:
  HostedPlatform& machine_;
  std::vector<Song>& songs_;
  std::unordered_map<String, std::size_t> bySpelling_;
  std::unordered_map<std::string, std::size_t> byFile_;
};

}  // namespace norvo
