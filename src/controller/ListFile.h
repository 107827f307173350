#pragma once

#include <cstdint>
#include <map>
#include <vector>

#include "services/Component.h"
#include "services/ProfileFile.h"

namespace norvo {

/// The list file "PlayLists.txt": a header section with the totals, and one section per playlist
/// type with the full paths. Reading it consumes it.
class ListFile {
 public:
  /// `groupRoot` also names the header section; without one there is no list file.
  ListFile(Component& component, StringView groupRoot);

  /// Deletes the file, also when it is read-only, and starts a new list. Error 76 without a group
  /// root.
  void Restart();
  /// Records one playlist under its type's next number. Other codes are not recorded.
  void Record(StringView path, std::int32_t type);
  /// Writes the file, when anything was recorded.
  void Save();

  /// The listed paths in the order of `QueuedTypes`, then deletes the file. A file without the
  /// header section lists nothing and stays.
  std::vector<String> Consume();

 private:
  std::vector<std::int32_t> ReadTotals();
  std::vector<String> ReadPaths();
  String PathOfFile() const;
  void OpenIfClosed();

  Component& component_;
  String headerSection_;
  String folder_;
  ProfileFile file_;
  bool open_ = false;
  std::map<std::int32_t, std::int32_t> counters_;  // by type code
};

}  // namespace norvo
