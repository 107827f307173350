#include "readahead/PlaylistReferences.h"

#include <gtest/gtest.h>

#include "platform/files/SystemCalls.h"
#include "support/TestMachine.h"

namespace norvo {
namespace {

using Texts = std::vector<std::string>;

class PlaylistReferencesTest : public TestMachine {
 protected:
  Texts ReferencesIn(const std::string& text, std::size_t most = 10000) {
    const std::filesystem::path path = Disk("C/List.m3u");
    Put(path, text);
    const FileResult<SystemFile> file = OpenSystemPath(path.string());
    Texts references;
    ForEachReference(*file, [&](std::string_view reference) {
      references.emplace_back(reference);
      return references.size() < most;
    });
    return references;
  }
};

TEST_F(PlaylistReferencesTest, OfAnM3uAllLinesCountButTitlesAndEmptyOnes) {
  EXPECT_EQ(ReferencesIn(
                "\xEF\xBB\xBF#EXTM3U\r\n#EXTINF:1,A - B\r\nC:\\Music\\B.mp3\r\n\r\n  b c.mp3 \n"),
            (Texts{"C:\\Music\\B.mp3", "b c.mp3"}));
}

TEST_F(PlaylistReferencesTest, ALastLineNeedsNoEnd) {
  EXPECT_EQ(ReferencesIn("a.mp3\nb.mp3"), (Texts{"a.mp3", "b.mp3"}));
}

TEST_F(PlaylistReferencesTest, OfAPlsTheFilesCount) {
  const Texts references = ReferencesIn("[playlist]\r\nFile1=C:\\A=B.mp3\r\nFile2=b.mp3\r\n");
  EXPECT_EQ(references, (Texts{"C:\\A=B.mp3", "b.mp3"}));
}

TEST_F(PlaylistReferencesTest, OfAnElementTheFirstTextInQuotationMarksCounts) {
  EXPECT_EQ(ReferencesIn("<Asx version=\"3\">\n <Ref href = \"..\\a.mp3\" x=\"y\"/>\n</Asx>\n"),
            (Texts{"3", "..\\a.mp3"}));
}

TEST_F(PlaylistReferencesTest, ALineThatLiesAcrossTwoBlocksIsWhole) {
  Texts written;
  std::string text;
  for (int i = 0; i < 3000; ++i) {
    written.push_back("C:\\Music\\Song number " + std::to_string(i) + ".mp3");
    text += written.back() + "\r\n";
  }
  EXPECT_EQ(ReferencesIn(text), written);
}

TEST_F(PlaylistReferencesTest, ALineThatIsTooLongEndsIt) {
  EXPECT_EQ(ReferencesIn("a.mp3\n" + std::string(100000, 'x') + "\nb.mp3\n"), Texts{"a.mp3"});
}

TEST_F(PlaylistReferencesTest, TheVisitorEndsIt) {
  EXPECT_EQ(ReferencesIn("a.mp3\nb.mp3\nc.mp3\n", 2), (Texts{"a.mp3", "b.mp3"}));
}

TEST_F(PlaylistReferencesTest, AReferenceIsTakenFromThePlaylistsFolderOrDrive) {
  const StringView folder = u"D:\\Lists\\";
  EXPECT_EQ(ReferencedPath("C:\\Music\\a.mp3", folder), u"C:\\Music\\a.mp3");
  EXPECT_EQ(ReferencedPath("\\Music\\a.mp3", folder), u"D:\\Music\\a.mp3");
  EXPECT_EQ(ReferencedPath("..\\Music/a.mp3", folder), u"D:\\Music\\a.mp3");
  EXPECT_EQ(ReferencedPath("Stra\xDF"
                           "e.mp3",
                           folder),
            u"D:\\Lists\\Stra\u00DFe.mp3");
  EXPECT_EQ(ReferencedPath("Stra\xC3\x9F"
                           "e.mp3",
                           folder),
            u"D:\\Lists\\Stra\u00DFe.mp3");
}

TEST_F(PlaylistReferencesTest, WhatIsOnNoDriveIsNoPath) {
  EXPECT_EQ(ReferencedPath("http://radio.example/live", u"C:\\"), u"");
  EXPECT_EQ(ReferencedPath("\\\\server\\share\\a.mp3", u"C:\\"), u"");
}

TEST_F(PlaylistReferencesTest, PlaylistsAreToldByTheirNamesInEitherCase) {
  EXPECT_TRUE(NamesPlaylist(u"MIX.M3U"));
  EXPECT_TRUE(NamesPlaylist(std::string_view("Mix.pls")));
  EXPECT_FALSE(NamesPlaylist(std::string_view("Mix.mp3")));
  EXPECT_FALSE(NamesPlaylist(std::string_view("m3u")));
}

}  // namespace
}  // namespace norvo
