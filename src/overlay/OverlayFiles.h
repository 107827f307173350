#pragma once

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "services/Platform.h"

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
  };
  /// Shared with those who have the file open, as on a disk.
  struct Content {
    std::string bytes;
    FileTime created = 0;
    std::int64_t modified = 0;
  };
  struct Node {
    enum class Kind { Folder, File, Deleted };
    Kind kind = Kind::Folder;
    String path;
    std::shared_ptr<Content> content;  // of a written file
    FileFacts facts;                   // of a pretended file
    std::size_t order = 0;             // of writing, from 1
  };
  /// By key: what lies below a folder follows upon the folder's key and a separator.
  using Tree = std::map<String, Node>;
  class OpenedFile;
  class GrowingFile;

  Place PlaceOf(StringView path) const;
  const Node* Find(const Place& place) const;
  const Node* RequireFile(StringView path);
  std::vector<Place> MissingFolders(StringView folder);
  bool FolderExistsBelow(const Place& place, StringView path);
  std::optional<FileFacts> FactsBelow(const Place& place, StringView path);
  bool IsInMissingFolder(const Place& place) const;
  void TakeBack(const Place& place);
  void RequireFreeForFile(StringView path, const Place& place);
  std::shared_ptr<Content> Keep(const Place& place, Content content);
  Tree ChildrenOf(const Place& folder) const;
  [[noreturn]] void RaiseMissing(StringView path);

  /// The same without the order. Keys are folded, so that they may be compared as any names are: by
  /// the word, not by the unit.
  template <class Value>
  using Table = std::unordered_map<String, Value, std::hash<String>, CaselessEqual>;

  Platform& below_;
  Tree written_;  // with all folders that were created, and all files that were deleted
  // Thousands are pretended and asked for one by one, which a hash answers quicker than a tree.
  Table<Node> pretended_;                // files alone: the folders above them go with them
  std::set<StringView> pretendedKeys_;   // of these, as folders are listed
  Table<std::size_t> pretendedFolders_;  // by key; files in and below each
  std::size_t lastOrder_ = 0;
  bool remembers_ = false;
  // Answers of the machine below, by key.
  Table<bool> foldersBelow_;
  Table<std::optional<FileFacts>> factsBelow_;
};

}  // namespace norvo
