#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <span>
#include <utility>

#include "automation/AutomationObject.h"
#include "services/Component.h"

namespace norvo {

/// Makes generic files on the old machine of entries that the library's own reading has not given
/// together, each under a name of its own.
class GenericFileMaker {
 public:
  /// The component must outlive this. `dataArea` with a trailing backslash.
  GenericFileMaker(Component& library, String dataArea)
      : library_(library), dataArea_(std::move(dataArea)) {}

  /// From now on no other file gets this path.
  void Take(const String& path) { taken_.insert(Fold(path)); }
  /// The path is free again: what stands there may be replaced.
  void Release(const String& path) { taken_.erase(Fold(path)); }

  /// Writes the entries as those of a playlist file of that name, with the properties of `read`,
  /// which the library has read of it. `number` tells the parts of a split playlist apart: " 2".
  /// The path of the generic file; empty when none can be written.
  String Write(AutomationObject& read, const String& fileName, const String& number,
               std::int32_t type, std::span<const ObjectRef> entries);

 private:
  ObjectRef NewRecord(AutomationObject& read, const String& fileName, std::int32_t type);
  bool Name(AutomationObject& playlist, const String& fileName, std::int32_t type, int attempt);

  Component& library_;
  String dataArea_;
  std::map<String, int> nextNames_;  // number of the next name to try, by the playlist's own
  std::set<String> taken_;           // paths that belong to a playlist, folded
};

}  // namespace norvo
