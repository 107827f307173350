#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "automation/Variant.h"
#include "text/Text.h"

namespace norvo {

/// Seconds since 1 January 1970, UTC.
using FileTime = std::int64_t;

/// What one look-up tells about an existing file.
struct FileFacts {
  String name;           ///< the file's own name as the disk spells it, without its folder
  double size = 0;       ///< bytes
  FileTime created = 0;  ///< creation, as far as the disk knows it
  /// Last write, in nanoseconds since 1970 as far as the disk counts them.
  std::int64_t modified = 0;
};

/// Tells whether a file is still the one that was looked at before; as in `FileFacts`.
struct FileStamp {
  double size = 0;                                    ///< bytes
  std::int64_t modified = 0;                          ///< nanoseconds since 1970
  bool operator==(const FileStamp&) const = default;  ///< both are the same
};

/// Codes of the file system service.
enum class DriveType {
  Unknown = 0,    ///< or a drive that is not there
  Removable = 1,  ///< diskettes and the like
  Fixed = 2,      ///< the only drives that are searched for playlists
  Network = 3,    ///< a share that has a letter
  CdRom = 4,      ///< discs
  RamDisk = 5     ///< in memory
};

/// One drive of a machine.
struct Drive {
  char16_t letter = u'C';               ///< upper case
  DriveType type = DriveType::Unknown;  ///< what it holds
};

/// What a folder lists.
struct FolderItem {
  String name;            ///< as the disk spells it, without the folder
  bool isFolder = false;  ///< else a file
};

/// An open file, read at any place. Closed when it is destroyed.
class BinaryFile {
 public:
  virtual ~BinaryFile() = default;
  /// Reads up to `buffer.size()` bytes from a 0-based offset; fewer only at the file's end.
  /// Raises error 57 when the disk fails.
  virtual std::size_t ReadAt(std::uint64_t offset, std::span<char> buffer) = 0;
  /// Bytes. Raises error 57 when the disk fails.
  virtual std::uint64_t Size() = 0;
};

/// An open file that grows at its end. Closed when it is destroyed.
class AppendFile {
 public:
  virtual ~AppendFile() = default;
  /// All bytes in one write, so that lines of two writers do not mix. Raises error 61 on a full
  /// disk and 57 when the disk fails.
  virtual void Append(std::string_view bytes) = 0;
};

/// The disk. Paths are Windows paths; both separators do, case does not matter. Questions answer
/// false or nothing for what does not exist; operations raise a run-time error (53 file not found,
/// 70 permission denied, 75 path/file access, 76 path not found, 61 disk full, 57 device).
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  /// A drive's root counts as a folder.
  virtual bool FolderExists(StringView path) = 0;
  /// Facts of the file at the path; nothing when there is no file (a folder is none).
  virtual std::optional<FileFacts> FactsOf(StringView path) = 0;
  /// True when there is a file at the path.
  bool FileExists(StringView path) { return FactsOf(path).has_value(); }

  /// Creates one folder; its parent must exist.
  virtual void CreateFolder(StringView path) = 0;
  /// Deletes a file, with `force` also one that is read-only.
  virtual void RemoveFile(StringView path, bool force) = 0;

  /// Never null.
  virtual std::unique_ptr<BinaryFile> OpenForReading(StringView path) = 0;
  /// Never null; with `create` a file that is missing is made.
  virtual std::unique_ptr<AppendFile> OpenForAppending(StringView path, bool create) = 0;

  /// Waits until what was written to the files would outlast a loss of power, as far as the system
  /// can tell; passes over those that are not there.
  virtual void MakeDurable(std::span<const String> paths) = 0;

  /// Names in a folder: all sub-folders, and the files whose last characters are one of `endings`
  /// without regard to case (all files when there are none). In no particular order.
  virtual std::vector<FolderItem> ListFolder(StringView path,
                                             std::span<const StringView> endings) = 0;

  /// The path in full, as text/WindowsPath.h gives it, from the machine's current drive.
  virtual String AbsolutePathName(StringView path) = 0;
  /// Type of the drive of a path ("C:" or longer); Unknown for a drive that the machine lacks.
  virtual DriveType TypeOfDrive(StringView path) = 0;
  /// All drives, in letter order.
  virtual std::vector<Drive> Drives() = 0;

  /// Version text of a program file; empty when it carries none.
  virtual String FileVersion(StringView path) = 0;
  /// Folder of the system's own program libraries, with a trailing backslash.
  virtual String SystemFolder() = 0;

  /// The same moment in the machine's local time.
  virtual Date LocalDate(FileTime time) = 0;
};

/// Whether `ListFolder` gives a file of that name.
inline bool HasWantedEnding(StringView name, std::span<const StringView> endings) {
  const auto ends = [name](StringView ending) { return EndsWithIgnoreCase(name, ending); };
  return endings.empty() || std::any_of(endings.begin(), endings.end(), ends);
}

}  // namespace norvo
