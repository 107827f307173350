#pragma once

#include <filesystem>
#include <string>

#include "move/MovePlaylists.h"
#include "services/Platform.h"

namespace norvo {

/// What errors call the folders of a move.
struct FolderNames {
  std::string from = "the old machine's folder";  ///< `FolderMove::from`
  std::string to = "the new machine's folder";    ///< `FolderMove::to`
  std::string work = "the work folder";           ///< `FolderMove::work`
};

/// A move between machines that are held in folders.
struct FolderMove {
  /// A machine folder, or any folder, such as a mounted disk, which is then drive C of a machine.
  /// Nothing is written to a folder that is no machine.
  std::filesystem::path from;
  /// Made a machine where it is none.
  std::filesystem::path to;
  /// Takes what the product writes for the old machine, on a drive of its own, so that nothing is
  /// written below `from` even if that is a machine. May be empty: then a machine takes it itself,
  /// and of another folder it is kept only as long as the move lasts.
  std::filesystem::path work;
  /// Shows the messages of both machines, if not null; else they go to the standard error stream.
  MessageDialog* messages = nullptr;
  FolderNames names;  ///< for the sentences of errors
};

/// Moves the playlists and songs of one machine to another; see MovePlaylists of two platforms.
/// MoveError when a folder cannot be used, or two lie in each other.
MoveResult MovePlaylists(const FolderMove& folders, const MoveOptions& options,
                         WorkObserver& observer);

}  // namespace norvo
