#pragma once

#include <string>
#include <vector>

#include "move/MoveResult.h"
#include "move/TextPool.h"
#include "move/WorkReport.h"
#include "services/Component.h"

namespace norvo {

/// A file of the old machine that is a list of songs, by its name or by what it begins with.
struct StockList {
  String path;
  std::string kind;                                              ///< what people call such a list
  bool isRead = false;                                           ///< lists of this kind can be read
  MovedPlaylist::SkipRule rule = MovedPlaylist::SkipRule::None;  ///< where nothing is taken from
};

/// A folder that nothing could be seen of.
struct UnseenFolder {
  String path;  ///< only a drive's root ends in a backslash
  String reason;
};

/// All that a machine has of playlists and music, whatever names it.
struct Stock {
  std::vector<StockList> lists;  ///< in the order of the folders, files before sub-folders
  /// The same, without those in folders that nothing is taken from, and the system's own sounds.
  std::vector<StringView> media;
  std::vector<UnlistedSong> skipped;  ///< those in folders that nothing is taken from
  /// Folders that could not be listed, without those that nothing is taken from anyway.
  std::vector<UnseenFolder> unseen;
};

/// Goes through all folders of the machine's fixed drives, with progress. A folder that cannot be
/// listed is passed over. The scan for playlists, which goes the same way, mostly warns of it, but
/// not where the next try succeeds.
///
/// Beside the known endings, files count as lists that begin as one does. To find these, files are
/// opened; those whose endings tell that they are something else are not, nor is music.
///
/// The paths of the media files stand in the pool, where those who ask for their songs look first.
Stock TakeStock(Component& library, TextPool& texts, WorkReport& report);

}  // namespace norvo
