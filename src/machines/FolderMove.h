#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "machines/LockWishes.h"
#include "machines/TakenFolder.h"
#include "machines/ThisPc.h"
#include "move/MovePlaylists.h"
#include "platform/hosted/HostedPlatform.h"
#include "services/Platform.h"

namespace norvo {

/// What errors call the folders of a move.
struct FolderNames {
  std::string from = "the old machine's folder";  ///< `FolderMove::from`
  std::string to = "the new machine's folder";    ///< `FolderMove::to`
  std::string work = "the work folder";           ///< `FolderMove::work`
};

/// The file of a machine's registry.
struct RegistryPlace {
  std::filesystem::path file;  ///< on this system
  /// As the machine calls it, in UTF-8; empty when it lies on none of its drives.
  std::string machinePath;
};

/// One more drive of an old machine whose disk is named.
struct OtherDrive {
  std::string letter;            ///< from C to Z: "D", "d" or "D:"
  std::filesystem::path folder;  ///< such as where its second disk is mounted
};

/// What the folders of a move were taken as.
struct OpenedFolders {
  TakenFolder from;        ///< the old machine's
  TakenFolder to;          ///< the new machine's
  RegistryPlace registry;  ///< of the new machine; of a dry run it may be a passing one
  /// The old machine itself; null when it is this PC.
  std::shared_ptr<HostedPlatform> source;
};

/// A move between machines that are held in folders; on Windows one may be this PC.
struct FolderMove {
  /// A machine folder, or any folder, such as a mounted disk, which is then drive C of a machine;
  /// see TakeFolder for the rule. Nothing is written to a folder that is no machine. Empty on
  /// Windows: this PC, to which nothing is written either.
  std::filesystem::path from;
  /// Its other drives, where `from` is a disk: a machine in a folder tells its own.
  std::vector<OtherDrive> fromDrives;
  /// As `from`; one that is empty or missing is made a machine. On a disk nothing is made but what
  /// the product puts there: its own folder, which takes the registry's file, songs and lists.
  /// Empty on Windows: this PC.
  std::filesystem::path to;
  /// A letter from C to Z, such as "D": `to` is that drive of the new machine, whatever it holds.
  std::string toDrive;
  /// Whose documents folder, of several users of the new machine, takes the songs and lists: a name
  /// in UTF-8. May be empty where there is one user, or one whose documents hold them already.
  std::string user;
  /// The documents folder of the new machine, and where songs and lists go: full Windows paths in
  /// UTF-8. Empty for what the folder tells: of a disk the documents folder of its user, and
  /// "Norvo Media" in there. A group root that the machine has already is kept.
  std::string documents;
  std::string groupRoot;  ///< see `documents`
  /// Takes what the product writes for the old machine, on a drive of its own, so that nothing is
  /// written below `from` even if that is a machine. May be empty: then a machine takes it itself,
  /// where its folder can be written to and its drive C stands in there; else it is kept only as
  /// long as the move lasts.
  std::filesystem::path work;
  /// Shows the messages of both machines, if not null; else they go to the standard error stream.
  MessageDialog* messages = nullptr;
  LockWishes lock;    ///< for machines that another run works on
  FolderNames names;  ///< for the sentences of errors
  /// Hears, before anything is moved, what the folders were taken as; may be empty.
  std::function<void(const OpenedFolders&)> onOpened;

  /// The old machine is this PC: on Windows, where `from` is empty.
  bool IsFromThisPc() const { return from.empty() && IsThisPcAMachine(); }
  /// The new machine is this PC: on Windows, where `to` is empty.
  bool IsToThisPc() const { return to.empty() && IsThisPcAMachine(); }
};

/// Moves the playlists and songs of one machine to another; see MovePlaylists of two platforms.
/// The folders that are written to are locked until it ends. MoveError when a folder cannot be
/// used, two lie in each other, or another run works on one.
MoveResult MovePlaylists(const FolderMove& folders, const MoveOptions& options,
                         WorkObserver& observer);

}  // namespace norvo
