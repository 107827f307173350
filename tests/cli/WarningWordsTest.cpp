#include "cli/WarningWords.h"

#include "cli/MachineWords.h"
#include "cli/TypedCommand.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace norvo::cli {
namespace {

using Kind = WorkWarning::Kind;

WorkWarning WarningOf(Kind kind, StringView subject = {}, StringView detail = {},
                      StringView wanted = {}, std::size_t found = 0, std::size_t expected = 0) {
  return {kind,           MachineSide::New, {},    String(subject),
          String(detail), String(wanted),   found, expected};
}

WorkWarning WarningOfText(Kind kind, StringView text) {
  WorkWarning warning = WarningOf(kind);
  warning.warning.text = text;
  return warning;
}

TEST(WarningWords, WhatTheLibraryTellsStandsBehindItsMachineInPlainWords) {
  WorkWarning warning = WarningOfText(Kind::Library, u"HelperMan -> Disk full: C:\\a.m3u");
  warning.warning.kind = WarningKind::PlaylistNotListed;
  warning.warning.path = u"C:\\a.m3u";
  warning.warning.reason = u"Disk full: C:\\a.m3u";
  const std::string plain = "C:\\a.m3u: this playlist was found and cannot be listed: Disk full";
  EXPECT_EQ(TextOf(warning), "Warning: " + plain);
  EXPECT_EQ(TextOf(warning, "Old machine: "), "Old machine: " + plain);
}

TEST(WarningWords, AnOddityIsAWarningOfEitherMachine) {
  const WorkWarning warning = WarningOfText(Kind::Oddity, u"two names differ in case alone");
  EXPECT_EQ(TextOf(warning), "Warning: two names differ in case alone");
  EXPECT_EQ(TextOf(warning, "Old machine: "), "Warning: two names differ in case alone");
}

TEST(WarningWords, WhatTheLibraryDidNotDoIsSaidInPlainWords) {
  const auto text = [](WarningKind kind, StringView path, StringView reason) {
    return PlainText({kind, String(path), String(reason), u"DataCop -> in its own terms"});
  };
  EXPECT_EQ(text(WarningKind::FolderNotListed, u"C:\\Music", u"Permission denied"),
            "C:\\Music: this folder cannot be listed: Permission denied");
  EXPECT_EQ(text(WarningKind::FileNotRead, u"C:\\a.mp3", u"File not found: C:\\a.mp3"),
            "C:\\a.mp3: this file cannot be read: File not found");
  EXPECT_EQ(text(WarningKind::DrivesNotListed, u"", u""),
            "the drives cannot be listed, so none was searched");
}

TEST(WarningWords, EveryKindOfWarningHasWordsOfItsOwn) {
  std::set<std::string> told;
  for (int kind = 0; kind <= static_cast<int>(WarningKind::MediaListNotWritten); ++kind) {
    told.insert(PlainText({static_cast<WarningKind>(kind), {}, {}, {}}));
  }
  EXPECT_EQ(told.size(), static_cast<std::size_t>(WarningKind::MediaListNotWritten) + 1);
  EXPECT_FALSE(told.contains(""));
}

TEST(WarningWords, ASettingThatIsOfNoUseSaysWhy) {
  EXPECT_EQ(TextOf(WarningOf(Kind::SettingUnusable, u"mode")),
            "The registry value mode is no number. It is left as it is; correct or remove it in "
            "registry.reg, then run init again.");
  EXPECT_EQ(
      TextOf(WarningOf(Kind::SettingUnusable, u"SubGroupRootName")),
      "The registry value SubGroupRootName is no text, or empty. It is left as it is; correct "
      "or remove it in registry.reg, then run init again.");
}

TEST(WarningWords, WhatWasThereBeforeStays) {
  EXPECT_EQ(TextOf(WarningOf(Kind::RoleKept, u"1")),
            "The role stays 1: it was there before. Change mode in registry.reg for another one.");
  EXPECT_EQ(TextOf(WarningOf(Kind::GroupRootKept, u"C:\\Media\\")),
            "The group root stays C:\\Media\\: it was there before. Change SubGroupRootName in "
            "registry.reg for another one.");
}

TEST(WarningWords, SettingsOfOneUserAreToldWithWhatMakesThemThoseOfAll) {
  EXPECT_EQ(TextOf(WarningOf(Kind::SettingsOfUser, u"SOFTWARE\\Norvo")),
            "The program's settings hold for this user alone, in HKEY_CURRENT_USER\\SOFTWARE\\"
            "Norvo: only an administrator may write those of all users. Nothing else hangs on "
            "that. To have them for all, remove that key, and run norvo-playlists init --machine "
            "DIR as an administrator.");
}

TEST(WarningWords, OnThisPcAnAdministratorMayChangeASetting) {
  ChooseWords(kThisPcWords, kThisPcWords);
  KnowCommand({"migrate", "--from", "E:\\Old PC\\"});
  const std::string text = TextOf(WarningOf(Kind::PlayerNotPointed, u"Software\\Player, Path"));
  ChooseWords(kFolderWords, kFolderWords);
  EXPECT_TRUE(
      text.ends_with(". Choose that folder in the player, or run this as an "
                     "administrator: norvo-playlists migrate --from \"E:\\Old PC\\\\\""))
      << text;
}

TEST(WarningWords, EachMachineOfAMoveHasItsOwnRegistry) {
  WorkWarning unusable = WarningOf(Kind::SettingUnusable, u"mode");
  const auto told = [&unusable](MachineSide side) {
    unusable.side = side;
    return TextOf(unusable);
  };
  ChooseWords(kThisPcWords, kFolderWords);
  const std::string ofPc = told(MachineSide::Old);
  const std::string ofFolder = told(MachineSide::New);
  ChooseWords(kFolderWords, kFolderWords);
  EXPECT_TRUE(ofPc.ends_with("correct or remove it in the registry, then run init again.")) << ofPc;
  EXPECT_TRUE(ofFolder.ends_with("correct or remove it in registry.reg, then run init again."))
      << ofFolder;
}

TEST(WarningWords, WithoutTheProductFolderThereIsNoLog) {
  EXPECT_EQ(TextOf(WarningOf(Kind::LogNotWritten, u"C:\\a.txt", u"Permission denied: C:\\a.txt")),
            "No log is written: C:\\a.txt: Permission denied. Close the program that uses it, see "
            "that it may be read and written, and run again");
  EXPECT_EQ(TextOf(WarningOf(Kind::NoLogFolder, u"C:\\Norvo\\")),
            "No log is written: the product folder C:\\Norvo\\ is missing. norvo-playlists init "
            "creates it.");
}

TEST(WarningWords, AFolderOfTheLogAloneIsMissedByNothingElse) {
  EXPECT_EQ(TextOf(WarningOf(Kind::LogFolderNotMade, u"C:\\Norvo\\", u"Permission denied")),
            "The product folder C:\\Norvo\\ cannot be created: Permission denied. It takes the log "
            "alone; nothing else hangs on that.");
}

TEST(WarningWords, WhatTheReadingBackHasFoundIsToldOfTheFile) {
  EXPECT_EQ(TextOf(WarningOf(Kind::NativesMissing, u"C:\\Mix.m3u", {}, {}, 3, 4)),
            "C:\\Mix.m3u: only 3 of its 4 new lists were written");
  EXPECT_EQ(TextOf(WarningOf(Kind::UntellableAddress, u"C:\\Mix.m3u", u"http://\u0416/")),
            "C:\\Mix.m3u: lists of older players cannot hold all letters of \"http://\xD0\x96/\"");
  EXPECT_EQ(TextOf(WarningOf(Kind::NativeGone, u"C:\\Mix.asx")),
            "C:\\Mix.asx: was written, and is gone now");
  EXPECT_EQ(TextOf(WarningOf(Kind::NativeIncomplete, u"C:\\Mix.asx", {}, {}, 1, 2)),
            "C:\\Mix.asx: reads back with 1 of 2 entries");
  EXPECT_EQ(TextOf(WarningOf(Kind::WrongSong, u"C:\\Mix.asx", u"C:\\a.mp3", u"C:\\b.mp3")),
            "C:\\Mix.asx: \"C:\\a.mp3\" does not lead to C:\\b.mp3");
  EXPECT_EQ(TextOf(WarningOf(Kind::ChangedAddress, u"C:\\Mix.asx", u"http://a/", u"http://b/")),
            "C:\\Mix.asx: \"http://a/\" was http://b/");
}

TEST(WarningWords, WhatTheCheckAtTheEndHasFoundIsToldOfListAndSong) {
  EXPECT_EQ(TextOf(WarningOf(Kind::CountedListWrong, u"C:\\Mix.asx", {}, {}, 1, 2)),
            "C:\\Mix.asx: the check at the end has found 1 of 2 songs in it");
  EXPECT_EQ(TextOf(WarningOf(Kind::TagsNotRead, u"C:\\a.mp3", u"Device I/O error")),
            "C:\\a.mp3: the names in it (its tags) could not be read: Device I/O error. "
            "It may stand among the songs without an artist");
  EXPECT_EQ(TextOf(WarningOf(Kind::CountedSongWrong, u"C:\\Mix.asx", u"C:\\a.mp3", u"C:\\b.mp3")),
            "C:\\Mix.asx: the check at the end has found \"C:\\a.mp3\", which is not the song "
            "C:\\b.mp3");
}

TEST(WarningWords, ThatNewListsCouldNotBeNotedIsToldWithWhatComesOfIt) {
  EXPECT_EQ(TextOf(WarningOf(Kind::CopiesNotNoted, u"C:\\KVs\\RestoredCopies.txt", u"Disk full")),
            "C:\\KVs\\RestoredCopies.txt: the lists that were made here could not be noted: Disk "
            "full. Later, collect takes them for lists of this machine's own");
}

TEST(WarningWords, ASongThatIsWholeButForItsTimesIsTold) {
  EXPECT_EQ(TextOf(WarningOf(Kind::TimesLost, u"C:\\a.mp3", u"permission denied")),
            "C:\\a.mp3: is whole, but its date is that of the copying: permission denied");
}

TEST(WarningWords, WhatPlayersCannotReachIsTold) {
  EXPECT_EQ(TextOf(WarningOf(Kind::NoPlainName, u"C:\\\u0416.mp3", u"disk full", u"C:\\J.mp3")),
            "C:\\\xD0\x96.mp3: older players cannot find it under its own name, and a second name, "
            "C:\\J.mp3, cannot be made: disk full");
  EXPECT_EQ(TextOf(WarningOf(Kind::CompanionMissing, u"C:\\Mix.asx")),
            "C:\\Mix.asx: its new list for players of today (.m3u8) was not written");
}

TEST(WarningWords, APlayersSettingThatIsNotChangedSaysWhatToDo) {
  const StringView folder = u"C:\\M\\PlayLists\\Winamp";
  EXPECT_EQ(TextOf(WarningOf(Kind::PlayerNotPointed, u"C:\\Winamp\\Winamp.ini, cwd",
                             u"Permission denied: C:\\Winamp\\Winamp.ini", folder)),
            "C:\\Winamp\\Winamp.ini, cwd: this setting of a player cannot be changed to "
            "C:\\M\\PlayLists\\Winamp: Permission denied. See that it can be written and run "
            "again, or choose that folder in the player");
  EXPECT_EQ(TextOf(WarningOf(Kind::PlayerNotPointed, u"Software\\Player, Path", {}, folder)),
            "Software\\Player, Path: this setting of a player cannot be changed to "
            "C:\\M\\PlayLists\\Winamp. See that it can be written and run again, or choose that "
            "folder in the player");
}

}  // namespace
}  // namespace norvo::cli
