#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/files/FileFailure.h"
#include "platform/files/FileRecord.h"
#include "platform/hosted/DriveMap.h"
#include "platform/hosted/FolderListing.h"

namespace norvo {

/// Something that exists.
struct DiskEntry {
  DrivePath named;   ///< where its name stands; no link on the way
  DrivePath target;  ///< of a link: where it leads
  bool isLink = false;
  FileRecord record;  ///< never of a link itself

  /// Where it stands itself.
  const DrivePath& Place() const { return isLink ? target : named; }
};

/// Finds out what Windows paths name on the disk. The exact spelling of a name wins over one
/// that differs in case; of those the first in byte order. A link that leads out of its drive, and
/// one that leads nowhere, does not exist; see HostedLayout::linksCross. Nothing here raises.
class PathResolver {
 public:
  explicit PathResolver(const DriveMap& drives) : drives_(drives) {}

  /// The file or folder that a path names. A path with a trailing separator names a folder. A path
  /// that is spelled as the disk spells it, in a folder that was met before, costs one system call;
  /// when nothing is there, two.
  std::optional<DiskEntry> Find(StringView path);
  std::optional<DrivePath> FindFolder(StringView path);

  /// Where a name stands if it is spelled as on the disk, without a look at it; nothing when its
  /// folder does not exist or the name can be no name. What stands there may be missing, spelled
  /// otherwise, or a link.
  std::optional<DrivePath> Guess(StringView path);

  /// Of the look-up that ended the last search in vain. LinkInTheWay: a folder on the way is a link
  /// that leads out of the drive, or nowhere.
  FileFailure::Kind Reason() const { return reason_; }
  /// The same search met such a link, on the way or at its end.
  bool EndedAtLink() const { return endedAtLink_; }

  /// To be called after this platform has written that file.
  void Written(const DrivePath& file);
  /// To be called after every other change that this platform makes to a folder.
  void Changed(const DriveFolder& drive, std::string_view folder) {
    listings_.Forget(drive, folder);
  }
  /// Remembers that a folder's Windows path leads there.
  void Remember(StringView folder, const DrivePath& path);

  /// Follows a link; nothing when it leads nowhere, or where none may lead.
  std::optional<DiskEntry> FollowLink(DrivePath link) const;

 private:
  static std::optional<std::string> PathOf(const DrivePath& folder, StringView name);
  const DrivePath* Known(StringView folder);
  std::optional<DrivePath> Walk(StringView folder, bool fromRoot);
  std::optional<DiskEntry> Step(const DrivePath& folder, StringView name);
  std::optional<DiskEntry> StepAnew(StringView folder, DrivePath known, StringView name);

  const DriveMap& drives_;
  ListingCache listings_;
  /// Folders by the path that was asked for. To be here means no more than that the path led there;
  /// the folder may be gone.
  using Folders = std::unordered_map<String, DrivePath, UnitHash, UnitEqual>;
  Folders known_;
  Folders::const_iterator lastKnown_ = known_.end();  // the one that was asked for last
  FileFailure::Kind reason_ = FileFailure::Kind::None;
  bool sawFolder_ = false;    // the last step in vain has met the folder that it was to start from
  bool endedAtLink_ = false;  // and a link there that leads out of the drive, or nowhere
};

}  // namespace norvo
