#pragma once

#include <map>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "lists/ListedFile.h"
#include "lists/ReferenceFinder.h"
#include "lists/SongSearch.h"
#include "move/CollectPlaylists.h"
#include "move/MoveWork.h"
#include "move/ProductSettings.h"
#include "move/SongBook.h"
#include "move/StockTaking.h"

namespace norvo {

/// Sees to it that every playlist of the old machine has a generic file with every song that it
/// lists, or is told of. The library finds three kinds of files, and its readers take only what
/// their own rules let through; here each file is looked at once more, with more patience, and
/// where the two differ, its generic file is written anew through a `PlayList` that has all
/// entries.
class Rescue {
 public:
  /// What is referred to must outlive this.
  Rescue(Component& library, const ProductSettings& settings, const Stock& stock, SongBook& songs,
         MoveWork& work);

  /// Adds the playlists in the order of the files; one with too many entries for one generic file
  /// gives several, as does a file that holds several.
  void Run(const CollectResult& collected);

 private:
  /// A playlist file, and what the queue made of it.
  struct CollectedFile {
    StockList stock;
    std::int32_t type = 0;
    bool isMet = false;                      // by the scan
    bool isListed = false;                   // for the queue
    std::optional<PlaylistOutcome> outcome;  // nothing: the queue never came to its end
    String genericFile;                      // empty when there is none that is its own
  };
  /// An item with what the playlist tells of it.
  struct FoundItem {
    MovedItem item;
    ListedItem listed;
  };
  /// One playlist as the patient reader understands it.
  struct Listing {
    ListSyntax syntax = ListSyntax::M3u;
    String name;             // its own, in a file that may hold several
    bool hasTitles = false;  // an M3U with "#EXT" lines
    bool hasSongs = false;   // or addresses
    std::vector<FoundItem> items;
    Fingerprint content;
  };

  /// A file as it understands it.
  struct LookedAt {
    std::vector<Listing> listings;
    bool isDamaged = false;
  };

  std::vector<CollectedFile> FilesOf(const CollectResult& collected) const;
  static Mending::Kind WhyLost(const CollectedFile& file);
  static MovedPlaylist NewPlaylist(const CollectedFile& file);
  void Take(const CollectedFile& file);
  void TakeLists(const CollectedFile& file);
  void TakeList(const CollectedFile& file, const Listing& listing);
  void Add(MovedPlaylist playlist, PlaylistDraft draft);
  static void AddItem(const FoundItem& found, MovedPlaylist& playlist, PlaylistDraft& draft);
  void WarnOfDamage(const String& path);
  LookedAt Look(const String& path);
  Listing Resolve(const ListedList& list, const String& folder, ListSyntax syntax);
  FoundItem Find(const ListedItem& listed, const String& folder, bool isMarkup);
  void SearchFor(const ListedItem& listed, MovedItem& item);
  IniDocument ReadGenericFile(const String& path);
  bool IsComplete(const Listing& listing, MovedPlaylist& playlist, PlaylistDraft& draft);
  ObjectRef ReadByLibrary(const CollectedFile& file, std::int32_t type);
  void Rewrite(const CollectedFile& file, const Listing& listing);
  MovedPlaylist NewPart(const CollectedFile& file, std::int32_t type, std::size_t added,
                        bool isSplit);
  std::vector<ObjectRef> CompleteEntries(const std::vector<ObjectRef>& read, const Listing& listing,
                                         std::int32_t type, std::size_t& added);
  ObjectRef NewEntry(const FoundItem& found, std::int32_t type);
  MovedItem ItemOf(const String& address, std::int32_t urlType);
  std::int32_t FittingType(const CollectedFile& file, const Listing& listing);
  ObjectRef NewRecord(AutomationObject& read, const String& fileName, std::int32_t type);
  bool Name(AutomationObject& playlist, const String& fileName, std::int32_t type, int attempt);
  /// `number` tells the parts of a split playlist apart: " 2".
  String Write(AutomationObject& read, const String& fileName, const String& number,
               std::int32_t type, std::span<const ObjectRef> entries);

  Component& library_;
  String dataArea_;
  SongBook& songs_;
  MoveWork& work_;
  const Stock& stock_;
  ReferenceFinder finder_;
  SongSearch search_;
  std::map<String, int> nextNames_;  // number of the next name to try, by the playlist's own
  std::set<String> taken_;           // generic files that belong to a playlist, folded
};

}  // namespace norvo
