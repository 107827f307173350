#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/hosted/DriveMap.h"
#include "platform/hosted/FolderListing.h"
#include "platform/hosted/HostCalls.h"

namespace norvo {

/// A path in a drive as the host has it: relative to the drive's folder, separated by "/", the
/// drive's folder itself empty.
struct HostPlace {
  const HostDrive* drive = nullptr;
  std::string path;
};

/// Something that exists.
struct HostEntry {
  const HostDrive* drive = nullptr;
  std::string place;   ///< where its name stands; no link on the way
  std::string target;  ///< of a link: the place that it leads to
  bool isLink = false;
  HostFacts facts;  ///< never of a link itself

  const std::string& Path() const { return isLink ? target : place; }
};

/// Finds out what Windows paths name on the host's disk. The exact spelling of a name wins over one
/// that differs in case; of those the first in byte order. A link that leads out of its drive, and
/// one that leads nowhere, does not exist. Nothing here raises.
class HostPathResolver {
 public:
  explicit HostPathResolver(const DriveMap& drives) : drives_(drives) {}

  /// The file or folder that a path names. A path with a trailing separator names a folder. A path
  /// that is spelled as the disk spells it, in a folder that was met before, costs one system call.
  std::optional<HostEntry> Find(StringView path);
  std::optional<HostPlace> FindFolder(StringView path);

  /// Where a name stands if it is spelled as on the disk, without a look at it; nothing when its
  /// folder does not exist or the name can be no name. What stands there may be missing, spelled
  /// otherwise, or a link.
  std::optional<HostPlace> Guess(StringView path);

  /// `errno` of the look-up that ended the last search in vain.
  int Reason() const { return reason_; }

  /// To be called after this platform has written a file at that place.
  void Written(const HostPlace& file);
  /// To be called after every other change that this platform makes to a folder.
  void Changed(const HostDrive& drive, std::string_view folder) { listings_.Forget(drive, folder); }
  /// Remembers that a folder path leads to that place.
  void Remember(StringView folder, const HostPlace& place);

  /// Follows a link; nothing when it leads nowhere or out of the drive.
  static std::optional<HostEntry> FollowLink(const HostDrive& drive, std::string place);

 private:
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(StringView text) const { return std::hash<StringView>()(text); }
  };

  const HostPlace* Known(StringView folder);
  std::optional<HostPlace> Walk(StringView folder, bool fromRoot);
  std::optional<HostEntry> Step(const HostPlace& folder, StringView name);
  std::optional<HostEntry> StepAnew(StringView folder, HostPlace known, StringView name);

  const DriveMap& drives_;
  ListingCache listings_;
  /// Folders by the path that was asked for. To be here means no more than that the path led there;
  /// the folder may be gone.
  using Places = std::unordered_map<String, HostPlace, Hash, std::equal_to<>>;
  Places known_;
  Places::const_iterator lastKnown_ = known_.end();  // the one that was asked for last
  int reason_ = 0;
};

}  // namespace norvo
