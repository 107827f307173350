#include <nlohmann/json.hpp>
#include <optional>
#include <utility>

#include "automation/RunTimeError.h"
#include "cli/Commands.h"
#include "cli/MoveDocument.h"
#include "cli/MoveReport.h"
#include "cli/Report.h"
#include "machines/NewMachine.h"
#include "machines/OldMachine.h"
#include "machines/PlaceCheck.h"
#include "move/Carrying.h"
#include "move/Collecting.h"
#include "move/MoveCheck.h"
#include "move/Placing.h"
#include "move/Planner.h"
#include "move/Rescue.h"
#include "move/Restoring.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

/// An alternative that no playlist was given is no song of the move.
void DropUnused(Move& move) {
  std::vector<std::optional<std::size_t>> places(move.songs.size());
  std::vector<Song> songs;
  for (MovedPlaylist& playlist : move.playlists) {
    for (MovedItem& item : playlist.items) {
      if (!item.song) continue;
      std::optional<std::size_t>& place = places[*item.song];
      if (!place) {
        place = songs.size();
        songs.push_back(std::move(move.songs[*item.song]));
      }
      item.song = place;
    }
  }
  move.songs = std::move(songs);
}

/// Finds what there is to move on the old machine.
Move Gather(OldMachine& old, Console& console) {
  Move move;
  Machine& machine = old.Get();
  SongBook songs(old.Files(), move.songs);
  const std::vector<CollectedFile> files = Collect(machine, console);
  move.playlists = Rescue(machine.Library(), old.Settings(), songs, console).Run(files);
  DropUnused(move);
  for (Song& song : move.songs) {
    const auto facts = machine.Library().Files().FactsOf(song.source);
    song.size = facts ? facts->size : 0;
  }
  return move;
}

/// Brings the songs; in a trial and without media only the plan tells of them.
void Place(FilePlacer& placer, const MigrateArguments& arguments, Move& move, Console& console) {
  if (arguments.trial || arguments.media == MediaMode::None) return;
  const PlaceMode mode = arguments.media == MediaMode::Link ? PlaceMode::Link : PlaceMode::Copy;
  PlaceSongs(placer, mode, move, console);
}

/// Without its ledger nothing can be restored; what is done until then is told all the same.
void LeaveOutRest(Move& move, const RunTimeError& failure) {
  for (MovedPlaylist& playlist : move.playlists) {
    if (playlist.state != MovedPlaylist::State::Collected) continue;
    playlist.state = MovedPlaylist::State::LeftOut;
    playlist.reason =
        "the new machine cannot note what is restored: " + ToUtf8(failure.Description()) +
        ". Run again when it can";
  }
}

/// Adds where the logs are that stay, by the machine that each is of.
void AddLogs(Json& document, OldMachine& old, NewMachine& machine) {
  Json logs = Json::object();
  if (!old.IsTemporary()) AddLog(logs, old.Get(), "from");
  AddLog(logs, machine.Get(), "to");
  if (!logs.empty()) document["logs"] = std::move(logs);
}

}  // namespace

Json RunMigrate(const CommonArguments& common, const MigrateArguments& arguments,
                Console& console) {
  CheckPlaces(arguments);
  OldMachine old(arguments.from, arguments.work, console);
  if (old.IsReadOnly() && arguments.media == MediaMode::Link) {
    throw HostError(
        "--link writes to the old disk, which counts the links of a file. Use --copy, or name a "
        "machine folder with --from and leave --work out.");
  }
  if (common.log) old.Get().StartLog();
  Move move = Gather(old, console);

  NewMachine machine(arguments.to, arguments.trial, console);
  if (common.log && !arguments.trial) machine.Get().StartLog();
  FilePlacer placer(old.Files(), machine.Files());
  RestoreLedger ledger(machine.Library(), DataAreaOf(machine.Settings()));
  Planner(old.Get().Library(), machine.PlanLibrary(), machine.Plan(), placer, ledger, console)
      .Run(move);
  CarryNeutralFiles(old.Get().Library(), machine.Library(), ledger, move);
  Place(placer, arguments, move, console);
  if (!arguments.trial) machine.Plan().TakeBackAll();
  try {
    RestoreCarried(machine.Library(), ledger, move, console);
  } catch (const RunTimeError& failure) {
    LeaveOutRest(move, failure);
  }
  CheckMove(machine.PlanLibrary(), move, console);

  const MoveTerms terms{arguments.from, arguments.to, arguments.trial,
                        arguments.media != MediaMode::None};
  TellLeftOut(move, terms, console);
  SayMove(move, terms, console);
  if (!console.IsJson()) return {};
  Json document = MoveDocument(move, terms);
  AddLogs(document, old, machine);
  return document;
}

}  // namespace norvo
