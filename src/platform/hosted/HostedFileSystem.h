#pragma once

#include <unordered_set>

#include "platform/files/LastFolder.h"
#include "platform/files/SystemCalls.h"
#include "platform/hosted/DriveMap.h"
#include "platform/hosted/PathResolver.h"
#include "services/FileSystem.h"
#include "services/SharedFile.h"
#include "services/WarningSink.h"

namespace norvo {

/// A regular file, open for reading.
struct OpenedFile {
  SystemFile file;
  DrivePath path;  ///< where it stands
  FileRecord record;
};

/// The file system service over the drives of a machine that is held in a folder.
class HostedFileSystem final : public FileSystem, public SharedFiles {
 public:
  using ListingSink = std::function<void(StringView folder, std::span<const FolderItem> items)>;

  /// `drives` and what `warn` refers to must outlive this.
  HostedFileSystem(const DriveMap& drives, WarningSink warn)
      : drives_(drives), resolver_(drives), warn_(std::move(warn)) {}

  bool FolderExists(StringView path) override;
  std::optional<FileFacts> FactsOf(StringView path) override;
  void CreateFolder(StringView path) override;
  void RemoveFile(StringView path, bool force) override;
  std::unique_ptr<BinaryFile> OpenForReading(StringView path) override;
  std::unique_ptr<AppendFile> OpenForAppending(StringView path, bool create) override;
  /// By the system's lock of the file.
  std::unique_ptr<SharedFile> OpenShared(StringView path) override;
  void MakeDurable(std::span<const String> paths) override;
  /// Links to files are listed as files. Links to folders are left out, so that a walk through all
  /// folders ends; a path that names such a link leads into its folder all the same.
  std::vector<FolderItem> ListFolder(StringView path, std::span<const StringView> endings) override;
  String AbsolutePathName(StringView path) override;
  DriveType TypeOfDrive(StringView path) override;
  std::vector<Drive> Drives() override;
  String FileVersion(StringView path) override;
  String SystemFolder() override;
  Date LocalDate(FileTime time) override;

  /// Is told of each folder that is listed from now on; see HostedPlatform.
  void SetListingSink(ListingSink sink) { listed_ = std::move(sink); }

  /// Replaces a file whole, after creating the folders that are missing. Raises.
  void ReplaceWhole(StringView path, std::string_view bytes);

  /// What a path names on the disk, see PathResolver::Find.
  std::optional<DiskEntry> Find(StringView path) { return resolver_.Find(path); }
  /// Opens a regular file for reading. Raises FileError. With `folders` files that are opened one
  /// after the other and stand together are found in their folder as it was for the first of them.
  OpenedFile OpenRegular(StringView path, LastFolder* folders = nullptr);
  /// The folder of a file that a path names; it is created when it is missing. Raises FileError.
  DrivePath MakeFolderOf(StringView path);
  /// Where a file that a path names, and that does not exist, is to stand. Creates the folders that
  /// are missing. Raises FileError, AlreadyExists when a link that leads nowhere has the name.
  DrivePath PathOfNewFile(StringView path);
  /// To be called after a file was put somewhere.
  void Written(const DrivePath& file) { resolver_.Written(file); }

 private:
  struct Opened {
    DrivePath path;
    SystemFile file;
    bool wasSeen = false;  ///< by the look-up just before, whose size holds
  };
  std::optional<Opened> OpenAsSpelled(StringView path, OpenMode mode,
                                      LastFolder* folders = nullptr);
  std::optional<Opened> OpenExisting(StringView path, OpenMode mode, LastFolder* folders = nullptr);
  Opened Create(StringView path, OpenMode mode);
  void Flush(std::span<const String> paths);
  Opened OpenListed(StringView path);
  DrivePath CreateFolders(StringView path);
  DrivePath PathOfNew(const DrivePath& folder, StringView path);
  void WarnOfName(StringView folder, std::string_view name);
  bool WasTold(std::string what);
  void WarnOfLink(StringView path);
  void NoteLink(StringView path, StringView text);
  void WarnOfDenial(StringView path);
  std::optional<DiskEntry> Look(StringView path);
  [[noreturn]] void RaiseMissing(StringView path);

  const DriveMap& drives_;
  PathResolver resolver_;
  WarningSink warn_;
  ListingSink listed_;
  /// The regular file that was looked at last: often it is the next one to be opened.
  DrivePath lastSeen_;
  String lastAsked_;  // the path that led there
  std::uint64_t lastSize_ = 0;
  std::unordered_set<std::string> warned_;  // names, and folders, that were reported
};

}  // namespace norvo
