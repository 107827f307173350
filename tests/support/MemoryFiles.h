#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "services/FileSystem.h"
#include "services/Platform.h"
#include "services/SharedFile.h"
#include "support/CallLog.h"

namespace norvo {

/// 14 May 2003, 10:12:00: creation date of a file that is given no other.
inline constexpr FileTime kUsualFileTime = 1052907120;

/// Drives, folders and files in memory, with Windows' rules for names: case does not matter but is
/// kept, trailing points and blanks of a component do not matter. Local time is UTC here. What the
/// tests use to set up and look at the tree is neither counted nor made to fail.
class MemoryFiles final : public FileSystem, public SharedFiles, public SettingsStorage {
 public:
  explicit MemoryFiles(CallLog& calls);
  ~MemoryFiles() override;

  void AddDrive(char16_t letter, DriveType type);
  /// Creates the folders above, and a missing drive as a fixed one; replaces a file.
  void AddFile(StringView path, std::string_view bytes, FileTime created = kUsualFileTime);
  void AddFolder(StringView path);
  void RemoveFile(StringView path);
  void SetReadOnly(StringView path);
  /// Opening the file, or listing the folder, raises error 70 from now on.
  void Deny(StringView path);
  /// Opening the file, and looking for it, raises error 57 from now on.
  void Break(StringView path);
  void SetVersion(StringView path, StringView version);

  bool HasFile(StringView path) const;
  bool HasFolder(StringView path) const;
  /// Content of a file; throws std::out_of_range when there is none.
  const std::string& Bytes(StringView path) const;
  /// Full paths of all files, drive by drive, in name order.
  std::vector<String> AllFiles() const;

  bool FolderExists(StringView path) override;
  std::optional<FileFacts> FactsOf(StringView path) override;
  void CreateFolder(StringView path) override;
  void RemoveFile(StringView path, bool force) override;
  std::unique_ptr<BinaryFile> OpenForReading(StringView path) override;
  std::unique_ptr<AppendFile> OpenForAppending(StringView path, bool create) override;
  /// Nobody waits.
  std::unique_ptr<SharedFile> OpenShared(StringView path) override;
  void MakeDurable(std::span<const String> paths) override;
  /// Sub-folders and files mixed, in reverse name order.
  std::vector<FolderItem> ListFolder(StringView path, std::span<const StringView> endings) override;
  String AbsolutePathName(StringView path) override;
  DriveType TypeOfDrive(StringView path) override;
  std::vector<Drive> Drives() override;
  String FileVersion(StringView path) override;
  String SystemFolder() override;
  Date LocalDate(FileTime time) override;

  std::optional<std::string> Read(StringView path) override;
  void Write(StringView path, const std::string& bytes) override;

 private:
  struct Node;
  using NodeRef = std::shared_ptr<Node>;
  class OpenedFile;
  class GrowingFile;
  class CommonFile;

  NodeRef Find(StringView path) const;
  NodeRef FindFile(StringView path) const;
  NodeRef RequireNode(StringView path) const;
  NodeRef RequireFile(StringView path) const;
  NodeRef RequireParent(StringView path) const;
  NodeRef MakeFolder(StringView path);

  /// A time that no file has had before: every change can be told.
  std::int64_t NextModified() { return ++lastModified_; }

  CallLog& calls_;
  std::int64_t lastModified_ = 0;
  std::map<char16_t, Drive> drives_;
  std::map<char16_t, NodeRef> roots_;
  std::map<String, String> versions_;  // by folded path
};

}  // namespace norvo
