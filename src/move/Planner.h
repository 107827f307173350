#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "cli/Console.h"
#include "move/EntryQuestions.h"
#include "move/Move.h"
#include "move/PlaceChooser.h"
#include "move/RestoreLedger.h"
#include "overlay/OverlayPlatform.h"
#include "platform/hosted/FilePlacer.h"
#include "services/Component.h"
#include "services/IniDocument.h"

namespace norvo {

/// Gives every song of a move its one place on the new machine, and makes the neutral files say so.
/// Where an entry would have its song elsewhere, the neutral file is changed as little as possible:
/// its file name; if that cannot do, its artist and album.
class Planner {
 public:
  /// `overlay` lies over the new machine, and `library` works on it. `old` and `placer` serve to
  /// read neutral files and to compare songs. All must outlive this.
  Planner(Component& old, Component& library, OverlayPlatform& overlay, FilePlacer& placer,
          RestoreLedger& ledger, Console& console);

  /// Plans for all playlists that have a neutral file; songs and playlists for which there is no
  /// way are marked as left out.
  void Run(Move& move);

 private:
  struct Draft {
    std::size_t playlist = 0;
    IniDocument document;
    std::vector<EntryAnswer> answers;  ///< one per entry
  };

  std::vector<Draft> ReadAll(Move& move);
  Draft Read(Move& move, std::size_t playlist);
  std::vector<EntryAnswer> AskAll(const Move& move, const Draft& draft);
  void Adjust(Move& move, Draft& draft);
  void AdjustName(Move& move, Draft& draft);
  String NativeName(const String& base);
  bool IsBlocked(const String& name);
  void AdjustMarkup(Move& move, Draft& draft, std::size_t entry);
  void AdjustEntry(Move& move, Draft& draft, std::size_t entry);
  void Confirm(Move& move, Draft& draft);
  void Set(Move& move, Draft& draft, std::size_t entry, StringView key, const String& value,
           const std::string& reason, Adjustment::Kind kind = Adjustment::Kind::Changed);
  std::string BytesOf(const Draft& draft) const;

  Component& old_;
  Component& library_;
  FilePlacer& placer_;
  Console& console_;
  EntryQuestions entries_;
  PlaceChooser places_;
  std::unordered_map<String, int> nativeNames_;  // how many playlists have each, folded
};

}  // namespace norvo
