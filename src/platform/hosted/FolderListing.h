#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/files/SystemCalls.h"
#include "platform/hosted/DriveMap.h"

namespace norvo {

/// The names of one folder, to be found without regard to case.
class FolderListing {
 public:
  /// Reads an open folder; nothing when that fails.
  static std::optional<FolderListing> Of(SystemFile folder);

  /// The name that differs from the sought one only in case and trailing points and blanks; of
  /// several the first in byte order. Empty when there is none. The view lives as long as this.
  std::string_view Find(StringView name) const;
  /// Takes in a name that this platform has just put into the folder, and the folder's record
  /// after that.
  void Insert(std::string_view name, const FileRecord& folder);
  /// True when a folder with this record still holds the same names.
  bool IsCurrent(const FileRecord& folder) const;

 private:
  struct Row {
    std::uint64_t hash;
    std::uint32_t offset;  // into names_
    std::uint32_t length;
  };

  std::string_view NameOf(const Row& row) const;
  std::optional<Row> Append(std::string_view name);
  bool IsBefore(const Row& left, const Row& right) const;
  void Note(const FileRecord& folder);

  std::string names_;
  std::vector<Row> rows_;  // by hash, then by name
  DiskTime modified_;
  DiskTime changed_;
  bool lasting_ = false;  // every later change of the folder shows in its times
};

/// The listings of the folders that were searched last.
class ListingCache {
 public:
  /// The name as the disk spells it, see FolderListing::Find; nothing when no such folder can be
  /// read.
  std::optional<std::string> Find(const DriveFolder& drive, const std::string& folder,
                                  StringView name);
  /// To be called after this platform has written a file: a folder that gets many new files is so
  /// listed once, not once for each.
  void Written(const DriveFolder& drive, std::string_view folder, std::string_view name);
  /// To be called after every other change to a folder that this platform makes itself.
  void Forget(const DriveFolder& drive, std::string_view folder);

 private:
  struct Slot {
    const DriveFolder* drive = nullptr;
    std::string folder;
    FolderListing listing;
    std::uint64_t used = 0;
  };
  Slot* SlotOf(const DriveFolder& drive, std::string_view folder);
  Slot& Keep(const DriveFolder& drive, const std::string& folder, FolderListing listing);

  std::vector<Slot> slots_;
  std::uint64_t uses_ = 0;
};

}  // namespace norvo
