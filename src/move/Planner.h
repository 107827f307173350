#pragma once

#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "move/EntryQuestions.h"
#include "move/MediaPlacer.h"
#include "move/MoveWork.h"
#include "move/PlaceChooser.h"
#include "services/Component.h"

namespace norvo {

/// Gives every song of a move its one place on the new machine, and makes the generic files say so.
/// Where an entry would have its song elsewhere, the generic file is changed as little as possible:
/// its file name; if that cannot do, its artist and album.
class Planner {
 public:
  /// `library` works on an overlay of the new machine. `placer` serves to compare songs. All must
  /// outlive this.
  Planner(Component& library, OverlayPlatform& overlay, MediaPlacer& placer,
          const RestoreLedger& ledger, MoveWork& work);

  /// Plans for all playlists that have a generic file; songs and playlists for which there is no
  /// way are marked as left out.
  void Run();

 private:
  using Reason = Adjustment::Reason;

  /// The 0-based numbers of the playlists that are planned for, and what their entries say.
  struct Asked {
    std::size_t playlist = 0;
    std::vector<const KeptAnswer*> answers;  ///< one per entry
  };

  std::vector<Asked> AskAll();
  void AskForUnlisted();
  void Adjust(const Asked& asked);
  void AdjustName(std::size_t playlist);
  String NativeName(const String& base);
  bool IsBlocked(const String& name);
  bool IsBlockedIn(const String& folder, const String& name, StringView extension);
  void AdjustMarkup(std::size_t playlist, std::size_t entry);
  void AdjustEntry(std::size_t playlist, const MovedItem& item, const KeptAnswer& answer);
  void KeepBothNames(std::size_t playlist, std::size_t entry, StringView artist, Reason reason);
  void Confirm(std::size_t playlist);
  const String& NameAtOldAddress(StringView address);
  void Set(std::size_t playlist, std::size_t entry, StringView key, StringView value,
           Reason reason);
  GenericDraft& DocumentOf(std::size_t playlist) { return work_.drafts[playlist].document; }

  Component& library_;
  MediaPlacer& placer_;
  MoveWork& work_;
  EntryQuestions entries_;
  PlaceChooser places_;
  std::unordered_map<String, int> nativeNames_;     // how many playlists have each, folded
  std::unordered_map<String, bool> playerFolders_;  // whether each is there
  // Names of the files that stand at addresses, which are texts of the move's pool.
  std::unordered_map<StringView, String> oldAddresses_;
  std::unordered_set<SectionPool::Id> plain_;  // sections without markup
};

}  // namespace norvo
