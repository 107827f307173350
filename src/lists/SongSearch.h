#pragma once

#include <cstddef>
#include <unordered_map>
#include <vector>

#include "text/CodePage.h"
#include "text/Text.h"

namespace norvo {

/// Looks for songs that are not where a playlist points, among all that a machine has. Case and
/// the spelling in Unicode do not matter. Nothing is guessed, and no disk is looked at.
class SongSearch {
 public:
  enum class Kind { None, Unique, Several };

  /// The song; or all that it could be, in the order of the machine's files.
  struct Found {
    Kind kind = Kind::None;
    std::vector<String> paths;  ///< full paths; none, one, or more, of many the first ten
    std::size_t count = 0;      ///< of all
  };

  /// Full paths of all media files of a machine, and the page of its 8-bit texts, which must
  /// outlive the search. Takes time in proportion to the number of files.
  explicit SongSearch(std::vector<String> mediaFiles, const CodePage& page = Windows1252());

  /// What a reference can mean, as a playlist has it: a path, relative or not, or a "file:"
  /// address. By whatever spelling, the first of these that any file fulfils decides: the same path
  /// on another drive; the longest end of the path, of at least a folder and a name; the name
  /// alone.
  Found Find(const String& reference) const;

 private:
  /// A path as it is compared.
  struct Key {
    String text;          // folded, each name with a backslash before it, without the drive
    bool isFull = false;  // from a drive's root
  };

  /// The files that have most of a path in common with it.
  struct Match {
    std::size_t names = 0;  // at its end; kWholePath for all but the drive
    std::vector<std::size_t> files;
  };
  static constexpr std::size_t kWholePath = static_cast<std::size_t>(-1);

  static Key KeyOf(StringView path);
  Match FindKey(const Key& key) const;
  Found Chosen(const std::vector<std::size_t>& files) const;

  std::vector<String> files_;
  std::vector<String> keys_;  // of the files
  std::unordered_map<String, std::vector<std::size_t>> byName_;
  const CodePage& page_;
};

}  // namespace norvo
