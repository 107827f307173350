#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "services/FileSystem.h"
#include "services/Registry.h"
#include "services/WarningSink.h"
#include "text/CodePage.h"
#include "text/Text.h"

namespace norvo {

/// Where the system keeps its special folders.
class ShellFolders {
 public:
  virtual ~ShellFolders() = default;

  /// What `FolderPath` gives.
  struct Answer {
    std::uint32_t status = 0;  ///< 0 or the code of a failure
    String path;               ///< the folder, after a success
  };
  /// The code for an identifier that is none.
  static constexpr std::uint32_t kInvalidArgumentStatus = 0x80070057;
  /// Added to an identifier: the folder is created when it is missing.
  static constexpr std::int32_t kCreateFlag = 0x8000;
  /// Identifier of the user's documents.
  static constexpr std::int32_t kDocuments = 5;

  /// `SHGetFolderPathA` with no owner window, no token and the current-path flag. Nothing when
  /// the system has no such function.
  virtual std::optional<Answer> FolderPath(std::int32_t identifierAndFlags) = 0;
  /// `SHGetSpecialFolderPathA` with no owner window and create = true; empty when it fails.
  virtual String SpecialFolderPath(std::int32_t identifier) = 0;
};

/// Where the product's own facts stand in the registry, and how they are named there.
namespace product_values {
inline constexpr StringView kBaseKey = u"SOFTWARE\\Norvo\\Migration";  ///< the key
inline constexpr StringView kFolder = u"ProductFolder";                ///< value: takes the log
inline constexpr StringView kName = u"ProductName";                    ///< value: title of messages
}  // namespace product_values

/// The product's own facts. Each may raise.
class ProductInformation {
 public:
  virtual ~ProductInformation() = default;
  /// Registry key of the product, below its hive, without a trailing backslash.
  virtual String BaseKey() = 0;
  /// Folder of the product, which takes the log. With a trailing backslash.
  virtual String Folder() = 0;
  /// What messages call the product.
  virtual String Name() = 0;
};

/// Whole settings files, read and written at once.
class SettingsStorage {
 public:
  virtual ~SettingsStorage() = default;
  /// The file's bytes. Nothing when there is no such file; raises when it cannot be read.
  virtual std::optional<std::string> Read(StringView path) = 0;
  /// Replaces the file whole: a temporary file beside it, flushed, then renamed. The folder is
  /// created when it is missing. Raises, with the old file untouched, when anything fails.
  virtual void Write(StringView path, const std::string& bytes) = 0;
};

/// One media file to be moved.
struct MediaRecord {
  String source;       ///< full path
  String destination;  ///< destination expression
  String category;     ///< name of the group that it belongs to
};

/// Durable list of the media files to be moved. The same source and destination, case ignored, is
/// kept once.
class MigrationList {
 public:
  virtual ~MigrationList() = default;
  /// Makes sure that the group exists under the root; false when the list cannot be kept.
  virtual bool EnsureGroup(StringView group, StringView root) = 0;
  /// Takes a record. True when it is in the list afterwards. It is durable after the next `Flush`.
  virtual bool Add(const MediaRecord& record) = 0;
  /// Makes durable what was added. False when something could not be written; it is kept for the
  /// next call.
  virtual bool Flush() = 0;
};

/// What a drive scan reports to.
class ScanVisitor {
 public:
  virtual ~ScanVisitor() = default;
  /// A folder is about to be listed; false skips it and all below. `path` has a trailing
  /// backslash only for a drive's root.
  virtual bool EnterFolder(StringView path) = 0;
  /// A file with a wanted ending; `folder` as in `EnterFolder`.
  virtual void VisitFile(StringView folder, StringView name) = 0;
  /// The walk goes on elsewhere; `reason` is the error's description.
  virtual void CannotList(StringView folder, StringView reason) = 0;
};

/// Walks the folders of all fixed drives: drives in letter order; in each folder the names in
/// order without regard to case, files before sub-folders.
class DriveScanner {
 public:
  virtual ~DriveScanner() = default;
  /// Visits all folders, and the files whose last characters are one of `endings`.
  virtual void Scan(std::span<const StringView> endings, ScanVisitor& visitor) = 0;
};

/// Shows a text that needs to be confirmed.
class MessageDialog {
 public:
  virtual ~MessageDialog() = default;
  /// Returns when the user has confirmed.
  virtual void Show(StringView title, StringView text) = 0;
};

/// Everything that the library asks of the machine it works on.
class Platform {
 public:
  virtual ~Platform() = default;
  // Each service lives as long as the platform.

  /// The disks.
  virtual FileSystem& Files() = 0;
  /// The registry.
  virtual norvo::Registry& Registry() = 0;
  /// Where the system keeps its special folders.
  virtual ShellFolders& Shell() = 0;
  /// The product's own facts.
  virtual ProductInformation& Product() = 0;
  /// Settings files on the disks.
  virtual SettingsStorage& Settings() = 0;
  /// The list of the media files to be moved.
  virtual MigrationList& Migration() = 0;
  /// Null where the machine has no drive scanner; raises when it cannot be created.
  virtual DriveScanner* Scanner() = 0;
  /// Shows the messages of the library.
  virtual MessageDialog& Messages() = 0;
  /// The 8-bit code page of the machine's files.
  virtual const CodePage& AnsiPage() = 0;
  /// Where a path of the machine is on the system that the process runs on, in UTF-8, as far as it
  /// exists; for messages. Empty when it can be nowhere, or the platform cannot tell.
  virtual std::string SystemPathOf(StringView) { return {}; }
  /// Where the platform tells what it had to leave out, such as names that no path can reach. The
  /// component takes them into the log; a host may set another place afterwards.
  virtual void SetWarningSink(WarningSink) {}
};

}  // namespace norvo
