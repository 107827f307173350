#pragma once

#include <string_view>
#include <unordered_map>
#include <vector>

#include "lists/ListedItems.h"
#include "text/Fingerprint.h"

namespace norvo {

/// What the patient reader has found in list files, in a few bytes for each: a file that has the
/// same content when it is read afresh lists the same, and need not be taken apart once more.
class SeenLists {
 public:
  void Note(const String& path, Fingerprint bytes, const ListedItems& items) {
    std::vector<Fingerprint> references;
    references.reserve(items.size());
    for (const ListedItem& item : items) {
      references.push_back(FingerprintOf(item.references.front()));
    }
    seen_[path] = {bytes, FingerprintOf(references)};
  }

  /// True when these bytes were read of the file before and listed just these references, given by
  /// the fingerprints of their texts.
  bool Lists(const String& path, std::string_view bytes,
             const std::vector<Fingerprint>& references) const {
    const auto seen = seen_.find(path);
    return seen != seen_.end() && seen->second.bytes == FingerprintOf(bytes) &&
           seen->second.references == FingerprintOf(references);
  }

 private:
  struct List {
    Fingerprint bytes;
    Fingerprint references;
  };

  std::unordered_map<String, List> seen_;  // by path
};

}  // namespace norvo
