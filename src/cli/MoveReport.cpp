#include "cli/MoveReport.h"

#include <algorithm>
#include <set>

#include "cli/Report.h"
#include "cli/Table.h"
#include "text/Encoding.h"
#include "text/Number.h"
#include "text/WindowsPath.h"

namespace norvo {
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
    case MovedPlaylist::State::LeftOut:
      return "left out";
  }
  return "";
}

std::string Joined(const std::vector<std::string>& texts) {
  std::string joined;
  for (const std::string& text : texts) joined += (joined.empty() ? "" : "; ") + text;
  return joined;
}

std::string Bytes(double bytes) {
  return ToUtf8(FormatNumber(bytes)) + " bytes";
}

void SayPlaylists(const Move& move, Console& console) {
  Table table({{"Playlist"},
               {"Songs", Align::Right},
               {"Others", Align::Right},
               {"Outcome"},
               {"Healed, and what it lists in vain"}});
  for (const MovedPlaylist& playlist : move.playlists) {
    std::vector<std::string> remarks = playlist.healed;
    for (const std::string& missed : playlist.missed) remarks.push_back("left out " + missed);
    if (!playlist.reason.empty()) remarks.push_back(playlist.reason);
    const std::size_t songs = CountSongs(playlist);
    table.AddRow({ToUtf8(playlist.source), std::to_string(songs),
                  std::to_string(playlist.items.size() - songs), OutcomeText(playlist.state),
                  Joined(remarks)});
  }
  for (const std::string& line : table.Lines()) console.Say(line);
}

void SayAdjustments(const Move& move, Console& console) {
  const auto filledIn = static_cast<std::size_t>(
      std::count_if(move.adjustments.begin(), move.adjustments.end(),
                    [](const Adjustment& row) { return row.kind == Adjustment::Kind::FilledIn; }));
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
    if (row.kind == Adjustment::Kind::FilledIn) continue;
    table.AddRow({ToUtf8(LastComponent(move.playlists[row.playlist].neutral)),
                  row.entry == 0 ? "-" : std::to_string(row.entry), ToUtf8(row.key),
                  ToUtf8(row.before), ToUtf8(row.after), row.reason});
  }
  for (const std::string& line : table.Lines()) console.Say(line);
}

void SayPlannedSongs(const Move& move, Console& console) {
  console.Say();
  console.Say("Places of the songs:");
  Table table({{"Song"}, {"Place"}, {"Bytes", Align::Right}, {"State"}});
  for (const Song& song : move.songs) {
    table.AddRow({ToUtf8(song.source), ToUtf8(song.place), ToUtf8(FormatNumber(song.size)),
                  song.state == Song::State::Planned ? "to be brought" : NameOf(song.state)});
  }
  for (const std::string& line : table.Lines()) console.Say(line);
}

/// "  copied:              12 (34567 bytes)"
void SaySongs(const Move& move, Song::State state, const char* title, Console& console) {
  std::size_t count = 0;
  double bytes = 0;
  for (const Song& song : move.songs) {
    if (song.state != state) continue;
    ++count;
    bytes += song.size;
  }
  if (count > 0) console.Say(title + std::to_string(count) + " (" + Bytes(bytes) + ")");
}

/// Songs on drives that do not move are found again only where the new machine has those drives.
void SayLeftBehind(const Move& move, Console& console) {
  std::set<String> places;
  for (const MovedPlaylist& playlist : move.playlists) {
    for (const MovedItem& item : playlist.items) {
      if (!item.song && HasDrive(item.address)) places.insert(item.address);
    }
  }
  for (const String& place : places) {
    console.Say("Stays where it is:     " + ToUtf8(place) + ", on a removable or network drive");
  }
}

void SayTotals(const Move& move, const MoveTerms& terms, Console& console) {
  const auto playlists = [&](MovedPlaylist::State state, const char* title) {
    const std::size_t count = CountOf(move, state);
    if (count > 0) console.Say(title + std::to_string(count));
  };
  console.Say();
  console.Say("Playlists found:       " + std::to_string(move.playlists.size()));
  playlists(MovedPlaylist::State::Restored,
            terms.trial ? "  to be moved:         " : "  moved:               ");
  playlists(MovedPlaylist::State::AlreadyRestored, "  moved before:        ");
  playlists(MovedPlaylist::State::NoSongs, "  without songs:       ");
  playlists(MovedPlaylist::State::LeftOut, "  left out:            ");
  if (CountHealed(move) > 0) {
    console.Say("  healed on the way:   " + std::to_string(CountHealed(move)));
  }
  console.Say("Songs:                 " + std::to_string(move.songs.size()));
  SaySongs(move, Song::State::Copied, "  copied:              ", console);
  SaySongs(move, Song::State::Linked, "  linked:              ", console);
  SaySongs(move, Song::State::AlreadyThere, "  already there:       ", console);
  SaySongs(move, Song::State::Planned,
           terms.trial ? "  to be brought:       " : "  not brought:         ", console);
  SaySongs(move, Song::State::LeftOut, "  left out:            ", console);
  for (const PlayerSetting& setting : move.settings) {
    console.Say("Player setting:        " + SettingText(setting));
  }
  console.Say((terms.trial ? "References planned:    " : "References verified:   ") +
              std::to_string(move.checked) + ", found: " + std::to_string(move.found) +
              ", missing: " + std::to_string(move.checked - move.found));
  SayLeftBehind(move, console);
  if (terms.trial) console.Say("A trial: nothing was written on the new machine.");
}

}  // namespace

void TellLeftOut(const Move& move, const MoveTerms& terms, Console& console) {
  for (const MovedPlaylist& playlist : move.playlists) {
    if (playlist.state != MovedPlaylist::State::LeftOut) continue;
    console.LeftOut(ToUtf8(playlist.source) + ": " + playlist.reason);
  }
  for (const Song& song : move.songs) {
    if (song.state == Song::State::LeftOut) {
      console.LeftOut(ToUtf8(song.source) + ": " + song.reason);
    }
  }
  const bool waiting = std::any_of(move.songs.begin(), move.songs.end(), [](const Song& song) {
    return song.state == Song::State::Planned;
  });
  if (waiting && !terms.withMedia && !terms.trial) {
    console.Note(
        "The songs were not brought, as asked for: bring them to the places that --json "
        "tells, or run again without --no-media.");
  }
}

void SayMove(const Move& move, const MoveTerms& terms, Console& console) {
  SayPlaylists(move, console);
  SayAdjustments(move, console);
  if (terms.trial) SayPlannedSongs(move, console);
  SayTotals(move, terms, console);
}

}  // namespace norvo
