#include "cli/MovePage.h"

#include <gtest/gtest.h>

#include "cli/HtmlText.h"
#include "cli/MadeMove.h"

namespace norvo::cli {
namespace {

std::string PageOf(const MoveResult& move, const MoveTerms& terms = {}) {
  return MovePage(move, terms, "2026-01-02");
}

std::size_t CountIn(const std::string& text, const std::string& sought) {
  std::size_t count = 0;
  for (std::size_t at = text.find(sought); at != std::string::npos;
       at = text.find(sought, at + 1)) {
    ++count;
  }
  return count;
}

bool Holds(const std::string& text, const std::string& sought) {
  return CountIn(text, sought) > 0;
}

TEST(HtmlText, NothingOfANameBecomesMarkup) {
  EXPECT_EQ(HtmlName("<a href=\"x\" b='y'>&lt;"),
            "<bdi>&lt;a href=&quot;x&quot; b=&#39;y&#39;&gt;&amp;lt;</bdi>");
}

TEST(HtmlText, WhatNobodySeesGetsASign) {
  EXPECT_EQ(HtmlName(std::string("a\0b\x1B\x7F\r\n", 7)),
            "<bdi>a\xE2\x90\x80"
            "b\xE2\x90\x9B\xE2\x90\xA1\xE2\x90\x8D\xE2\x90\x8A</bdi>");
  EXPECT_EQ(HtmlName("\xC2\x85\xEF\xBF\xBE\xFF"),
            "<bdi>\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD</bdi>");
}

TEST(HtmlText, AWritingDirectionStaysInItsNameAndIsSpeltOutInASentence) {
  EXPECT_EQ(HtmlName("a\xE2\x80\xAE"
                     "b"),
            "<bdi>a\xE2\x80\xAE"
            "b</bdi>");
  EXPECT_EQ(HtmlText("a\xE2\x80\xAE<"), "a\\u202E&lt;");
}

TEST(MovePage, ProblemsStandFirstAndWhatWasSkippedLast) {
  const std::string page = PageOf(EventfulMove().result);
  const auto at = [&](const char* name) { return page.find(std::string("<strong><bdi>") + name); };
  EXPECT_LT(at("Mix.m3u"), at("Late.kpl"));
  EXPECT_LT(at("Late.kpl"), at("Party.asx"));
  EXPECT_LT(at("Party.asx"), at("Rock"));
  EXPECT_LT(at("Rock"), at("Dc1.m3u"));
  EXPECT_NE(at("Dc1.m3u"), std::string::npos);
}

TEST(MovePage, EverySongAndEveryListedFileHasARow) {
  const MadeMove move = EventfulMove();
  std::size_t rows = move.result.unlisted.size();
  for (const MovedPlaylist& playlist : move.result.playlists) rows += playlist.items.size();
  // One more for the heads of each of the tables.
  const std::string page = PageOf(move.result);
  EXPECT_EQ(CountIn(page, "<tr"), rows + CountIn(page, "<thead>"));
  EXPECT_TRUE(Holds(page, "<bdi>Alone too.mp3</bdi>"));
  EXPECT_TRUE(Holds(page, "left out: the old file cannot be read: input/output error"));
  EXPECT_TRUE(Holds(page, "C:\\Mix.asx: was written, and is gone now"));
  EXPECT_TRUE(Holds(page, "3 of 4 playlists, 8 of 9 songs right"));
}

TEST(MovePage, ItsHeadlineIsAsGoodAsTheMove) {
  EXPECT_TRUE(Holds(PageOf(EventfulMove().result), "<h1>Most of it came over</h1>"));
  EXPECT_TRUE(Holds(PageOf(MoveResult()), "<h1>There was nothing to move</h1>"));
  MadeMove move;
  move.AddSong(u"C:\\One.mp3", u"C:\\New\\One.mp3");
  MovedPlaylist& playlist = move.AddList(u"C:\\Mix.m3u", {0});
  EXPECT_TRUE(Holds(PageOf(move.result), "<h1>Everything came over</h1>"));
  MadeMove::AddItem(playlist, MovedItem::Fate::NoSuchFile, u"gone.mp3");
  EXPECT_TRUE(Holds(PageOf(move.result), "<h1>All that was there came over</h1>"));
  MoveTerms terms;
  terms.dryRun = true;
  EXPECT_TRUE(Holds(PageOf(move.result, terms), "<h1>What a move would bring</h1>"));
}

TEST(MovePage, TheBarHasASegmentForWhateverBecameOfSongs) {
  const std::string page = PageOf(EventfulMove().result);
  for (const char* const segment :
       {R"(<i class="brought" style="flex:1">)", R"(<i class="there" style="flex:1">)",
        R"(<i class="left" style="flex:1">)", R"(<i class="unlisted" style="flex:2">)"}) {
    EXPECT_TRUE(Holds(page, segment)) << segment;
  }
  EXPECT_FALSE(Holds(page, R"(<i class="planned")"));
}

TEST(MovePage, OfManyProblemsNoneIsUnfolded) {
  MadeMove move;
  for (int i = 0; i < 10; ++i) {
    MadeMove::AddItem(move.AddList(u"C:\\Mix.m3u", {}), MovedItem::Fate::NoSuchFile, u"gone.mp3");
  }
  EXPECT_EQ(CountIn(PageOf(move.result), "\" open>"), 10u);
  MadeMove::AddItem(move.AddList(u"C:\\Mix.m3u", {}), MovedItem::Fate::NoSuchFile, u"gone.mp3");
  EXPECT_EQ(CountIn(PageOf(move.result), "\" open>"), 0u);
}

}  // namespace
}  // namespace norvo::cli
