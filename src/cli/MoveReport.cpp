#include "cli/MoveReport.h"

#include <algorithm>
#include <set>

#include "cli/ListNotes.h"
#include "cli/MoveTotals.h"
#include "cli/MoveWords.h"
#include "cli/PlaylistWords.h"
#include "cli/TerminalText.h"
#include "cli/TextLayout.h"
#include "cli/WarningWords.h"
#include "text/Encoding.h"
#include "text/WindowsPath.h"

namespace norvo::cli {
namespace {

constexpr std::size_t kNoteIndent = 6;
constexpr std::size_t kTitleWidth = 12;
// Changes of one playlist that are told without --verbose.
constexpr std::size_t kMostChanges = 5;

/// Joins "a", "b" and "c" to "a, b, c".
class Listing {
 public:
  void Add(const std::string& text) { text_ += (text_.empty() ? "" : ", ") + text; }
  /// "3 skipped"; nothing when there are none.
  void Add(std::size_t count, const char* what) {
    if (count > 0) Add(std::to_string(count) + ' ' + what);
  }
  /// "3 copied (5.1 MB)"
  void Add(const Amount& amount, const char* what) {
    if (amount.count == 0) return;
    Add(std::to_string(amount.count) + ' ' + what + " (" + SizeText(amount.bytes) + ')');
  }
  const std::string& Text() const { return text_; }

 private:
  std::string text_;
};

/// Writes the report.
class Report {
 public:
  Report(const MoveResult& move, const MoveTerms& terms, std::size_t width)
      : move_(move), terms_(terms), width_(width), notes_(move), totals_(TotalsOf(move)) {}

  std::vector<StyledLine> Write() && {
    Lists();
    if (terms_.verbose) Unlisted();
    Problems();
    Totals();
    return std::move(lines_);
  }

 private:
  void Line(const std::string& text, Style style = Style::Plain) { Paragraph("", text, style); }

  /// A text behind blanks or a title; what does not fit goes on below its start.
  void Paragraph(const std::string& start, const std::string& text, Style style,
                 Style startStyle = Style::Plain) {
    const std::size_t indent = DisplayWidth(start);
    std::vector<std::string> rows = Wrapped(TerminalText(text), width_ - indent, 0);
    for (std::size_t i = 0; i < rows.size(); ++i) {
      lines_.push_back({{i == 0 ? start : std::string(indent, ' '), startStyle}, {rows[i], style}});
    }
  }

  // ------------------------------------------------------------------------ the playlists ----

  /// What a playlist is called here, and the folder where that is needed to tell which one is
  /// meant or to do something about it.
  std::string HeadOf(const MovedPlaylist& playlist) const {
    return TerminalText(ListNotes::NameOf(playlist));
  }
  std::string PlaceIn(const MovedPlaylist& playlist) const {
    if (notes_.IsNameUnique(playlist) && !notes_.IsProblem(playlist)) return {};
    const std::string place = TerminalText(ListNotes::PlaceOf(playlist));
    return " (" + (notes_.IsProblem(playlist) ? place : ShortPath(place, width_ / 2)) + ')';
  }

  bool IsShown(const MovedPlaylist& playlist) const {
    return terms_.verbose || playlist.rule != MovedPlaylist::SkipRule::OtherForm;
  }

  void Lists() {
    // A wide name pushes its own line only.
    std::size_t column = 0;
    for (const MovedPlaylist& playlist : move_.playlists) {
      if (!IsShown(playlist)) continue;
      const std::size_t cells = DisplayWidth(HeadOf(playlist) + PlaceIn(playlist));
      if (cells <= width_ / 2) column = std::max(column, cells);
    }
    for (std::size_t i = 0; i < move_.playlists.size(); ++i) {
      if (!IsShown(move_.playlists[i])) continue;
      ListHead(move_.playlists[i], column);
      Notes(i);
      if (terms_.verbose) Songs(move_.playlists[i]);
    }
  }

  void ListHead(const MovedPlaylist& playlist, std::size_t column) {
    const bool isProblem = notes_.IsProblem(playlist);
    const Style style = isProblem ? Style::Problem : Style::Good;
    const std::string mark = isProblem ? "! " : "  ";
    const std::string name = HeadOf(playlist);
    const std::string place = PlaceIn(playlist);
    const std::string outcome = notes_.Outcome(playlist);
    const std::size_t cells = DisplayWidth(name + place);
    const std::size_t padding = column > cells ? column - cells : 0;
    if (mark.size() + cells + padding + 2 + outcome.size() <= width_) {
      lines_.push_back({{mark, style},
                        {name, Style::Heading},
                        {place, Style::Dim},
                        {std::string(padding + 2, ' ')},
                        {outcome, style}});
      return;
    }
    Paragraph(mark, name + place, Style::Heading, style);
    Paragraph("    ", outcome, style);
  }

  void Notes(std::size_t playlist) {
    std::size_t changes = 0;
    for (const Note& note : notes_.Of(playlist)) {
      const bool isProblem = note.weight == Note::Weight::Problem;
      if (!terms_.verbose && note.weight == Note::Weight::Detail) continue;
      changes += isProblem ? 0U : 1U;
      if (!isProblem && !terms_.verbose && changes > kMostChanges) continue;
      Paragraph(std::string(kNoteIndent, ' '), note.text,
                isProblem ? Style::Problem : Style::Plain);
    }
    if (!terms_.verbose && changes > kMostChanges) {
      Paragraph(std::string(kNoteIndent, ' '),
                "and " + std::to_string(changes - kMostChanges) + " more such (--verbose tells)",
                Style::Dim);
    }
  }

  void Songs(const MovedPlaylist& playlist) {
    for (const MovedItem& item : playlist.items) {
      if (!item.IsCarried()) continue;
      const std::string number = std::to_string(item.entry) + ". ";
      Paragraph(std::string(kNoteIndent, ' ') + number,
                item.IsSong() ? SongText(move_.songs[item.song]) : ToUtf8(item.reference),
                Style::Dim);
    }
  }

  std::string SongText(const MovedSong& song) const {
    const std::string place = song.place.empty() ? "" : " -> " + ToUtf8(song.place);
    return ToUtf8(song.source) + place + " (" + SizeText(song.size) + ", " +
           SongOutcome(song, terms_.dryRun) + ')';
  }

  void Unlisted() {
    const bool hasBrought = std::any_of(move_.songs.begin(), move_.songs.end(),
                                        [](const MovedSong& song) { return !song.listed; });
    if (!hasBrought && move_.unlisted.empty()) return;
    Line("");
    Line("Songs in no playlist", Style::Heading);
    for (const MovedSong& song : move_.songs) {
      if (!song.listed) Paragraph("  ", SongText(song), Style::Dim);
    }
    for (const UnlistedSong& song : move_.unlisted) {
      Paragraph("  ", ToUtf8(song.source) + " (" + SizeText(song.size) + ')', Style::Dim);
    }
  }

  // ------------------------------------------------------------------------- the last words ----

  void Title(const char* title, const std::string& text, Style style = Style::Plain) {
    if (!text.empty()) Paragraph(PaddedTo(title, kTitleWidth), text, style, Style::Heading);
  }

  void Problem(const std::string& text) { problems_.push_back(text); }

  void CollectProblems() {
    if (move_.cancelled) Problem("the move was ended before it was done; run it again to go on");
    const auto lists = [&](std::size_t count, const char* one, const char* several) {
      if (count > 0) Problem(Counted(count, "playlist") + (count == 1 ? one : several));
    };
    lists(totals_.leftOut, " was left out; why is told above", " were left out; why is told above");
    lists(totals_.notRead, " is of a kind that only its own player reads",
          " are of kinds that only their own players read");
    if (totals_.songsLeftOut.count > 0) {
      Problem(Counted(totals_.songsLeftOut.count, "song") + " (" +
              SizeText(totals_.songsLeftOut.bytes) + ") could not be brought");
    }
    for (const MovedSong& song : move_.songs) {
      if (song.listed || song.state != MovedSong::State::LeftOut) continue;
      Problem("left out: " + ToUtf8(song.source) + ": " + ReasonText(song));
    }
    if (totals_.ambiguous > 0) {
      Problem(Counted(totals_.ambiguous, "listed song") +
              " may be one of several files; move the right one to where the list says, and run "
              "again");
    }
    if (totals_.gone > 0) {
      Problem(Counted(totals_.gone, "listed file") + (totals_.gone == 1 ? " is" : " are") +
              " not on the old machine");
    }
    if (totals_.notMedia > 0) {
      Problem(Counted(totals_.notMedia, "listed file") + (totals_.notMedia == 1 ? " is" : " are") +
              " no music");
    }
    for (const WorkWarning& warning : move_.warnings) Problem(MoveWarningText(warning));
  }

  void Problems() {
    CollectProblems();
    if (problems_.empty()) return;
    Line("");
    Line("What did not come over, or not as it was", Style::Heading);
    for (const std::string& problem : problems_) Paragraph("! ", problem, Style::Problem);
  }

  std::string ListTotals() const {
    Listing row;
    row.Add(totals_.whole, terms_.dryRun ? "to be moved" : "moved");
    row.Add(totals_.partly, terms_.dryRun ? "to be moved in part" : "moved in part");
    row.Add(totals_.noSongs, "without songs");
    row.Add(totals_.leftOut, "left out");
    row.Add(totals_.notRead, "not read");
    row.Add(totals_.skipped, "skipped");
    row.Add(totals_.forms, "other forms of these");
    row.Add(totals_.waiting, "not moved yet");
    return std::to_string(move_.playlists.size()) + (row.Text().empty() ? "" : ": " + row.Text());
  }

  std::string SongTotals() const {
    Listing row;
    row.Add(totals_.brought, "brought");
    row.Add(totals_.there, "there already");
    row.Add(totals_.planned, terms_.dryRun      ? "to be brought"
                             : terms_.withMedia ? "not brought yet"
                                                : "left where they are, as you asked");
    row.Add(totals_.songsLeftOut, "left out");
    return std::to_string(move_.songs.size()) + (row.Text().empty() ? "" : ": " + row.Text());
  }

  void Totals() {
    if (!lines_.empty()) Line("");
    Title("Playlists", ListTotals());
    if (totals_.before > 0) {
      Title("", std::to_string(totals_.before) + " of them moved before, and as they were");
    }
    Title("Songs", SongTotals());
    if (totals_.elsewhere > 0) {
      Title("Elsewhere",
            Counted(totals_.elsewhere, "song") + " found in another place than the lists say");
    }
    if (totals_.unlisted.count > 0) {
      Title("In no list", Counted(totals_.unlisted.count, "song") + " (" +
                              SizeText(totals_.unlisted.bytes) +
                              "), left where they are; --all-music brings them, too");
    }
    if (totals_.discarded.count > 0) {
      Title("", Counted(totals_.discarded.count, "song") + " (" +
                    SizeText(totals_.discarded.bytes) +
                    ") in recycle bins and among temporary files, not taken");
    }
    Folder();
    Players();
    Count();
    if (terms_.dryRun) Line("A trial: nothing was written on the new machine.", Style::Heading);
  }

  /// Where the new lists are: above the one of those for players of today.
  void Folder() {
    for (const MovedPlaylist& playlist : move_.playlists) {
      if (playlist.companion.empty()) continue;
      return Title("New lists", ToUtf8(ParentFolder(ParentFolder(playlist.companion))) +
                                    ", a folder for each player");
    }
  }

  /// What was set is told one by one only to those who want to know.
  void Players() {
    Listing players;
    std::set<String> told;
    for (const PlayerSetting& setting : move_.settings) {
      if (terms_.verbose) Title("Player", SettingText(setting));
      if (told.insert(setting.player).second) players.Add(ToUtf8(setting.player));
    }
    if (!terms_.verbose && !told.empty()) Title("Players", players.Text() + " open the new lists");
  }

  void Count() {
    const FinalCount& count = move_.count;
    if (count.playlists == 0 && count.songs == 0) return;
    const bool isRight = count.wholePlaylists == count.playlists && count.rightSongs == count.songs;
    Title("Checked",
          std::to_string(count.wholePlaylists) + " of " + Counted(count.playlists, "playlist") +
              (count.songs == 0 ? std::string()
                                : ", " + std::to_string(count.rightSongs) + " of " +
                                      Counted(count.songs, "song")) +
              " right",
          isRight ? Style::Good : Style::Problem);
  }

  const MoveResult& move_;
  const MoveTerms& terms_;
  std::size_t width_;
  ListNotes notes_;
  MoveTotals totals_;
  std::vector<std::string> problems_;
  std::vector<StyledLine> lines_;
};

}  // namespace

std::string MoveWarningText(const WorkWarning& warning) {
  const std::string side = warning.side == MachineSide::Old ? "Old machine: " : "New machine: ";
  const bool isOwn = warning.kind == WorkWarning::Kind::Oddity ||
                     warning.kind == WorkWarning::Kind::LinkNotFollowed;
  if (isOwn) return side + ToUtf8(warning.warning.text);
  if (warning.kind == WorkWarning::Kind::Library) return side + PlainText(warning.warning);
  return TextOf(warning);
}

void TellLeftOut(const MoveResult& move, Console& console) {
  const auto tell = [&](const std::string& line) {
    console.IsReportSeen() ? console.KeepLeftOut(line) : console.LeftOut(line);
  };
  for (const WorkWarning& warning : move.warnings) {
    if (!IsNotice(warning)) console.KeepLeftOut(MoveWarningText(warning));
  }
  for (const MovedPlaylist& playlist : move.playlists) {
    const std::string path = ToUtf8(playlist.source) + ": ";
    if (playlist.state == MovedPlaylist::State::LeftOut) tell(path + ReasonText(playlist));
    for (const MovedItem& item : playlist.items) {
      if (item.fate != MovedItem::Fate::Ambiguous) continue;
      tell(path + ToUtf8(item.reference) + ": " + ReasonText(item));
    }
  }
  for (const MovedSong& song : move.songs) {
    if (song.state == MovedSong::State::LeftOut)
      tell(ToUtf8(song.source) + ": " + ReasonText(song));
  }
}

std::vector<StyledLine> MoveReport(const MoveResult& move, const MoveTerms& terms,
                                   std::size_t width) {
  return Report(move, terms, width).Write();
}

}  // namespace norvo::cli
