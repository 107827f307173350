#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "move/WorkObserver.h"
#include "move/WorkResult.h"
#include "services/Platform.h"

namespace norvo {

/// A reference of a native playlist, as it is found by reading it back.
struct VerifiedReference {
  /// What the look-up gave.
  enum class Kind {
    Found,    ///< the file is there
    Missing,  ///< it is not
    Address   ///< on the internet, a share or a removable drive: not looked up
  };

  Kind kind = Kind::Missing;  ///< what the look-up gave
  String reference;           ///< of a file the full path
};

/// What a native playlist refers to.
struct VerifiedPlaylist {
  String path;                                ///< full, on the machine
  std::vector<VerifiedReference> references;  ///< in its order
  bool whole = false;                         ///< it could be read to its end
  String reason;                              ///< why it could not; the error's description
  bool missing = false;                       ///< there is no such file

  /// Number of references of that kind.
  std::size_t Count(VerifiedReference::Kind kind) const;
};

/// What a verifying gives.
struct VerifyResult : WorkResult {
  std::vector<VerifiedPlaylist> playlists;  ///< in the order of the paths
};

/// Reads native playlists and looks each reference up; changes nothing on the machine but for the
/// log. `paths` are full paths on the machine, in UTF-8; without any, all playlists in the folder
/// of the restored ones and below. MoveError when that folder is missing.
VerifyResult VerifyPlaylists(const std::shared_ptr<Platform>& machine,
                             const std::vector<std::string>& paths, const WorkOptions& options,
                             WorkObserver& observer);

}  // namespace norvo
