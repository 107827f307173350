#pragma once

#include <vector>

#include "services/Component.h"
#include "services/IniDocument.h"

namespace norvo {

/// What an entry of a generic file says, and the place that the new machine computes of it.
struct EntryAnswer {
  String place;
  String artist;
  String album;
  String fileName;
};

/// Asks the new machine's own entries where their songs belong.
class EntryQuestions {
 public:
  /// `library` works on an overlay of the new machine, and must outlive this.
  explicit EntryQuestions(Component& library) : library_(library) {}

  /// All entries of a generic file, as if no file stood at their old addresses: what stands there
  /// may have been put there by an earlier run.
  std::vector<EntryAnswer> AskAll(const IniDocument& genericFile);
  /// An entry with these names.
  EntryAnswer Ask(const EntryAnswer& names);

 private:
  Component& library_;
};

}  // namespace norvo
