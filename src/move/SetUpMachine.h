#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "move/WorkObserver.h"
#include "move/WorkResult.h"
#include "services/Platform.h"

namespace norvo {

/// Characters of a group root that is wished for, without a separator at its end: below it a song
/// has an artist's, an album's and its own name, and players know no longer paths than 259.
inline constexpr std::size_t kLongestGroupRoot = 159;

/// What a machine's settings shall be where it has none yet.
struct SetupWishes {
  std::optional<std::int32_t> role;      ///< one of Utility::role; source without a wish
  std::optional<std::string> groupRoot;  ///< UTF-8; a full path on a drive of the machine
  /// Holds without a wish, in the same form; empty for "C:\\My Documents\\Norvo Media\\".
  std::string usualGroupRoot;
  bool withProductFolder = true;  ///< the folder that takes the log
};

/// What the set-up found or made.
struct SetupStep {
  /// What it is.
  enum class Kind {
    Value,            ///< a value of the registry
    Key,              ///< a key of the registry
    ProductFolder,    ///< takes the log
    GroupRootFolder,  ///< takes the migration data
    SubNamesFile      ///< names the folders below the group root
  };

  Kind kind = Kind::Value;         ///< decides which of the others are set
  Hive hive = Hive::LocalMachine;  ///< of a registry key or value
  String path;                     ///< the key's, the folder's or the file's
  String name;                     ///< of a value
  RegistryValue value;             ///< as it holds now
  bool written = false;            ///< it was missing before
};

/// What a set-up gives.
struct SetupResult : WorkResult {
  std::vector<SetupStep> steps;  ///< in their order
};

/// Writes what is missing of the product's settings and changes nothing that is there. What is
/// there and cannot be used, or differs from the wishes, is warned of. Values that the machine's
/// hive refuses go to the user's, which the library reads first; so is that. A group root on
/// another drive than C takes the product's folder along, so that drive C need not be writable.
/// MoveError when something cannot be written; the product's folder, which takes the log alone, is
/// warned of. A new group root is noted once its folder is made, so that one that cannot be made
/// does not hold for later calls.
///
/// Without these settings a machine's playlists read as empty: every song that a playlist refers to
/// is registered in the group's data area, which only they name.
SetupResult SetUpMachine(const std::shared_ptr<Platform>& machine, const SetupWishes& wishes,
                         const WorkOptions& options, WorkObserver& observer);
/// The same, unwatched and without a log.
SetupResult SetUpMachine(const std::shared_ptr<Platform>& machine, const SetupWishes& wishes = {});

}  // namespace norvo
