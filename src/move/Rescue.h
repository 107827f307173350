#pragma once

#include <optional>
#include <vector>

#include "move/CollectPlaylists.h"
#include "move/GenericFileMaker.h"
#include "move/MoveWork.h"
#include "move/PatientReader.h"
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

  std::vector<CollectedFile> FilesOf(const CollectResult& collected) const;
  void SkipOtherForms(std::vector<CollectedFile>& files);
  std::optional<String> ContentOf(const String& path);
  String PlainName(const MovedItem& item);
  static Mending::Kind WhyLost(const CollectedFile& file);
  static MovedPlaylist NewPlaylist(const CollectedFile& file);
  void Take(const CollectedFile& file);
  void TakeLists(const CollectedFile& file);
  void TakeList(const CollectedFile& file, const Listing& listing);
  void Add(MovedPlaylist playlist, PlaylistDraft draft);
  void AddItem(const FoundItem& found, MovedPlaylist& playlist, PlaylistDraft& draft);
  void WarnOfDamage(const String& path);
  GenericDraft ReadGenericFile(const String& path);
  bool IsComplete(const Listing& listing, MovedPlaylist& playlist, PlaylistDraft& draft);
  ObjectRef ReadByLibrary(const CollectedFile& file, std::int32_t type);
  void Rewrite(const CollectedFile& file, const Listing& listing);
  MovedPlaylist NewPart(const CollectedFile& file, std::int32_t type, std::size_t added,
                        bool isSplit);
  std::vector<ObjectRef> CompleteEntries(const std::vector<ObjectRef>& read, const Listing& listing,
                                         std::int32_t type, std::size_t& added);
  ObjectRef NewEntry(const FoundItem& found, std::int32_t type);
  MovedItem ItemOf(StringView address, std::int32_t urlType);
  std::int32_t FittingType(const CollectedFile& file, const Listing& listing);

  Component& library_;
  SongBook& songs_;
  MoveWork& work_;
  const Stock& stock_;
  PatientReader reader_;
  GenericFileMaker maker_;
};

}  // namespace norvo
