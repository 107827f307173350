#include "move/SongDetails.h"

#include <gtest/gtest.h>

#include "move/MemoryMove.h"

namespace norvo {
namespace {

/// A frame of ID3v2.3.
std::string Frame(const std::string& name, const std::string& payload) {
  std::string frame = name;
  for (int shift = 24; shift >= 0; shift -= 8) {
    frame.push_back(static_cast<char>(payload.size() >> static_cast<unsigned>(shift)));
  }
  return frame + std::string(2, '\0') + payload;
}

/// A text in UTF-16 with its byte order mark, as Windows writes tags.
std::string Utf16Payload(StringView text) {
  std::string payload = "\x01\xFF\xFE";
  for (const char16_t unit : text) {
    payload.push_back(static_cast<char>(unit & 0xFFU));
    payload.push_back(static_cast<char>(unit >> 8U));
  }
  return payload;
}

struct Names {
  StringView artist;
  StringView album;
  StringView title;
};

std::string TaggedSong(const Names& names, const std::string& milliseconds = {}) {
  std::string frames = Frame("TPE1", Utf16Payload(names.artist)) +
                       Frame("TALB", Utf16Payload(names.album)) +
                       Frame("TIT2", Utf16Payload(names.title));
  if (!milliseconds.empty()) frames += Frame("TLEN", '\0' + milliseconds);
  std::string header = "ID3\x03" + std::string(2, '\0');
  for (int shift = 21; shift >= 0; shift -= 7) {
    header.push_back(static_cast<char>((frames.size() >> static_cast<unsigned>(shift)) & 0x7FU));
  }
  return header + frames;
}

class SongDetailsTest : public ::testing::Test {
 protected:
  static constexpr StringView kSong = u"C:\\Music\\One.mp3";
  static constexpr Names kBjork = {u"Björk", u"Homogenic", u"Jóga"};
  static constexpr Names kKino = {u"Кино", u"Группа крови", u"Спокойная ночь"};

  /// The text of the native playlist of one player, after a move.
  std::string Native(const std::string& player, const std::string& name) {
    machines.Run();
    const Contents contents = ContentsOf(*machines.to);
    const auto found =
        contents.find("C:\\My Documents\\Norvo Media\\PlayLists\\" + player + "\\" + name);
    return found == contents.end() ? "(none)" : found->second;
  }

  MemoryMove machines;
};

TEST_F(SongDetailsTest, TagsInEveryScriptDecideWhereSongsLand) {
  machines.from->AddFile(kSong, TaggedSong(kBjork));
  machines.from->AddFile(u"C:\\Music\\Two.mp3", TaggedSong(kKino));
  machines.AddPlaylist(u"C:\\Mix.m3u", {"C:\\Music\\One.mp3", "C:\\Music\\Two.mp3"});
  const MoveResult move = machines.Run();
  ASSERT_EQ(move.songs.size(), 2u);
  EXPECT_TEXT(move.songs[0].place,
              u"C:\\My Documents\\Norvo Media\\Music\\Björk\\Homogenic\\One.mp3");
  EXPECT_TEXT(move.songs[1].place,
              u"C:\\My Documents\\Norvo Media\\Music\\Кино\\Группа крови\\Two.mp3");
  EXPECT_TRUE(move.IsWhole());
}

TEST_F(SongDetailsTest, TitlesAndLengthsOfTagsReachEveryNativePlaylist) {
  machines.from->AddFile(kSong, TaggedSong(kBjork, "215000"));
  machines.AddPlaylist(u"C:\\Mix.m3u", {"C:\\Music\\One.mp3"});
  EXPECT_NE(Native("WinAmp", "Mix.m3u").find("#EXTINF:215,Bj\xF6rk - J\xF3ga\r\n"),
            std::string::npos);
  const std::string pls = Native("Sonique", "Mix.pls");
  EXPECT_NE(pls.find("Length1=215\r\nTitle1=Bj\xF6rk - J\xF3ga\r\n"), std::string::npos);
  const std::string asx = Native("Windows Media Player", "Mix.asx");
  EXPECT_NE(asx.find("<Duration Value = \"00:03:35.000\" />"), std::string::npos);
  EXPECT_NE(asx.find("<Title> J\xF3ga</Title>"), std::string::npos);
  EXPECT_NE(Native("Modern Players", "Mix.m3u8").find("#EXTINF:215,Björk - Jóga\r\n"),
            std::string::npos);
}

TEST_F(SongDetailsTest, WhatThePlaylistTellsComesFirstButForTheArtistOfThePlace) {
  machines.from->AddFile(kSong, TaggedSong(kBjork, "215000"));
  machines.from->AddFile(u"C:\\Mix.m3u",
                         "#EXTM3U\r\n#EXTINF:99,Me - My name for it\r\nC:\\Music\\One.mp3\r\n");
  // The artist decides the song's place, which is one for all playlists.
  EXPECT_NE(Native("WinAmp", "Mix.m3u").find("#EXTINF:99,Bj\xF6rk - My name for it\r\n"),
            std::string::npos);
  EXPECT_NE(Native("Modern Players", "Mix.m3u8").find("#EXTINF:99,Me - My name for it\r\n"),
            std::string::npos);
}

TEST_F(SongDetailsTest, ANameThatThe8BitPlaylistCouldNotTellComesFromTheTag) {
  machines.from->AddFile(kSong, TaggedSong(kKino));
  machines.from->AddFile(u"C:\\Mix.m3u",
                         "#EXTM3U\r\n#EXTINF:99,???? - ????\r\nC:\\Music\\One.mp3\r\n");
  EXPECT_NE(Native("Modern Players", "Mix.m3u8").find("#EXTINF:99,Кино - Спокойная ночь\r\n"),
            std::string::npos);
}

TEST_F(SongDetailsTest, AnOwnNameForASongWithATagInAnotherScriptIsKept) {
  machines.from->AddFile(kSong, TaggedSong(kKino));
  machines.from->AddFile(u"C:\\Mix.m3u",
                         "#EXTM3U\r\n#EXTINF:9,Kino - A quiet night\r\nC:\\Music\\One.mp3\r\n");
  EXPECT_NE(Native("Modern Players", "Mix.m3u8").find("#EXTINF:9,Kino - A quiet night\r\n"),
            std::string::npos);
}

TEST_F(SongDetailsTest, LengthsOfPlsKeysAreKept) {
  machines.AddSong(kSong);
  machines.from->AddFile(u"C:\\Mix.pls",
                         "[playlist]\r\nFile1=C:\\Music\\One.mp3\r\nTitle1=A - B\r\nLength1=61\r\n"
                         "NumberOfEntries=1\r\nVersion=2\r\n");
  EXPECT_NE(Native("Sonique", "Mix.pls").find("Length1=61\r\nTitle1=A - B\r\n"), std::string::npos);
}

TEST_F(SongDetailsTest, AStreamKeepsItsTitle) {
  machines.from->AddFile(u"C:\\Radio.m3u",
                         "#EXTM3U\r\n#EXTINF:-1,Radio One\r\nhttp://radio.example.com:80/live\r\n");
  EXPECT_NE(Native("WinAmp", "Radio.m3u").find(",radio.example.com - Radio One\r\n"),
            std::string::npos);
}

TEST_F(SongDetailsTest, OfASongOfWhichNothingIsKnownNothingIsTold) {
  machines.AddSong(kSong);
  machines.AddPlaylist(u"C:\\Mix.m3u", {"C:\\Music\\One.mp3"});
  EXPECT_EQ(Native("WinAmp", "Mix.m3u"),
            "#EXTM3U\r\nC:\\My Documents\\Norvo Media\\Music\\One.mp3\r\n");
}

TEST_F(SongDetailsTest, ASongOfWhichOnlyTheLengthIsKnownIsCalledAsItsFile) {
  machines.AddSong(kSong);
  machines.from->AddFile(u"C:\\Mix.pls",
                         "[playlist]\r\nFile1=C:\\Music\\One.mp3\r\nLength1=61\r\n"
                         "NumberOfEntries=1\r\nVersion=2\r\n");
  EXPECT_NE(Native("Modern Players", "Mix.m3u8").find("#EXTINF:61,One\r\n"), std::string::npos);
}

TEST_F(SongDetailsTest, AnAddressOutsideThe8BitPageIsWrittenInPercentSigns) {
  machines.from->AddFile(u"C:\\Radio.m3u8", "#EXTM3U\r\nhttp://example.com/\xD1\x8F.mp3\r\n");
  EXPECT_NE(Native("WinAmp", "Radio.m3u").find("http://example.com/%D1%8F.mp3\r\n"),
            std::string::npos);
}

}  // namespace
}  // namespace norvo
