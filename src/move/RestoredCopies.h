#pragma once

#include <map>
#include <string>
#include <vector>

#include "services/Component.h"

namespace norvo {

/// The native playlists that restoring has made on a machine, by path and content: a later
/// collecting there does not take them for playlists of its own, unless somebody has changed them
/// since. They stand in "RestoredCopies.txt" of the data area.
class RestoredCopies {
 public:
  /// `machine` must outlive this. Raises when the file is there and cannot be read.
  RestoredCopies(Component& machine, const String& dataArea);

  /// Whether a playlist is such a copy, as it was made. What cannot be read is none.
  bool Has(const String& path) const;
  /// Notes playlists as they are now. Raises when the file cannot be written.
  void Add(const std::vector<String>& paths);

 private:
  void Take(std::string_view line);
  std::string PrintOf(const String& path) const;

  Component& machine_;
  String path_;
  struct Row {
    std::string print;
    String path;
  };
  std::map<String, Row> rows_;  // by the folded path
};

}  // namespace norvo
