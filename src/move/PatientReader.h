#pragma once

#include <optional>
#include <vector>

#include "lists/ListedFile.h"
#include "lists/ReferenceFinder.h"
#include "lists/SongSearch.h"
#include "move/MoveResult.h"
#include "move/MoveWork.h"
#include "move/SongBook.h"
#include "move/StockTaking.h"
#include "move/TextPool.h"
#include "services/Component.h"
#include "text/Fingerprint.h"

namespace norvo {

/// An item of a playlist of the old machine, with what the playlist tells of it.
struct FoundItem {
  MovedItem item;
  KeptDetails told;
};

/// One playlist of the old machine as the patient reader understands it.
struct Listing {
  ListSyntax syntax = ListSyntax::M3u;
  String name;             ///< its own, in a file that may hold several
  bool hasTitles = false;  ///< an M3U with "#EXT" lines
  bool hasSongs = false;   ///< or addresses
  std::vector<FoundItem> items;
  Fingerprint content;
};

/// Reads the list files of the old machine with all patience, and finds what their items mean:
/// where they point, or where else their songs have gone.
class PatientReader {
 public:
  /// A file as it is understood.
  struct File {
    std::vector<Listing> lists;
    bool isDamaged = false;  ///< see ListedFile
  };

  /// What is referred to must outlive this. Songs that are met are noted in the book, texts of the
  /// found items in the pool.
  PatientReader(Component& library, const Stock& stock, SongBook& songs, TextPool& texts);

  /// RunTimeError when the file cannot be read, or lists more than anybody's list does.
  File Read(const String& path);

 private:
  Listing Resolve(const ListedList& list, const String& folder, ListSyntax syntax);
  FoundItem Find(const ListedItem& listed, const String& folder, bool isMarkup);
  bool MayBeMusic(const String& path);
  bool AreOneSong(const SongSearch::Found& found);
  void SearchFor(const ListedItem& listed, MovedItem& item);
  const SongSearch& Search();

  Component& library_;
  SongBook& songs_;
  TextPool& texts_;
  ReferenceFinder finder_;
  const Stock& stock_;
  std::optional<SongSearch> search_;  // made when the first song is missed
};

}  // namespace norvo
