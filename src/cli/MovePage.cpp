#include "cli/MovePage.h"

#include <algorithm>
#include <cstdio>

#include "cli/HtmlText.h"
#include "cli/ListNotes.h"
#include "cli/MovePageParts.h"
#include "cli/MoveReport.h"
#include "cli/MoveTotals.h"
#include "cli/MoveWords.h"
#include "cli/TextLayout.h"
#include "text/Encoding.h"
#include "text/WindowsPath.h"

namespace norvo::cli {
namespace {

// The page loads nothing and sends nothing, whatever a name may hold.
constexpr const char* kStart = R"(<!doctype html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta http-equiv="Content-Security-Policy" content="default-src 'none'; style-src 'unsafe-inline'; script-src 'unsafe-inline'">
<title>The move of your music</title>
<style>)";

constexpr const char* kTools = R"(<div class="tools" hidden>
<input type="search" placeholder="Search songs and playlists" aria-label="Search songs and playlists">
<fieldset aria-label="Show">
<label><input type="radio" name="filter" value="all" checked><span>All</span></label>
<label><input type="radio" name="filter" value="bad"><span>Problems</span></label>
<label><input type="radio" name="filter" value="changed"><span>Changed</span></label>
</fieldset>
<output></output>
</div>
)";

// More playlists with problems than these are not unfolded from the start.
constexpr std::size_t kMostUnfolded = 10;

constexpr const char* kTableHead =
    "<table><thead><tr><th>No.<th>Song, and where it was<th>Where it is now<th>What happened"
    "</thead><tbody>\n";

std::string Name(StringView text) {
  return HtmlName(ToUtf8(text));
}

/// A segment of the bar and its line in the legend.
struct Segment {
  const char* look;
  const char* words;
  Amount amount;
};

/// Writes the page.
class Page {
 public:
  Page(const MoveResult& move, const MoveTerms& terms, const std::string& date)
      : move_(move), terms_(terms), date_(date), notes_(move), totals_(TotalsOf(move)) {}

  std::string Write() && {
    html_ += kStart;
    html_ += kPageStyle;
    html_ += "</style>\n</head>\n<body>\n<div class=\"page";
    html_ += IsAll() ? "\">\n" : " some\">\n";
    Header();
    Figures();
    Bar();
    Facts();
    Trouble();
    Lists();
    html_ +=
        "<footer>Written by norvo-playlists. This page is all there is to it: keep it, print "
        "it, send it.</footer>\n</div>\n<script>";
    html_ += kPageScript;
    html_ += "</script>\n</body>\n</html>\n";
    return std::move(html_);
  }

 private:
  bool IsAll() const { return move_.IsWhole() && totals_.gone + totals_.notMedia == 0; }

  // -------------------------------------------------------------------------- the summary ----

  std::string Headline() const {
    if (terms_.dryRun) return "What a move would bring";
    if (move_.cancelled) return "The move is not done yet";
    if (move_.playlists.empty() && move_.songs.empty()) return "There was nothing to move";
    if (IsAll()) return "Everything came over";
    if (move_.IsWhole()) return "All that was there came over";
    return "Most of it came over";
  }

  void Header() {
    html_ += "<header><div>\n<h1>" + Headline() + "</h1>\n<p>From " + HtmlName(terms_.from) +
             " to " + HtmlName(terms_.to) + "</p>\n<p>" + HtmlText(date_) +
             "</p>\n</div><div class=\"disc\" aria-hidden=\"true\"></div></header>\n";
  }

  void Figure(const std::string& figure, const std::string& words) {
    html_ += "<div class=\"figure\"><b>" + HtmlText(figure) + "</b>" + HtmlText(words) + "</div>\n";
  }

  void Figures() {
    double bytes = 0;
    for (const MovedSong& song : move_.songs) bytes += song.size;
    const std::size_t moved = totals_.whole + totals_.partly;
    html_ += "<div class=\"figures\">\n";
    Figure(std::to_string(moved) + " of " + std::to_string(move_.playlists.size()),
           terms_.dryRun ? "playlists would move" : "playlists moved");
    const std::size_t brought = move_.songs.size() - totals_.songsLeftOut.count;
    const bool isWaiting = totals_.planned.count > 0;
    Figure(std::to_string(brought) + " of " + std::to_string(move_.songs.size()),
           isWaiting ? "songs have a place" : "songs have arrived");
    Figure(SizeText(bytes), "of music in them");
    html_ += "</div>\n";
  }

  void Bar() {
    const Segment segments[] = {
        {"brought", "brought", totals_.brought},
        {"there", "there already", totals_.there},
        {"planned",
         terms_.dryRun      ? "to be brought"
         : terms_.withMedia ? "not brought yet"
                            : "left where they are, as you asked",
         totals_.planned},
        {"left", "left out", totals_.songsLeftOut},
        {"unlisted", "in no playlist, left where they are", totals_.unlisted}};
    std::size_t all = 0;
    for (const Segment& segment : segments) all += segment.amount.count;
    if (all == 0) return;
    std::string legend;
    html_ += "<div class=\"bar\" aria-hidden=\"true\">";
    for (const Segment& segment : segments) {
      const std::size_t count = segment.amount.count;
      if (count == 0) continue;
      html_ += std::string("<i class=\"") + segment.look +
               "\" style=\"flex:" + std::to_string(count) + "\"></i>";
      legend += std::string("<li><i class=\"") + segment.look + "\"></i>" + Counted(count, "song") +
                ' ' + segment.words + " (" + SizeText(segment.amount.bytes) + ")\n";
    }
    html_ += "</div>\n<ul class=\"legend\">\n" + legend + "</ul>\n";
  }

  void Fact(const std::string& text) { html_ += "<li>" + HtmlText(text) + '\n'; }

  void Facts() {
    html_ += "<ul class=\"facts\">\n";
    const FinalCount& count = move_.count;
    if (count.playlists > 0 || count.songs > 0) {
      Fact("Checked at the end: " + std::to_string(count.wholePlaylists) + " of " +
           Counted(count.playlists, "playlist") +
           (count.songs == 0
                ? std::string()
                : ", " + std::to_string(count.rightSongs) + " of " + Counted(count.songs, "song")) +
           " right.");
    }
    if (totals_.before > 0) {
      Fact(Counted(totals_.before, "playlist") + " moved before, and as they were.");
    }
    if (totals_.elsewhere > 0) {
      Fact(Counted(totals_.elsewhere, "song") + " found in another place than the lists say.");
    }
    if (totals_.unlisted.count > 0) {
      Fact("Songs in no playlist were left where they are; --all-music brings them, too.");
    }
    if (terms_.dryRun) Fact("A trial: nothing was written on the new machine.");
    html_ += "</ul>\n";
  }

  void Trouble() {
    if (move_.warnings.empty()) return;
    html_ += "<section class=\"trouble\"><h2>What to look at</h2>\n<ul>\n";
    for (const WorkWarning& warning : move_.warnings) Fact(MoveWarningText(warning));
    html_ += "</ul></section>\n";
  }

  // ------------------------------------------------------------------------ the playlists ----

  /// Problems first, what was skipped last.
  int RankOf(const MovedPlaylist& playlist) const {
    if (notes_.IsProblem(playlist)) return 0;
    return playlist.state == MovedPlaylist::State::Skipped ? 2 : 1;
  }

  void Lists() {
    const std::size_t problems = totals_.partly + totals_.leftOut + totals_.notRead;
    isFewProblems_ = problems <= kMostUnfolded;
    html_ += "<h2>Playlists</h2>\n";
    html_ += kTools;
    std::vector<std::size_t> order(move_.playlists.size());
    for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
    std::stable_sort(order.begin(), order.end(), [this](std::size_t left, std::size_t right) {
      return RankOf(move_.playlists[left]) < RankOf(move_.playlists[right]);
    });
    for (const std::size_t playlist : order) List(playlist);
    Unlisted();
  }

  static bool IsChanged(const std::vector<Note>& notes) {
    return std::any_of(notes.begin(), notes.end(),
                       [](const Note& note) { return note.weight == Note::Weight::Change; });
  }

  void List(std::size_t number) {
    const MovedPlaylist& playlist = move_.playlists[number];
    const std::vector<Note> notes = notes_.Of(number);
    const bool isProblem = notes_.IsProblem(playlist);
    html_ += "<details class=\"list";
    if (isProblem) html_ += " bad";
    if (IsChanged(notes)) html_ += " changed";
    if (playlist.items.empty()) html_ += " idle";
    html_ += isProblem && isFewProblems_ ? "\" open><summary><strong>" : "\"><summary><strong>";
    html_ += HtmlName(ListNotes::NameOf(playlist)) + "</strong><small>" +
             HtmlName(ListNotes::PlaceOf(playlist));
    if (!playlist.kind.empty()) html_ += ", " + HtmlText(playlist.kind);
    html_ += "</small><em>" + HtmlText(notes_.Outcome(playlist)) +
             "</em></summary>\n<div class=\"inside\">\n";
    Notes(notes);
    Items(playlist);
    NewPlaces(playlist);
    html_ += "</div></details>\n";
  }

  void Notes(const std::vector<Note>& notes) {
    if (notes.empty()) return;
    html_ += "<ul class=\"notes\">\n";
    for (const Note& note : notes) {
      const char* const look = note.weight == Note::Weight::Problem  ? " class=\"p\""
                               : note.weight == Note::Weight::Detail ? " class=\"d\""
                                                                     : "";
      html_ += std::string("<li") + look + '>' + HtmlText(note.text) + '\n';
    }
    html_ += "</ul>\n";
  }

  void Items(const MovedPlaylist& playlist) {
    if (playlist.items.empty()) return;
    html_ += kTableHead;
    for (const MovedItem& item : playlist.items) {
      if (item.IsSong()) {
        Song(move_.songs[item.song], item);
      } else {
        html_ += item.IsCarried() ? "<tr><td>" : "<tr class=\"p\"><td>";
        if (item.entry > 0) html_ += std::to_string(item.entry);
        html_ += "<td><b>" + Name(item.reference) + "</b><td><td>" +
                 HtmlText(item.IsCarried() ? "stays as it is" : ReasonText(item)) + '\n';
      }
    }
    html_ += "</tbody></table>\n";
  }

  /// "Artist - Title" as far as known, else the file's name.
  static String ShownName(const MovedItem& item, StringView fileName) {
    if (item.title.empty()) return String(fileName);
    String name(item.artist);
    if (!name.empty()) name += u" - ";
    return name.append(item.title);
  }

  void Song(const MovedSong& song, const MovedItem& item) {
    const bool isLeftOut = song.state == MovedSong::State::LeftOut;
    const StringView name = LastComponent(song.source);
    const bool isRenamed =
        !song.place.empty() && !EqualsIgnoreCase(name, LastComponent(song.place));
    html_ += isLeftOut                          ? "<tr class=\"p\"><td>"
             : item.foundElsewhere || isRenamed ? "<tr class=\"c\"><td>"
                                                : "<tr><td>";
    if (item.entry > 0) html_ += std::to_string(item.entry);
    html_ += "<td><b>" + Name(ShownName(item, name)) + "</b><small>" + Name(song.source) +
             "</small><td>" + (song.place.empty() ? "" : Name(song.place)) + "<td>" +
             HtmlText(SongOutcome(song, terms_.dryRun));
    if (isLeftOut) html_ += ": " + HtmlText(ReasonText(song));
    if (item.foundElsewhere) html_ += ", found elsewhere";
    if (isRenamed) html_ += ", new name";
    html_ += "<small>" + SizeText(song.size) + "</small>\n";
  }

  void NewPlaces(const MovedPlaylist& playlist) {
    if (playlist.natives.empty() && playlist.companion.empty()) return;
    html_ += "<details class=\"where\"><summary>The new lists</summary><ul>\n";
    if (!playlist.companion.empty()) {
      html_ += "<li>" + Name(playlist.companion) + ", for players of today\n";
    }
    for (const String& native : playlist.natives) html_ += "<li>" + Name(native) + '\n';
    html_ += "</ul></details>\n";
  }

  void Unlisted() {
    const bool hasBrought = std::any_of(move_.songs.begin(), move_.songs.end(),
                                        [](const MovedSong& song) { return !song.listed; });
    if (!hasBrought && move_.unlisted.empty()) return;
    html_ +=
        "<details class=\"list idle\"><summary><strong>Songs in no playlist</strong><small>"
        "</small><em>" +
        (hasBrought ? "came along, as you asked"
                    : Counted(totals_.unlisted.count, "song") + " left where they are") +
        "</em></summary>\n<div class=\"inside\">\n";
    html_ += kTableHead;
    for (const MovedSong& song : move_.songs) {
      if (!song.listed) Song(song, MovedItem());
    }
    for (const UnlistedSong& song : move_.unlisted) {
      html_ += "<tr><td><td><b>" + Name(LastComponent(song.source)) + "</b><small>" +
               Name(ParentFolder(song.source)) + "</small><td><td>left where it is<small>" +
               SizeText(song.size) + "</small>\n";
    }
    html_ += "</tbody></table>\n</div></details>\n";
  }

  const MoveResult& move_;
  const MoveTerms& terms_;
  const std::string& date_;
  ListNotes notes_;
  MoveTotals totals_;
  bool isFewProblems_ = true;
  std::string html_;
};

}  // namespace

std::string MovePage(const MoveResult& move, const MoveTerms& terms, const std::string& date) {
  return Page(move, terms, date).Write();
}

}  // namespace norvo::cli
