#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "services/Component.h"

namespace norvo::host {

/// What a machine remembers of the neutral files that were restored on it: by path and content,
/// with the native playlists made of each. It stands in "Restored.txt" of the data area, is
/// written ahead of each step, and so survives a run that is killed: what such a run has left
/// unfinished is taken away before the next.
class RestoreLedger {
 public:
  /// Reads the machine's ledger. Playlists that were begun and not finished are deleted.
  RestoreLedger(Component& machine, const String& dataArea);

  /// True for a neutral file that was restored as it is now.
  bool IsRestored(const String& neutralFile);
  /// The native playlists made of a neutral file, in the order of their writing.
  std::vector<String> NativesOf(const String& neutralFile) const;

  void Begin(const String& neutralFile);
  void AddNative(const String& path);
  /// With `whole` false the native playlists are deleted and the neutral file counts as not
  /// restored.
  void End(bool whole);

  /// Writes the ledger anew, in the order of the neutral files' names.
  void Compact();

 private:
  struct Row {
    String neutralFile;
    std::string fingerprint;
    std::vector<String> natives;
  };

  bool Load();
  void Take(const std::vector<String>& fields);
  std::string FingerprintOf(const String& neutralFile);
  void Append(const std::string& line);
  void DeleteNatives(const Row& row);

  Component& machine_;
  String path_;
  void Keep();

  std::map<String, Row> restored_;  // by the folded path, so that the order ignores case
  std::optional<Row> current_;      // begun and not ended
};

}  // namespace norvo::host
