#include "lists/SongNames.h"

#include "services/DataCop.h"
#include "support/LibraryTest.h"

namespace norvo {
namespace {

TEST(SongNames, SoundAndFilmFilesOfPlayersAreSongs) {
  for (const StringView extension :
       {u"mp3",  u"wav", u"cda", u"asf",  u"as",   u"aif",  u"aiff", u"wma", u"ogg", u"oga",
        u"m4a",  u"m4b", u"m4p", u"aac",  u"mp4",  u"flac", u"ape",  u"wv",  u"mpc", u"mp+",
        u"mp2",  u"mp1", u"mpa", u"mpga", u"mid",  u"midi", u"rmi",  u"kar", u"mod", u"xm",
        u"s3m",  u"it",  u"ra",  u"rm",   u"ram",  u"au",   u"snd",  u"voc", u"avi", u"mpg",
        u"mpeg", u"mpe", u"m1v", u"mp2v", u"mov",  u"qt",   u"wmv",  u"wm",  u"ac3", u"dts",
        u"spx",  u"asx", u"vqf", u"opus", u"aifc", u"divx", u"mkv",  u"vob", u"dat", u"OGG"}) {
    const String path = u"C:\\Music\\a." + String(extension);
    EXPECT_TRUE(HasSongExtension(path)) << Utf8(path);
    EXPECT_TRUE(IsSongPath(path)) << Utf8(path);
  }
}

TEST(SongNames, OtherFilesAreNone) {
  for (const StringView path : {u"", u"C:\\a", u"C:\\a.", u"C:\\a.txt", u"C:\\a.mp", u"C:\\ogg",
                                u"C:\\a.ogg\\b", u"C:\\a.ogg.txt", u"C:\\a.oggs", u"C:\\a.jpg",
                                u"C:\\a.midis", u"C:\\a.m3u", u"C:\\a.mpeg4video"}) {
    EXPECT_FALSE(HasSongExtension(path)) << Utf8(path);
    EXPECT_FALSE(IsSongPath(path)) << Utf8(path);
  }
}

using SongNamesInLibrary = LibraryTest;

/// Whatever the library registers has to count as a song here too.
TEST_F(SongNamesInLibrary, WhatTheLibraryTakesForMediaIsASong) {
  for (const StringView name :
       {u"a.mp3", u"a.MP3.bak", u"a.asp",  u"x.as\\a.txt", u"a.wav", u"a.cda", u"a.asf",
        u"a.aif", u"a.aiff",    u"a.wma",  u"a.ASX",       u"a.mp",  u"a.w",   u"a.txt",
        u"mp3",   u"a.aifc",    u"a.wmax", u"a_as",        u".as",   u"a.a"}) {
    const String path = u"C:\\" + String(name);
    platform->AddFile(path, "x");
    String reference = path;
    std::int32_t type = 0;
    const bool isMedia =
        DataCop::GetGenValue(component, reference, u"C:\\", type) == DataCop::Status::Ok;
    EXPECT_EQ(IsSongPath(path), isMedia) << Utf8(path);
  }
}

}  // namespace
}  // namespace norvo
