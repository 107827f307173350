#pragma once

#include <windows.h>

#include <functional>
#include <unordered_set>

#include "platform/windows/UniqueHandle.h"
#include "platform/windows/WindowsError.h"
#include "services/FileSystem.h"
#include "services/SharedFile.h"

namespace norvo {

/// The machine's own disks.
class WindowsFileSystem final : public FileSystem, public SharedFiles {
 public:
  /// What `warn` refers to must outlive this.
  explicit WindowsFileSystem(std::function<void(StringView)> warn) : warn_(std::move(warn)) {}

  bool FolderExists(StringView path) override;
  /// `FindFirstFileExW`. Of a link the facts of the file that it leads to, under the link's name.
  std::optional<FileFacts> FactsOf(StringView path) override;
  /// `CreateDirectoryW`.
  void CreateFolder(StringView path) override;
  /// `DeleteFileW`.
  void RemoveFile(StringView path, bool force) override;
  /// `CreateFileW`; others may read, write and delete the file meanwhile.
  std::unique_ptr<BinaryFile> OpenForReading(StringView path) override;
  /// `CreateFileW`; others may read the file and add to it meanwhile.
  std::unique_ptr<AppendFile> OpenForAppending(StringView path, bool create) override;
  /// `CreateFileW` and `LockFileEx`; others may read the file meanwhile.
  std::unique_ptr<SharedFile> OpenShared(StringView path) override;
  /// `FlushFileBuffers`.
  void MakeDurable(std::span<const String> paths) override;
  /// Links to files are listed as files. Junctions, links to folders and mounted disks are left
  /// out, so that a walk through all folders ends; a path that names one leads into its folder all
  /// the same. Of a mounted disk that no letter leads to, `warn` is told once.
  std::vector<FolderItem> ListFolder(StringView path, std::span<const StringView> endings) override;
  /// From the drive of the process's current folder.
  String AbsolutePathName(StringView path) override;
  /// `GetDriveTypeW`; a share is Network.
  DriveType TypeOfDrive(StringView path) override;
  /// `GetLogicalDrives`.
  std::vector<Drive> Drives() override;
  /// The numbers of the file version, as `GetFileVersionInfoW` finds them: "6.0.2800.1106".
  String FileVersion(StringView path) override;
  String SystemFolder() override;
  Date LocalDate(FileTime time) override;

  /// Creates the folders that are missing, from the drive or share on. Raises.
  void MakeFolders(StringView folder);

 private:
  FileHandle OpenFile(StringView path, DWORD access, DWORD sharing, bool create);
  SearchHandle OpenListing(StringView path, WIN32_FIND_DATAW& found);
  [[noreturn]] void RaiseUnusable(DWORD reason, StringView path);
  bool WasTold(StringView folder, StringView name);
  void WarnOfName(StringView folder, StringView name);
  void WarnOfMountedDisk(StringView folder, StringView name);

  std::function<void(StringView)> warn_;
  std::unordered_set<String> warned_;  // paths that were reported
};

}  // namespace norvo
