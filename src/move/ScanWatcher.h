#pragma once

#include <unordered_set>
#include <vector>

#include "move/LibraryWatcher.h"

namespace norvo {

/// Follows a scan as well: keeps which playlist files it meets, and which files it cannot read.
class ScanWatcher : public LibraryWatcher {
 public:
  using LibraryWatcher::LibraryWatcher;

  void OnPlaylistFile(StringView path) override { met_.emplace_back(path); }
  void OnWarning(const Warning& warning) override {
    if (warning.kind == WarningKind::FileNotRead) unread_.insert(warning.path);
    LibraryWatcher::OnWarning(warning);
  }

  /// Every playlist file, listed or not, in the order of the scan.
  const std::vector<String>& Met() const { return met_; }
  /// Whether the library has told of the file that it cannot be read.
  bool IsUnread(const String& path) const { return unread_.contains(path); }

 private:
  std::vector<String> met_;
  std::unordered_set<String> unread_;
};

}  // namespace norvo
