#include "move/OtherForms.h"

#include <gtest/gtest.h>

#include <map>

#include "move/MixFixture.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

const String kLists = u"C:\\Norvo Media\\PlayLists\\";

/// Lists by their paths, with what they hold.
using Disk = std::map<String, String>;

Texts OthersOf(const Disk& disk, Texts* asked = nullptr) {
  std::vector<String> paths;
  for (const auto& [path, content] : disk) paths.push_back(path);
  const OtherForms forms(paths, [&](const String& path) -> std::optional<String> {
    if (asked != nullptr) asked->push_back(ToUtf8(path));
    const String& content = disk.at(path);
    return content == u"unreadable" ? std::nullopt : std::optional<String>(content);
  });
  Texts others;
  for (const String& path : paths) {
    if (forms.Contains(path)) others.push_back(ToUtf8(path.substr(kLists.size())));
  }
  return others;
}

Disk AllForms(const String& content) {
  return {{kLists + u"Modern Players\\Mix.m3u8", content},
          {kLists + u"MusicMatch Jukebox\\Mix.m3u", content},
          {kLists + u"Sonique\\Mix.pls", content},
          {kLists + u"WinAmp\\Mix.m3u", content},
          {kLists + u"Windows Media Player\\Mix.asx", content}};
}

const Texts kFour = {"MusicMatch Jukebox\\Mix.m3u", "Sonique\\Mix.pls", "WinAmp\\Mix.m3u",
                     "Windows Media Player\\Mix.asx"};

TEST(OtherForms, TheListForPlayersOfTodayStandsForAllOthers) {
  EXPECT_EQ(OthersOf(AllForms(u"songs")), kFour);
}

TEST(OtherForms, AListThatWasChangedIsAPlaylistOfItsOwn) {
  Disk disk = AllForms(u"songs");
  disk[kLists + u"WinAmp\\Mix.m3u"] = u"more songs";
  EXPECT_EQ(OthersOf(disk), (Texts{"MusicMatch Jukebox\\Mix.m3u", "Sonique\\Mix.pls",
                                   "Windows Media Player\\Mix.asx"}));
}

TEST(OtherForms, OneThatCannotBeReadIsNoForm) {
  EXPECT_EQ(OthersOf(AllForms(u"unreadable")), Texts());
}

TEST(OtherForms, WithoutTheListForPlayersOfTodayTheFirstStandsForTheRest) {
  Disk disk = AllForms(u"songs");
  disk[kLists + u"Modern Players\\Mix.m3u8"] = u"other songs";
  EXPECT_EQ(OthersOf(disk),
            (Texts{"Sonique\\Mix.pls", "WinAmp\\Mix.m3u", "Windows Media Player\\Mix.asx"}));
}

TEST(OtherForms, CaseOfNamesDoesNotMatter) {
  EXPECT_EQ(OthersOf({{kLists + u"MODERN PLAYERS\\mix.M3U8", u"songs"},
                      {kLists + u"winamp\\MIX.m3u", u"songs"}}),
            Texts{"winamp\\MIX.m3u"});
}

TEST(OtherForms, OfListsOfOneNameEachStandsForOne) {
  const Disk disk = {{kLists + u"Modern Players\\Mix.m3u8", u"songs"},
                     {kLists + u"Modern Players\\Mix (2).m3u8", u"songs"},
                     {kLists + u"WinAmp\\Mix.m3u", u"songs"},
                     {kLists + u"WinAmp\\Mix1.m3u", u"songs"},
                     {kLists + u"WinAmp\\Mix12.m3u", u"songs"}};
  EXPECT_EQ(OthersOf(disk), (Texts{"WinAmp\\Mix.m3u", "WinAmp\\Mix1.m3u"}));
}

TEST(OtherForms, ListsOfTwoNamesAreTwo) {
  EXPECT_EQ(OthersOf({{kLists + u"Modern Players\\Mix.m3u8", u"songs"},
                      {kLists + u"WinAmp\\Party.m3u", u"songs"}}),
            Texts());
}

TEST(OtherForms, ListsElsewhereAreNotLookedAt) {
  Texts asked;
  Disk disk = AllForms(u"songs");
  disk.erase(kLists + u"Modern Players\\Mix.m3u8");
  disk[u"C:\\Music\\WinAmp\\Mix.m3u"] = u"songs";
  disk[u"C:\\Music\\Mix.m3u"] = u"songs";
  EXPECT_EQ(OthersOf(disk, &asked), Texts());
  EXPECT_EQ(asked, Texts());
}

/// A move by way of a disk.
class SecondMoveTest : public MixTest {
 protected:
  nlohmann::json MovedOn() {
    return RunProgram({"migrate", "--json", "--from", New(), "--to", Third()}).Document();
  }
  std::string Third() const { return New() + "-2"; }
  Texts ListsOfThird() const {
    Texts names;
    const fs::path lists = fs::path(Third()) / "C/My Documents/Norvo Media/PlayLists";
    for (const auto& entry : fs::recursive_directory_iterator(lists)) {
      if (entry.is_regular_file()) names.push_back(entry.path().lexically_relative(lists).string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }
};

TEST_F(SecondMoveTest, EachPlaylistComesOnce) {
  EXPECT_EQ(Moved().at("exitCode"), 0);
  const nlohmann::json moved = MovedOn();
  EXPECT_EQ(moved.at("exitCode"), 0);
  EXPECT_EQ(ListsOfThird(),
            (Texts{"Modern Players/Mix.m3u8", "MusicMatch Jukebox/Mix.m3u", "Sonique/Mix.pls",
                   "WinAmp/Mix.m3u", "Windows Media Player/Mix.asx"}));
  std::size_t forms = 0;
  for (const auto& playlist : moved.at("playlists")) {
    forms += playlist.value("reasonCode", "") == "otherForm" ? 1U : 0U;
  }
  EXPECT_EQ(forms, 4u);
}

TEST_F(SecondMoveTest, AnEmptySongAndAnAddressInOtherLettersMakeNoNewLists) {
  const std::string list = R"(C:\Music\Empty.m3u8)";
  WriteOld(R"(C:\Music\Nothing.mp3)", "");
  WriteOld(list, std::string("#EXTM3U\r\nNothing.mp3\r\n") + kOne +
                     "\r\n\\\\server\\share\\\u03a9.mp3\r\n");
  Moved();
  const nlohmann::json moved = MovedOn();
  EXPECT_EQ(moved.at("summary").at("otherForms"), 8);
  EXPECT_EQ(ListsOfThird().size(), 10u);
}

TEST_F(SecondMoveTest, ASecondNameOfASongIsNoSongOfItsOwn) {
  const std::string omega = "C:\\Music\\\u03a9.mp3";
  AddSong(omega);
  WriteOld(R"(C:\Music\Greek.m3u8)", "#EXTM3U\r\n" + omega + "\r\n");
  EXPECT_EQ(Moved().at("exitCode"), 0);
  const nlohmann::json moved = MovedOn();
  EXPECT_EQ(moved.at("exitCode"), 0);
  EXPECT_EQ(moved.at("summary").at("unlisted").at("songs"), 0);
  EXPECT_EQ(moved.at("summary").at("skipped"), 0);
  EXPECT_EQ(moved.at("summary").at("otherForms"), 8);
}

TEST_F(SecondMoveTest, AListThatAPersonHasChangedComesToo) {
  EXPECT_EQ(Moved().at("exitCode"), 0);
  WriteNew(kRoot + R"(PlayLists\WinAmp\Mix.m3u)", M3u({kRoot + R"(Music\One.mp3)"}));
  EXPECT_EQ(MovedOn().at("exitCode"), 0);
  EXPECT_EQ(ListsOfThird().size(), 10u);
}

}  // namespace
}  // namespace norvo
