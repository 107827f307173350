#pragma once

#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/Console.h"
#include "host/migrate/Move.h"
#include "host/migrate/RestoreLedger.h"
#include "host/overlay/OverlayPlatform.h"
#include "platform/hosted/FilePlacer.h"
#include "services/Component.h"
#include "services/IniDocument.h"

namespace norvo::host {

/// Gives every song of a move its one place on the new machine, and makes the neutral files say so.
/// Each place is the one that the new machine's own entry computes; where it has none, or one that
/// is taken, illegal on Windows, not to be written in the 8-bit page or outside the group root, the
/// neutral file is changed as little as possible: its file name; if that cannot do, its artist and
/// album. A song that an earlier move has brought keeps its place.
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
  /// What an entry of a neutral file says, and the place that the new machine computes of it.
  struct Answer {
    String place;
    String artist;
    String album;
    String fileName;
  };
  struct Draft {
    std::size_t playlist = 0;
    IniDocument document;
    std::vector<Answer> answers;  ///< one per entry
  };
  /// An answer that several entries of one song give.
  struct Vote {
    Answer answer;
    std::size_t count = 0;
  };
  /// Blocked: a file is where one of the folders should be.
  enum class Fault { None, Illegal, TooLong, Blocked, Taken };

  Draft Read(Move& move, std::size_t playlist);
  std::vector<Answer> AskAll(const Move& move, const Draft& draft);
  std::vector<Answer> AskFile(const std::string& bytes);
  Answer Ask(const Answer& names);
  void Choose(Move& move, std::size_t number, std::vector<Vote> votes);
  bool TryNames(std::size_t number, Song& song, const Answer& names);
  std::string WhyNowhere(const Song& song, const Answer& names);
  void Settle(std::size_t number, Song& song, const Answer& answer);
  Fault Judge(const Song& song, const String& place);
  bool IsBlocked(const String& place);
  bool IsTaken(const Song& song, const String& place);
  bool KeepPlace(std::size_t number, Song& song);
  void AdjustName(Move& move, Draft& draft);
  void AdjustMarkup(Move& move, Draft& draft, std::size_t entry);
  String NativeName(const String& base);
  void Adjust(Move& move, Draft& draft);
  void AdjustEntry(Move& move, Draft& draft, std::size_t entry);
  std::string WhyNot(std::size_t number, const String& place);
  void Confirm(Move& move, Draft& draft);
  void Set(Move& move, Draft& draft, std::size_t entry, StringView key, const String& value,
           const std::string& reason, Adjustment::Kind kind = Adjustment::Kind::Changed);
  std::string BytesOf(const Draft& draft) const;

  Component& old_;
  Component& library_;
  OverlayPlatform& overlay_;
  FilePlacer& placer_;
  RestoreLedger& ledger_;
  Console& console_;
  String root_;       // of the group, with a trailing backslash
  String draftPath_;  // where the overlay holds the neutral file that is being asked about
  std::unordered_map<String, std::size_t> places_;  // songs by folded place
  std::set<String> folders_;                        // above the places, folded
  std::vector<Answer> chosen_;                      // by song
  std::unordered_map<String, int> nextMarks_;       // of the numbered names, by folded first place
  std::unordered_map<String, int> nativeNames_;     // how many playlists have each, folded
};

}  // namespace norvo::host
