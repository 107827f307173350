#pragma once

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "overlay/WrittenFile.h"
#include "services/Platform.h"
#include "text/Fingerprint.h"

namespace norvo {

/// The files of the machine below with what was written and pretended since; see OverlayPlatform.
class OverlayFiles final : public FileSystem, public SettingsStorage {
 public:
  /// `below` must outlive this.
  explicit OverlayFiles(Platform& below) : below_(below) {}

  void Remember() { remembers_ = true; }
  void Forget();
  void Pretend(StringView path, const FileFacts& facts);
  void TakeBack(StringView path) { TakeBack(PlaceOf(path)); }
  void TakeBackAll();
  std::optional<std::string> Written(StringView path) const;
  std::vector<String> WrittenPaths() const;
  /// Creates the folder and those above it that are missing. Error 75 when a file is in the way,
  /// 76 when the machine lacks the drive.
  void CreateFolders(StringView path);

  bool FolderExists(StringView path) override;
  std::optional<FileFacts> FactsOf(StringView path) override;
  void CreateFolder(StringView path) override;
  void RemoveFile(StringView path, bool force) override;
  std::unique_ptr<BinaryFile> OpenForReading(StringView path) override;
  /// Nothing was written to a disk.
  void MakeDurable(std::span<const String>) override {}
  std::unique_ptr<AppendFile> OpenForAppending(StringView path, bool create) override;
  std::vector<FolderItem> ListFolder(StringView path, std::span<const StringView> endings) override;
  String AbsolutePathName(StringView path) override {
    return below_.Files().AbsolutePathName(path);
  }
  DriveType TypeOfDrive(StringView path) override { return below_.Files().TypeOfDrive(path); }
  std::vector<Drive> Drives() override { return below_.Files().Drives(); }
  String FileVersion(StringView path) override;
  String SystemFolder() override { return below_.Files().SystemFolder(); }
  Date LocalDate(FileTime time) override { return below_.Files().LocalDate(time); }

  std::optional<std::string> Read(StringView path) override;
  void Write(StringView path, const std::string& bytes) override;

 private:
  /// What a path names, whether or not it exists.
  struct Place {
    String path;  ///< in full, without trailing separator, points and blanks; empty for no path
    String key;   ///< the same in upper case
    bool asFolder = false;  ///< the path had a trailing separator: it names a folder

    StringView Folder() const;  ///< with a trailing separator; empty above a root
    StringView Name() const { return StringView(path).substr(Folder().size()); }
    StringView FolderKey() const { return StringView(key).substr(0, key.rfind(u'\\')); }
  };
  /// Shared with those who have the file open, as on a disk.
  using Content = std::shared_ptr<WrittenFile>;
  struct Node {
    enum class Kind { Folder, File, Deleted };
    Kind kind = Kind::Folder;
    String path;
    Content content;        // of a file
    std::size_t order = 0;  // of writing, from 1
  };
  /// Of a pretended file; its name is known otherwise.
  struct Pretended {
    double size = 0;
    FileTime created = 0;
    std::int64_t modified = 0;
  };
  /// A folder with pretended files in it or below. Thousands are pretended in all, and asked for
  /// one by one, which a hash answers quicker than a tree.
  struct PretendedFolder {
    using Files = std::unordered_map<String, Pretended, CaselessHash, CaselessEqual>;
    String path;
    Files files;            // by their names, in their own spelling
    std::size_t count = 0;  // with those below
  };
  /// What was written or pretended at a path; nothing of it where the machine below is to be asked.
  struct Found {
    const PretendedFolder* folder = nullptr;
    const PretendedFolder::Files::value_type* file = nullptr;
    const Node* node = nullptr;

    bool IsAny() const { return folder != nullptr || file != nullptr || node != nullptr; }
    bool IsFolder() const;
    bool IsFile() const;
    /// Of a written file; null for all else.
    Content Written() const { return node == nullptr ? nullptr : node->content; }
  };
  /// By key: what lies below a folder follows upon the folder's key and a separator.
  using Tree = std::map<String, Node>;
  class Use;
  class OpenedFile;
  class GrowingFile;

  Place PlaceOf(StringView path) const;
  template <class Visit>
  static void ForEachFolderAbove(const Place& place, Visit&& visit);
  Found Find(const Place& place) const;
  const PretendedFolder::Files::value_type* FindPretended(const Place& place) const;
  Found RequireFile(StringView path);
  std::vector<Place> MissingFolders(StringView folder);
  bool FolderExistsBelow(const Place& place, StringView path);
  std::optional<FileFacts> FactsBelow(const Place& place, StringView path);
  void FindMissingFolders(const Place& file);
  bool IsInMissingFolder(const Place& place) const;
  void TakeBack(const Place& place);
  void RequireFreeForFile(StringView path, const Place& place);
  Content Keep(const Place& place, WrittenFile content);
  Tree ChildrenOf(const Place& folder) const;
  [[noreturn]] void RaiseMissing(StringView path);

  /// The same without the order. Keys are folded, so that they may be compared as any names are: by
  /// the word, not by the unit.
  template <class Value>
  using Table = std::unordered_map<String, Value, UnitHash, CaselessEqual>;

  Platform& below_;
  Tree written_;  // with all folders that were created, and all files that were deleted
  Table<PretendedFolder> pretended_;    // by key
  std::set<StringView> pretendedKeys_;  // of these, as folders are listed
  std::size_t lastOrder_ = 0;
  bool remembers_ = false;
  // Answers of the machine below, by key. A file that is not there is known by the fingerprint of
  // its key, since there are as many as there are songs.
  Table<bool> foldersBelow_;
  Table<FileFacts> factsBelow_;
  std::unordered_set<Fingerprint, FingerprintHash> missingBelow_;
};

}  // namespace norvo
