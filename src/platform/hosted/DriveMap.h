#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/files/SystemFile.h"
#include "platform/hosted/HostedLayout.h"
#include "services/FileSystem.h"

namespace norvo {

/// One drive of the machine and the folder that holds its contents. The folder of a drive may be
/// missing, like a disc that is not inserted.
class DriveFolder {
 public:
  DriveFolder(char16_t letter, DriveType type, std::string folder)
      : letter_(letter), type_(type), folder_(std::move(folder)) {}

  char16_t Letter() const { return letter_; }
  DriveType Type() const { return type_; }
  /// The system's path of the folder, as files/DiskPath.h has it.
  const std::string& Folder() const { return folder_; }
  /// The open folder, to be the start of other paths; not open while there is none.
  const SystemFile& Root() const;
  /// The system's path of what a path in the drive leads to when all links are followed; nothing
  /// when it leads nowhere.
  std::optional<std::string> RealPathOf(const std::string& path) const;
  /// The path in the drive of such a path; nothing when it lies elsewhere.
  std::optional<std::string> PathWithin(const std::string& realPath) const;
  /// A path in the drive by the names that short ones ("LONGNA~1.MP3") of a disk of Windows stand
  /// for; nothing where it has none.
  std::optional<std::string> LongPathOf(const std::string& path) const;

 private:
  char16_t letter_;
  DriveType type_;
  std::string folder_;
  mutable SystemFile root_;
  mutable std::string realFolder_;  // without links and last separator; set together with root_
};

/// A path in a drive as the disk has it: relative to the drive's folder, separated by "/", the
/// drive's folder itself empty.
struct DrivePath {
  const DriveFolder* drive = nullptr;
  std::string path;
};

/// The drives of a machine by their letters.
class DriveMap {
 public:
  /// See HostedLayout::linksCross.
  explicit DriveMap(const std::vector<HostedDrive>& drives, bool linksCross = false);

  /// Null for a drive that the machine lacks; the letter in either case.
  const DriveFolder* Find(char16_t letter) const;
  std::vector<Drive> List() const;
  /// Where a path of a drive leads when all links are followed; nothing when that is nowhere, or
  /// where no link may lead.
  std::optional<DrivePath> Follow(const DriveFolder& drive, const std::string& path) const;

 private:
  std::array<std::unique_ptr<DriveFolder>, 26> drives_;
  bool linksCross_;
};

}  // namespace norvo
