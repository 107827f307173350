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
  enum class Kind {
    Found,
    Missing,
    Address  ///< on the internet, a share or a removable drive: not looked up
  };

  Kind kind = Kind::Missing;
  String reference;  ///< of a file the full path
};

/// What a native playlist refers to.
struct VerifiedPlaylist {
  String path;
  std::vector<VerifiedReference> references;  ///< in its order
  bool whole = false;                         ///< it could be read to its end

  std::size_t Count(VerifiedReference::Kind kind) const;
};

struct VerifyResult : WorkResult {
  std::vector<VerifiedPlaylist> playlists;
};

/// Reads native playlists and looks each reference up; changes nothing on the machine but for the
/// log. `paths` are full paths on the machine, in UTF-8; without any, all playlists in the folder
/// of the restored ones and below. MoveError when that folder is missing.
VerifyResult VerifyPlaylists(const std::shared_ptr<Platform>& machine,
                             const std::vector<std::string>& paths, const WorkOptions& options,
                             WorkObserver& observer);

}  // namespace norvo
