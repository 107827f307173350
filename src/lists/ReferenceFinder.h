#pragma once

#include <optional>
#include <unordered_map>

#include "services/Component.h"
#include "text/Text.h"

namespace norvo {

/// What a reference of a playlist turned out to be.
struct FoundReference {
  enum class Kind {
    File,      ///< a song on a fixed drive or RAM disk
    Address,   ///< stays as it is: internet, a share, a removable, CD-ROM or network drive
    NotMedia,  ///< a file on a fixed drive or RAM disk, but no song by any means
    Missing    ///< nothing of these
  };

  Kind kind = Kind::Missing;
  /// Of a file the full path on the machine, its last name as the disk spells it. Of an address
  /// the reference, made a full path when it is not one as written. Of what is missing the
  /// reference.
  String path;
  double size = 0;  ///< bytes of a file
};

/// Finds what the references of playlists mean, by all the ways in which programs write them, and
/// by all spellings of a name in Unicode. None of its questions raises, and none changes the
/// component's state. It remembers what it has found, since songs stand in several playlists, and
/// the names in the folders that it had to list: it is for work during which nobody moves songs.
class ReferenceFinder {
 public:
  /// The component must outlive the finder.
  explicit ReferenceFinder(Component& component) : component_(component) {}

  /// The first meaning that is there, for a reference in a playlist of that folder (a full path,
  /// with or without a backslash at its end). An address is told by its text, or by the type of
  /// its drive; it is not looked for on any disk.
  FoundReference Find(StringView reference, StringView folder);

 private:
  FoundReference LookFor(StringView reference, StringView folder);
  std::optional<FoundReference> FindText(StringView text, StringView folder);
  std::optional<FoundReference> FindPath(StringView path, StringView text);
  std::optional<FoundReference> FindFile(StringView fullPath);
  std::optional<FoundReference> FindSpelled(StringView fullPath);
  String PathOnDisk(StringView fullPath);
  String NameOnDisk(const String& folder, StringView name);

  using Names = std::unordered_map<String, String>;  // as on disk, by the folded spelling

  Component& component_;
  // By the reference, with its folder; the path is empty where it is the reference itself.
  std::unordered_map<String, FoundReference, UnitHash, UnitEqual> found_;
  std::unordered_map<String, Names> names_;  // that are not ASCII, by the folder
};

}  // namespace norvo
