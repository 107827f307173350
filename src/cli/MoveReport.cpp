#include "cli/MoveReport.h"

#include <algorithm>
#include <set>

#include "cli/MoveWords.h"
#include "cli/PlaylistWords.h"
#include "cli/Table.h"
#include "cli/WarningWords.h"
#include "text/Encoding.h"
#include "text/Number.h"
#include "text/WindowsPath.h"

namespace norvo::cli {
namespace {

const char* OutcomeText(MovedPlaylist::State state) {
  switch (state) {
    case MovedPlaylist::State::Collected:
      return "collected";
    case MovedPlaylist::State::Restored:
      return "moved";
    case MovedPlaylist::State::AlreadyRestored:
      return "moved before";
    case MovedPlaylist::State::NoSongs:
      return "no songs";
    case MovedPlaylist::State::Skipped:
      return "skipped";
    case MovedPlaylist::State::LeftOut:
      return "left out";
  }
  return "";
}

/// What was mended, what is listed in vain, and why it was left out.
std::string Remarks(const MovedPlaylist& playlist) {
  std::string remarks;
  const auto add = [&remarks](const std::string& text) {
    if (!text.empty()) remarks += (remarks.empty() ? "" : "; ") + text;
  };
  for (const Mending& mending : playlist.mendings) add(TextOf(mending));
  for (const MovedItem& item : playlist.items) {
    if (!item.IsCarried()) add("left out " + TextOf(item));
  }
  add(ReasonText(playlist));
  return remarks;
}

std::string Bytes(double bytes) {
  return ToUtf8(FormatNumber(bytes)) + " bytes";
}

void SayPlaylists(const MoveResult& move, Console& console) {
  Table table({{"Playlist"},
               {"Songs", Align::Right},
               {"Others", Align::Right},
               {"Outcome"},
               {"Healed, and what it lists in vain"}});
  for (const MovedPlaylist& playlist : move.playlists) {
    table.AddRow({ToUtf8(playlist.source), std::to_string(CountSongs(playlist)),
                  std::to_string(CountAddresses(playlist)), OutcomeText(playlist.state),
                  Remarks(playlist)});
  }
  for (const std::string& line : table.Lines()) console.Say(line);
}

bool IsFilledIn(const Adjustment& row) {
  return row.reason == Adjustment::Reason::RelativeReference;
}

void SayAdjustments(const MoveResult& move, Console& console) {
  const auto filledIn = static_cast<std::size_t>(
      std::count_if(move.adjustments.begin(), move.adjustments.end(), IsFilledIn));
  if (filledIn > 0) {
    console.Say();
    console.Say("File names filled in, since relative references give none: " +
                std::to_string(filledIn));
  }
  if (filledIn == move.adjustments.size()) return;
  console.Say();
  console.Say("Changed on the way, so that each song has its own place:");
  Table table({{"Neutral file"}, {"Entry", Align::Right}, {"Key"}, {"Was"}, {"Is"}, {"Because"}});
  for (const Adjustment& row : move.adjustments) {
    if (IsFilledIn(row)) continue;
    table.AddRow({ToUtf8(LastComponent(move.playlists[row.playlist].collected)),
                  row.entry == 0 ? "-" : std::to_string(row.entry), ToUtf8(row.key),
                  ToUtf8(row.before), ToUtf8(row.after), TextOf(row.reason)});
  }
  for (const std::string& line : table.Lines()) console.Say(line);
}

void SayPlannedSongs(const MoveResult& move, Console& console) {
  console.Say();
  console.Say("Places of the songs:");
  Table table({{"Song"}, {"Place"}, {"Bytes", Align::Right}, {"State"}});
  for (const MovedSong& song : move.songs) {
    table.AddRow({ToUtf8(song.source), ToUtf8(song.place), ToUtf8(FormatNumber(song.size)),
                  song.state == MovedSong::State::Planned ? "to be brought" : NameOf(song.state)});
  }
  for (const std::string& line : table.Lines()) console.Say(line);
}

/// "  copied:              12 (34567 bytes)"
void SaySongs(const MoveResult& move, MovedSong::State state, const char* title, Console& console) {
  std::size_t count = 0;
  double bytes = 0;
  for (const MovedSong& song : move.songs) {
    if (song.state != state) continue;
    ++count;
    bytes += song.size;
  }
  if (count > 0) console.Say(title + std::to_string(count) + " (" + Bytes(bytes) + ")");
}

/// Songs on drives that do not move are found again only where the new machine has those drives.
void SayLeftBehind(const MoveResult& move, Console& console) {
  std::set<String> places;
  for (const MovedPlaylist& playlist : move.playlists) {
    for (const MovedItem& item : playlist.items) {
      const bool isAddress = item.fate == MovedItem::Fate::Address;
      if (isAddress && HasDrive(item.reference)) places.insert(item.reference);
    }
  }
  for (const String& place : places) {
    console.Say("Stays where it is:     " + ToUtf8(place) + ", on a removable or network drive");
  }
}

void SayTotals(const MoveResult& move, const MoveTerms& terms, Console& console) {
  const auto playlists = [&](MovedPlaylist::State state, const char* title) {
    const std::size_t count = CountOf(move, state);
    if (count > 0) console.Say(title + std::to_string(count));
  };
  console.Say();
  console.Say("Playlists found:       " + std::to_string(move.playlists.size()));
  playlists(MovedPlaylist::State::Restored,
            terms.dryRun ? "  to be moved:         " : "  moved:               ");
  playlists(MovedPlaylist::State::AlreadyRestored, "  moved before:        ");
  playlists(MovedPlaylist::State::NoSongs, "  without songs:       ");
  playlists(MovedPlaylist::State::LeftOut, "  left out:            ");
  if (CountMended(move) > 0) {
    console.Say("  healed on the way:   " + std::to_string(CountMended(move)));
  }
  console.Say("Songs:                 " + std::to_string(move.songs.size()));
  SaySongs(move, MovedSong::State::Copied, "  copied:              ", console);
  SaySongs(move, MovedSong::State::Linked, "  linked:              ", console);
  SaySongs(move, MovedSong::State::AlreadyThere, "  already there:       ", console);
  SaySongs(move, MovedSong::State::Planned,
           terms.dryRun ? "  to be brought:       " : "  not brought:         ", console);
  SaySongs(move, MovedSong::State::LeftOut, "  left out:            ", console);
  for (const PlayerSetting& setting : move.settings) {
    console.Say("Player setting:        " + SettingText(setting));
  }
  console.Say((terms.dryRun ? "References planned:    " : "References verified:   ") +
              std::to_string(move.verification.checked) +
              ", found: " + std::to_string(move.verification.found) +
              ", missing: " + std::to_string(move.verification.checked - move.verification.found));
  SayLeftBehind(move, console);
  if (terms.dryRun) console.Say("A trial: nothing was written on the new machine.");
}

}  // namespace

std::string MoveWarningText(const WorkWarning& warning) {
  const bool isOld = warning.side == MachineSide::Old;
  return TextOf(warning, isOld ? "Old machine: " : "New machine: ");
}

void TellLeftOut(const MoveResult& move, const MoveTerms& terms, Console& console) {
  for (const MovedPlaylist& playlist : move.playlists) {
    if (playlist.state != MovedPlaylist::State::LeftOut) continue;
    console.LeftOut(ToUtf8(playlist.source) + ": " + ReasonText(playlist));
  }
  for (const MovedSong& song : move.songs) {
    if (song.state == MovedSong::State::LeftOut) {
      console.LeftOut(ToUtf8(song.source) + ": " + ReasonText(song));
    }
  }
  const bool waiting = std::any_of(move.songs.begin(), move.songs.end(), [](const MovedSong& song) {
    return song.state == MovedSong::State::Planned;
  });
  if (waiting && !terms.withMedia && !terms.dryRun) {
    console.Note(
        "The songs were not brought, as asked for: bring them to the places that --json "
        "tells, or run again without --no-media.");
  }
}

void SayMove(const MoveResult& move, const MoveTerms& terms, Console& console) {
  SayPlaylists(move, console);
  SayAdjustments(move, console);
  if (terms.dryRun) SayPlannedSongs(move, console);
  SayTotals(move, terms, console);
}

}  // namespace norvo::cli
