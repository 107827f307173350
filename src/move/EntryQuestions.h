#pragma once

#include <string>
#include <vector>

#include "overlay/OverlayPlatform.h"
#include "services/Component.h"

namespace norvo {

/// What an entry of a neutral file says, and the place that the new machine computes of it.
struct EntryAnswer {
  String place;
  String artist;
  String album;
  String fileName;
};

/// Asks the new machine's own entries where their songs belong.
class EntryQuestions {
 public:
  /// `overlay` lies over the new machine, and `library` works on it. Both must outlive this.
  EntryQuestions(Component& library, OverlayPlatform& overlay);

  /// All entries of a neutral file with this content. A file name is told only of an entry with an
  /// address.
  std::vector<EntryAnswer> AskFile(const std::string& bytes);
  /// An entry with these names.
  EntryAnswer Ask(const EntryAnswer& names);

 private:
  Component& library_;
  OverlayPlatform& overlay_;
  String draftPath_;  // where the overlay holds the neutral file that is being asked about
};

}  // namespace norvo
