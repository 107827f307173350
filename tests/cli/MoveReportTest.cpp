#include "cli/MoveReport.h"

#include <gtest/gtest.h>

#include <sstream>

#include "cli/MadeMove.h"
#include "cli/TerminalText.h"
#include "text/Encoding.h"

namespace norvo::cli {
namespace {

using Lines = std::vector<std::string>;

Lines ReportOf(const MoveResult& move, std::size_t width = 80, const MoveTerms& terms = {}) {
  Lines lines;
  for (const StyledLine& line : MoveReport(move, terms, width)) {
    lines.push_back(TerminalText(line, false));
  }
  return lines;
}

std::string Joined(const Lines& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + '\n';
  return text;
}

bool HasLine(const Lines& lines, const std::string& sought) {
  return std::find(lines.begin(), lines.end(), sought) != lines.end();
}

MoveTerms Verbose() {
  MoveTerms terms;
  terms.verbose = true;
  return terms;
}

TEST(MoveReport, TellsOfEachPlaylistThenOfProblemsThenTheTotals) {
  const MadeMove move = EventfulMove();
  EXPECT_EQ(Joined(ReportOf(move.result)),
            R"(  Party.asx            2 of 2 songs
      "Two.mp3" is now called "Two (2).mp3", because another song has that name
      in the same folder
! Mix.m3u (C:\Music)   1 of 4 songs, 1 address
      left out: C:\Music\Lost.mp3 (8.1 MB): the old file cannot be read:
      input/output error
      no such file: D:\gone.mp3
      not where the list says, and several files have that name: Song.mp3; it
      may be C:\A\Song.mp3 or C:\B\Song.mp3
      is now called "Mix 2", because a folder, or a link that leads nowhere, has
      that name
  mix.M3U (C:\Old)     1 of 1 song, moved before
      found elsewhere: E:\One.mp3 is C:\Music\One.mp3
! Late.kpl (C:\Music)  not read
      only its own player can read a list of this kind
  Dc1.m3u              skipped
      it is in the recycle bin
  Nothing.pls          empty
  Rock                 1 of 1 song

What did not come over, or not as it was
! 1 playlist is of a kind that only its own player reads
! 1 song (8.1 MB) could not be brought
! 1 listed song may be one of several files; move the right one to where the
  list says, and run again
! 1 listed file is not on the old machine
! C:\Mix.asx: was written, and is gone now

Playlists   7: 3 moved, 1 moved in part, 1 without songs, 1 not read, 1 skipped
            1 of them moved before, and as they were
Songs       3: 1 brought (5.3 MB), 1 there already (2.5 GB), 1 left out (8.1 MB)
Elsewhere   1 song found in another place than the lists say
In no list  2 songs (9.0 MB), left where they are; --all-music brings them, too
Checked     3 of 4 playlists, 8 of 9 songs right
)");
}

TEST(MoveReport, AWholeMoveHasNoProblems) {
  MadeMove move;
  move.AddSong(u"C:\\One.mp3", u"C:\\New\\One.mp3", 100);
  move.AddList(u"C:\\Mix.m3u", {0});
  move.result.count = {1, 1, 1, 1};
  EXPECT_EQ(ReportOf(move.result), (Lines{"  Mix.m3u  1 of 1 song", "", "Playlists   1: 1 moved",
                                          "Songs       1: 1 brought (1 KB)",
                                          "Checked     1 of 1 playlist, 1 of 1 song right"}));
}

TEST(MoveReport, TheFolderOfTheNewListsIsTold) {
  MadeMove move;
  move.AddSong(u"C:\\One.mp3", u"C:\\New\\One.mp3", 100);
  move.AddList(u"C:\\Mix.m3u", {0}).companion = u"C:\\Lists\\Modern Players\\Mix.m3u8";
  EXPECT_NE(Joined(ReportOf(move.result)).find("New lists   C:\\Lists, a folder for each player\n"),
            std::string::npos);
}

TEST(MoveReport, AListWhoseNewFilesAreNotAsTheyWereWrittenSaysSo) {
  MadeMove move;
  move.AddSong(u"C:\\One.mp3", u"C:\\New\\One.mp3", 100);
  MovedPlaylist& mix = move.AddList(u"C:\\Mix.m3u", {0}, MovedPlaylist::State::AlreadyRestored);
  mix.natives = {u"C:\\Lists\\Mix.asx", u"C:\\Lists\\Mix.pls"};
  WorkWarning gone;
  gone.kind = WorkWarning::Kind::NativeGone;
  gone.side = MachineSide::New;
  gone.subject = u"C:\\Lists\\Mix.pls";
  move.result.warnings = {gone};
  const Lines lines = ReportOf(move.result);
  EXPECT_EQ(lines.at(0), "! Mix.m3u (C:\\)  1 of 1 song, moved before");
  EXPECT_EQ(lines.at(1),
            "      not as it was written; was it changed or deleted? C:\\Lists\\Mix.pls");
}

TEST(MoveReport, WarningsOfTheLibraryAreInPlainWordsBehindTheirMachine) {
  WorkWarning warning;
  warning.kind = WorkWarning::Kind::Library;
  warning.side = MachineSide::Old;
  warning.warning = {WarningKind::FolderNotListed, u"C:\\Music", u"Permission denied",
                     u"PlayListFinder -> Permission denied"};
  EXPECT_EQ(MoveWarningText(warning),
            "Old machine: C:\\Music: this folder cannot be listed: Permission denied");
  warning.kind = WorkWarning::Kind::Oddity;
  EXPECT_EQ(MoveWarningText(warning), "Old machine: PlayListFinder -> Permission denied");
}

TEST(MoveReport, NoLineIsWiderThanTheTerminal) {
  MadeMove move = EventfulMove();
  const String wide(30, u'\u97F3');
  move.AddSong(u"C:\\" + wide + u"\\\xD83C\xDFB5.mp3", u"C:\\New\\" + wide + wide + u"\\x.mp3");
  MovedPlaylist& playlist = move.AddList(u"C:\\" + wide + u"\\" + wide + u".m3u", {3});
  const String gone = u"D:\\" + String(150, u'x') + u"\\" + wide + u".mp3";
  MadeMove::AddItem(playlist, MovedItem::Fate::NoSuchFile, gone);
  move.AddList(u"C:\\Other\\" + wide + u".m3u", {3});
  for (const std::size_t width : {40U, 80U, 200U}) {
    for (const std::string& line : ReportOf(move.result, width, Verbose())) {
      EXPECT_LE(DisplayWidth(line), width) << line;
    }
  }
}

TEST(MoveReport, WideNamesAreAlignedByTheCellsThatTheyTake) {
  MadeMove move;
  move.AddSong(u"C:\\One.mp3", u"C:\\New\\One.mp3");
  move.AddList(u"C:\\\u97F3\u697D.m3u", {0});
  move.AddList(u"C:\\abcd.m3u", {0});
  move.AddList(u"C:\\e\u0301bcd.m3u", {0});
  const Lines lines = ReportOf(move.result);
  EXPECT_EQ(lines[0], "  " + ToUtf8(u"\u97F3\u697D") + ".m3u  1 of 1 song");
  EXPECT_EQ(lines[1], "  abcd.m3u  1 of 1 song");
  EXPECT_EQ(lines[2], "  " + ToUtf8(u"e\u0301") + "bcd.m3u  1 of 1 song");
}

TEST(MoveReport, ManyChangesAreToldInShortUnlessEachIsAskedFor) {
  MadeMove move;
  std::vector<std::size_t> songs;
  for (std::size_t i = 0; i < 9; ++i) {
    move.AddSong(u"C:\\" + String(1, static_cast<char16_t>(u'a' + i)) + u".mp3", u"C:\\x.mp3");
    songs.push_back(i);
    move.result.adjustments.push_back(
        {0, i + 1, u"FileName", u"", u"x.mp3", Adjustment::Reason::IllegalName});
  }
  move.AddList(u"C:\\Mix.m3u", songs);
  const Lines lines = ReportOf(move.result);
  EXPECT_TRUE(HasLine(lines, "      and 4 more such (--verbose tells)")) << Joined(lines);
  const std::string last =
      "      \"i.mp3\" is now called \"x.mp3\", because Windows does not allow such a name";
  EXPECT_FALSE(HasLine(lines, last));
  EXPECT_TRUE(HasLine(ReportOf(move.result, 100, Verbose()), last));
}

TEST(MoveReport, SongsAreToldOneByOneOnlyWhenAskedFor) {
  const MadeMove move = EventfulMove();
  EXPECT_EQ(Joined(ReportOf(move.result)).find("-> "), std::string::npos);
  const Lines lines = ReportOf(move.result, 200, Verbose());
  EXPECT_TRUE(HasLine(lines, R"(      1. C:\Music\One.mp3 -> )"
                             R"(C:\My Documents\Norvo Media\Music\One.mp3 (5.3 MB, copied))"));
  EXPECT_TRUE(HasLine(lines, "      5. http://radio.example.com/")) << Joined(lines);
  EXPECT_TRUE(HasLine(lines, "Songs in no playlist"));
  EXPECT_TRUE(HasLine(lines, R"(  C:\Music\Alone.mp3 (4.0 MB))"));
}

TEST(MoveReport, WhatWasAskedToBeLeftIsSaidOnce) {
  MadeMove move;
  move.AddSong(u"C:\\One.mp3", u"C:\\New\\One.mp3", 5e6, MovedSong::State::Planned);
  move.AddSong(u"C:\\Two.mp3", u"C:\\New\\Two.mp3", 5e6, MovedSong::State::Planned);
  move.AddList(u"C:\\Mix.m3u", {0, 1});
  MoveTerms terms;
  terms.withMedia = false;
  EXPECT_EQ(ReportOf(move.result, 80, terms),
            (Lines{"  Mix.m3u  2 of 2 songs", "", "Playlists   1: 1 moved",
                   "Songs       2: 2 left where they are, as you asked (10.0 MB)"}));
}

TEST(MoveReport, ATrialSaysSo) {
  MadeMove move;
  move.AddSong(u"C:\\One.mp3", u"C:\\New\\One.mp3", 5e6, MovedSong::State::Planned);
  move.AddList(u"C:\\Mix.m3u", {0});
  MoveTerms terms;
  terms.dryRun = true;
  EXPECT_EQ(ReportOf(move.result, 80, terms),
            (Lines{"  Mix.m3u  1 of 1 song", "", "Playlists   1: 1 to be moved",
                   "Songs       1: 1 to be brought (5.0 MB)",
                   "A trial: nothing was written on the new machine."}));
}

TEST(MoveReport, AMoveOfNothingIsToldInTwoLines) {
  EXPECT_EQ(ReportOf(MoveResult()), (Lines{"Playlists   0", "Songs       0"}));
}

TEST(MoveReport, ANameCannotSteerTheTerminal) {
  MadeMove move;
  move.AddList(u"C:\\a\x1B[2J\x202E\r\n.m3u", {}, MovedPlaylist::State::NoSongs);
  const std::string text = Joined(ReportOf(move.result));
  EXPECT_EQ(text.find('\x1B'), std::string::npos);
  EXPECT_NE(text.find("a\\x1B[2J\\u202E\\x0D\\x0A.m3u"), std::string::npos) << text;
}

// --------------------------------------------------------------------------- the exit code ----

Lines LeftOutOf(const MoveResult& move) {
  std::ostringstream out;
  std::ostringstream err;
  Console console(out, err, false);
  TellLeftOut(move, console);
  Lines lines;
  std::istringstream text(err.str());
  for (std::string line; std::getline(text, line);) lines.push_back(line);
  EXPECT_EQ(console.ExitCode(), move.IsWhole() ? exit_code::kDone : exit_code::kLeftOut);
  return lines;
}

TEST(MoveReport, WhatExistsAndWasLeftOutIsNamed) {
  MadeMove move = EventfulMove();
  EXPECT_EQ(LeftOutOf(move.result),
            (Lines{R"(C:\Music\Mix.m3u: Song.mp3: not where the list says, and several files have )"
                   "that name",
                   R"(C:\Music\Late.kpl: only its own player can read a list of this kind)",
                   R"(C:\Music\Lost.mp3: the old file cannot be read: input/output error)"}));
}

TEST(MoveReport, WhatIsGoneOrSkippedOrInNoListIsNoFailure) {
  MadeMove move;
  MovedPlaylist& playlist = move.AddList(u"C:\\Mix.m3u", {});
  MadeMove::AddItem(playlist, MovedItem::Fate::NoSuchFile, u"gone.mp3");
  move.AddList(u"C:\\RECYCLED\\x.m3u", {}, MovedPlaylist::State::Skipped).rule =
      MovedPlaylist::SkipRule::RecycleBin;
  move.result.unlisted = {{u"C:\\One.mp3", 1}};
  EXPECT_EQ(LeftOutOf(move.result), Lines());
}

}  // namespace
}  // namespace norvo::cli
