#include "cli/MoveCodes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

namespace norvo::cli {
namespace {

TEST(MoveCodes, StatesHaveTheNamesOfTheDocument) {
  EXPECT_STREQ(CodeOf(MovedPlaylist::State::Collected), "collected");
  EXPECT_STREQ(CodeOf(MovedPlaylist::State::Restored), "restored");
  EXPECT_STREQ(CodeOf(MovedPlaylist::State::AlreadyRestored), "alreadyRestored");
  EXPECT_STREQ(CodeOf(MovedPlaylist::State::NoSongs), "noSongs");
  EXPECT_STREQ(CodeOf(MovedPlaylist::State::Skipped), "skipped");
  EXPECT_STREQ(CodeOf(MovedPlaylist::State::LeftOut), "leftOut");
  EXPECT_STREQ(CodeOf(MovedSong::State::Planned), "planned");
  EXPECT_STREQ(CodeOf(MovedSong::State::Copied), "copied");
  EXPECT_STREQ(CodeOf(MovedSong::State::Linked), "linked");
  EXPECT_STREQ(CodeOf(MovedSong::State::AlreadyThere), "alreadyThere");
  EXPECT_STREQ(CodeOf(MovedSong::State::LeftOut), "leftOut");
}

TEST(MoveCodes, ASongThatWasNotBroughtTellsWhatFailed) {
  MovedSong song;
  EXPECT_STREQ(ReasonCode(song), "");
  song.fault = MovedSong::Fault::PathTooLong;
  EXPECT_STREQ(ReasonCode(song), "pathTooLong");
  song.fault = MovedSong::Fault::NotBrought;
  EXPECT_STREQ(ReasonCode(song), "notBrought");
  song.failure = PlaceFailure::SourceMissing;
  EXPECT_STREQ(ReasonCode(song), "sourceMissing");
}

TEST(MoveCodes, APlaylistTellsWhyItWasLeftOutOrSkipped) {
  MovedPlaylist playlist;
  EXPECT_STREQ(ReasonCode(playlist), "");
  playlist.fault = MovedPlaylist::Fault::KindNotRead;
  EXPECT_STREQ(ReasonCode(playlist), "kindNotRead");
  playlist.state = MovedPlaylist::State::Skipped;
  playlist.rule = MovedPlaylist::SkipRule::RecycleBin;
  EXPECT_STREQ(ReasonCode(playlist), "recycleBin");
}

/// All values have codes of their own, which are single words.
template <class Value>
void ExpectWords(Value first, Value last) {
  std::set<std::string> codes;
  for (int i = static_cast<int>(first); i <= static_cast<int>(last); ++i) {
    const std::string code = CodeOf(static_cast<Value>(i));
    EXPECT_TRUE(!code.empty() && std::all_of(code.begin(), code.end(), [](char letter) {
      return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z');
    })) << code;
    EXPECT_TRUE(codes.insert(code).second) << code << " is there twice";
  }
}

TEST(MoveCodes, EveryReasonHasAWordOfItsOwn) {
  ExpectWords(Adjustment::Reason::NameUnusable, Adjustment::Reason::OldAddressTaken);
  ExpectWords(Mending::Kind::NotListed, Mending::Kind::DetailsFilled);
  ExpectWords(WorkWarning::Kind::Library, WorkWarning::Kind::LogFolderNotMade);
  ExpectWords(MovedItem::Fate::Song, MovedItem::Fate::Ambiguous);
  ExpectWords(MovedPlaylist::Fault::KindNotRead, MovedPlaylist::Fault::NotNoted);
  ExpectWords(MovedPlaylist::SkipRule::RecycleBin, MovedPlaylist::SkipRule::OtherForm);
}

}  // namespace
}  // namespace norvo::cli
