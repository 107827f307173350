#pragma once

#include <functional>
#include <unordered_set>

#include "platform/hosted/DriveMap.h"
#include "platform/hosted/HostPath.h"
#include "services/FileSystem.h"

namespace norvo {

/// The file system service over the drives of a machine that is held in a folder.
class HostedFileSystem final : public FileSystem {
 public:
  using WarningSink = std::function<void(StringView)>;

  /// `drives` and what `warn` refers to must outlive this.
  HostedFileSystem(const DriveMap& drives, WarningSink warn)
      : drives_(drives), resolver_(drives), warn_(std::move(warn)) {}

  bool FolderExists(StringView path) override;
  std::optional<FileFacts> FactsOf(StringView path) override;
  void CreateFolder(StringView path) override;
  void RemoveFile(StringView path, bool force) override;
  std::unique_ptr<BinaryFile> OpenForReading(StringView path) override;
  std::unique_ptr<AppendFile> OpenForAppending(StringView path, bool create) override;
  /// Links to files are listed as files. Links to folders are left out, so that a walk through all
  /// folders ends; a path that names such a link leads into its folder all the same.
  std::vector<FolderItem> ListFolder(StringView path, std::span<const StringView> endings) override;
  String AbsolutePathName(StringView path) override;
  DriveType TypeOfDrive(StringView path) override;
  std::vector<Drive> Drives() override;
  String FileVersion(StringView path) override;
  String SystemFolder() override;
  Date LocalDate(FileTime time) override;

  /// Replaces a file whole, after creating the folders that are missing. Raises.
  void ReplaceWhole(StringView path, std::string_view bytes);

  /// What a path names on the host's disk, see HostPathResolver::Find.
  std::optional<HostEntry> Find(StringView path) { return resolver_.Find(path); }
  /// Opens a regular file for reading; tells where it stands and what it is. Raises HostCallError.
  HostFile OpenRegular(StringView path, HostPlace& place, HostFacts& facts);
  /// The folder of a file that a path names; it is created when it is missing. Raises
  /// HostCallError.
  HostPlace MakeFolderOf(StringView path);
  /// Where a file that a path names, and that does not exist, is to stand. Creates the folders that
  /// are missing. Raises HostCallError, `EEXIST` when a link that leads nowhere has the name.
  HostPlace PlaceOfNewFile(StringView path);
  /// To be called after a file was put at a place.
  void Written(const HostPlace& place) { resolver_.Written(place); }

 private:
  HostFile OpenExisting(StringView path, int flags, HostPlace& place);
  HostFile CreateForAppending(StringView path);
  HostFile OpenListed(StringView path, HostPlace& place);
  HostPlace CreateFolders(StringView path);
  HostPlace PlaceOfNew(const HostPlace& folder, StringView path);
  void WarnOfName(StringView folder, std::string_view name);
  [[noreturn]] void RaiseMissing(StringView path);

  const DriveMap& drives_;
  HostPathResolver resolver_;
  WarningSink warn_;
  /// The regular file that was looked at last: often it is the next one to be opened.
  HostPlace lastSeen_;
  std::uint64_t lastSize_ = 0;
  std::unordered_set<std::string> warned_;  // names that were reported
};

}  // namespace norvo
