#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <tuple>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "move/EntryQuestions.h"
#include "move/MediaPlacer.h"
#include "move/MoveWork.h"
#include "move/RestoreLedger.h"
#include "overlay/OverlayPlatform.h"
#include "services/Component.h"
#include "text/Fingerprint.h"

namespace norvo {

/// Gives every song of a move its one place on the new machine: one that the machine's own entry
/// computes of the song's names, or of names that differ as little as possible. No place is taken
/// twice, illegal on Windows or outside the group root. A song that an earlier move has brought
/// keeps its place.
///
/// A place whose path the 8-bit page cannot tell comes with a plain one, that the players' own
/// playlists name.
class PlaceChooser {
 public:
  /// `overlay` lies over the new machine, and `library` works on it. `placer` serves to compare
  /// songs. All must outlive this.
  PlaceChooser(EntryQuestions& entries, Component& library, OverlayPlatform& overlay,
               MediaPlacer& placer, const RestoreLedger& ledger, MoveWork& work);

  /// An entry of the song, by its 0-based number, would have it there. The place that most want
  /// comes first. The answer must outlive this.
  void Vote(std::size_t song, const KeptAnswer& answer);
  /// Chooses for all songs with a vote; those for which there is no place are marked as left out.
  void ChooseAll();

  /// The names of which the song's place is computed.
  const KeptAnswer& ChosenFor(std::size_t song) const { return *chosen_[song]; }
  /// Why a song does not go where its entry would have it; `RelativeReference` when it does, and
  /// the entry only lacks the name.
  Adjustment::Reason WhyNot(std::size_t song, const String& place);

 private:
  /// An answer that several entries of one song give.
  struct Candidate {
    const KeptAnswer* answer = nullptr;
    std::size_t count = 0;
  };
  /// Blocked: a file is where one of the folders should be, or what is there may not be seen.
  enum class Fault { None, Illegal, TooLong, Blocked, Taken };
  /// Whether the 8-bit page must be able to tell a path.
  enum class Spelling { Plain, Any };

  void Choose(std::size_t number, MovedSong& song);
  bool TryNames(std::size_t number, MovedSong& song, const EntryAnswer& names);
  void LeaveNowhere(MovedSong& song, const EntryAnswer& names);
  bool KeepPlace(std::size_t number, MovedSong& song);
  void Settle(std::size_t number, MovedSong& song, const KeptAnswer& answer,
              const String& knownFull = {});
  String FullPlace(const MovedSong& song, const KeptAnswer& names, const String& plain);
  std::optional<String> FreePlace(const MovedSong& song, EntryAnswer names);
  void Occupy(std::size_t number, MovedSong& song, const String& place);
  Fault Judge(const MovedSong& song, const String& place, Spelling spelling = Spelling::Plain);
  bool IsBlocked(const String& place);
  bool IsBlockedOnDisk(const String& path);
  bool HasOnlyUnseen(int mark, const String& place);
  bool IsTaken(const MovedSong& song, const String& place);

  EntryQuestions& entries_;
  Component& library_;
  OverlayPlatform& overlay_;
  MediaPlacer& placer_;
  const RestoreLedger& ledger_;
  MoveWork& work_;
  String root_;                                // of the group, with a trailing backslash
  std::vector<std::vector<Candidate>> votes_;  // by song
  // The positions of those while votes are taken, by song and place: a song that very many lists
  // name may have very many.
  std::map<std::tuple<std::size_t, const char16_t*, const char16_t*>, std::size_t> candidates_;
  std::vector<const KeptAnswer*> chosen_;  // by song
  // By the folded paths, of which there are as many as songs.
  std::unordered_map<Fingerprint, std::size_t, FingerprintHash> places_;  // numbers of the songs
  std::unordered_set<Fingerprint, FingerprintHash> folders_;              // above the places
  std::unordered_set<Fingerprint, FingerprintHash> absent_;    // folders that were not there before
  std::unordered_set<Fingerprint, FingerprintHash> doubtful_;  // what is there cannot be compared
  // Of the numbered names, by the first place.
  std::unordered_map<Fingerprint, int, FingerprintHash> nextMarks_;
};

}  // namespace norvo
