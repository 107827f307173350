#pragma once

#include <map>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "cli/Console.h"
#include "lists/ListedItems.h"
#include "lists/ReferenceFinder.h"
#include "move/Collecting.h"
#include "move/Move.h"
#include "move/Settings.h"
#include "move/SongBook.h"

namespace norvo {

/// Sees to it that every playlist file that the scan met has a neutral file with every song that it
/// lists. The library's readers take only what their own rules let through; here each file is
/// looked at once more, with more patience, and where the two differ, its neutral file is written
/// anew through a `PlayList` that has all entries.
class Rescue {
 public:
  /// What is referred to must outlive this.
  Rescue(Component& library, const Settings& settings, SongBook& songs, Console& console);

  /// The playlists in the order of the files; one with too many entries for one neutral file gives
  /// several.
  std::vector<MovedPlaylist> Run(const std::vector<CollectedFile>& files);

 private:
  /// An item that was found, with what the playlist tells of it.
  struct Wanted {
    MovedItem item;
    ListedItem listed;
  };
  /// One playlist file as the host itself understands it.
  struct Listing {
    ListSyntax syntax = ListSyntax::M3u;
    bool hasTitles = false;  ///< an M3U with "#EXT" lines
    std::vector<Wanted> wanted;
    std::vector<std::string> missed;
  };

  Listing Look(const String& path);
  void Find(const ListedItem& listed, const String& folder, Listing& listing);
  bool IsComplete(const CollectedFile& file, const Listing& listing, std::vector<MovedItem>& items);
  void Rewrite(const CollectedFile& file, const Listing& listing,
               std::vector<MovedPlaylist>& playlists);
  std::vector<ObjectRef> CompleteEntries(const std::vector<ObjectRef>& read, const Listing& listing,
                                         std::int32_t type, std::size_t& added);
  ObjectRef NewEntry(const Wanted& wanted, std::int32_t type);
  MovedItem ItemOf(AutomationObject& entry);
  std::int32_t FittingType(const String& path, const Listing& listing);
  ObjectRef NewPlaylist(AutomationObject& read, const String& fileName, std::int32_t type);
  bool Name(AutomationObject& playlist, const String& path, std::int32_t type, int attempt);
  /// `number` tells the parts of a split playlist apart: " 2".
  String Write(AutomationObject& read, const String& path, const String& number, std::int32_t type,
               std::span<const ObjectRef> entries);

  Component& library_;
  String dataArea_;
  SongBook& songs_;
  Console& console_;
  ReferenceFinder finder_;
  std::map<String, int> nextNames_;  // number of the next name to try, by the playlist's own
  std::set<String> taken_;           // neutral files that belong to a playlist, folded
};

}  // namespace norvo
