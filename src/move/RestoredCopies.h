#pragma once

#include <map>
#include <span>
#include <string>
#include <utility>

#include "move/WorkReport.h"
#include "services/Component.h"

namespace norvo {

/// A native playlist as it was made.
struct MadeList {
  String path;
  std::string print;  ///< of its bytes; empty for one that could not be read
};

/// A playlist as it is now.
MadeList AsItIs(Component& machine, const String& path);

/// The native playlists that restoring, or a move, has made on a machine, by path and content: a
/// later collecting there does not take them for playlists of its own, unless somebody has changed
/// them since. They stand in "RestoredCopies.txt" of the data area.
class RestoredCopies {
 public:
  /// `machine` must outlive this. Raises when the file is there and cannot be read.
  RestoredCopies(Component& machine, const String& dataArea);

  /// Whether a playlist is such a copy, as it was made. What cannot be read is none.
  bool Has(const String& path) const;
  /// Notes playlists; writes nothing when all are known. Raises when the file cannot be written.
  void Add(std::span<const MadeList> lists);

 private:
  void Take(std::string_view line);

  Component& machine_;
  String path_;
  // Paths, by their folded form and the print: a path may have been made anew with other songs.
  std::map<std::pair<String, std::string>, String> rows_;
};

/// Notes playlists among a machine's copies, and warns where that cannot be done.
void NoteCopies(Component& machine, const String& dataArea, std::span<const MadeList> lists,
                MachineSide side, WorkReport& report);

}  // namespace norvo
