#include "lists/ReferencePaths.h"

#include "support/TextPrinting.h"

namespace norvo {
namespace {

struct PathRow {
  StringView reference;
  Lines paths;
};

void ExpectPaths(const std::vector<PathRow>& rows) {
  for (const PathRow& row : rows) {
    EXPECT_EQ(Utf8(ReferencePaths(row.reference, u"D:\\Lists", Windows1252())), row.paths)
        << Utf8(row.reference);
  }
}

TEST(ReferencePaths, PathsOnDrivesStandForThemselves) {
  ExpectPaths({{u"C:\\a.mp3", {"C:\\a.mp3"}},
               {u"c:/Music/a.mp3", {"c:/Music/a.mp3"}},
               {u"C:a.mp3", {"C:a.mp3"}},
               {u"C:", {"C:"}},
               {u"C|/a.mp3", {"C:/a.mp3"}},
               {u"C|\\a.mp3", {"C:\\a.mp3"}},
               {u"/C:/a.mp3", {"C:/a.mp3"}},
               {u"/C|/a.mp3", {"C:/a.mp3"}}});
}

TEST(ReferencePaths, AllElseBelongsToThePlaylistsFolderOrDrive) {
  ExpectPaths({{u"a.mp3", {"D:\\Lists\\a.mp3"}},
               {u"..\\x/a.mp3", {"D:\\Lists\\..\\x/a.mp3"}},
               {u"1:\\a.mp3", {"D:\\Lists\\1:\\a.mp3"}},
               {u"1|a.mp3", {"D:\\Lists\\1|a.mp3"}},
               {u"\\Music\\a.mp3", {"D:\\Music\\a.mp3"}},
               {u"/Music/a.mp3", {"D:\\Music/a.mp3"}},
               {u"///Music/a.mp3", {"D:\\Music/a.mp3"}},
               {u"\\\\server\\share\\a.mp3", {"\\\\server\\share\\a.mp3"}},
               {u"//server/share/a.mp3", {"//server/share/a.mp3"}},
               {u"\\\\server\\share", {"\\\\server\\share"}},
               {u"\\\\a.mp3", {"D:\\a.mp3", "\\\\a.mp3"}},
               {u"// my list", {"D:\\ my list"}},
               {u"\\\\server\\\\", {"D:\\server\\\\", "\\\\server\\\\"}}});
  EXPECT_EQ(Utf8(ReferencePaths(u"\\a.mp3", u"\\\\server\\share\\Lists", Windows1252())),
            (Lines{"\\\\server\\share\\a.mp3"}));
}

TEST(ReferencePaths, FileUrlsArePathsInManyDisguises) {
  ExpectPaths({{u"file:///C:/a.mp3", {"C:/a.mp3"}},
               {u"FILE://C:\\a.mp3", {"C:\\a.mp3"}},
               {u"file:C:\\a.mp3", {"C:\\a.mp3"}},
               {u"file:/C:/a.mp3", {"C:/a.mp3"}},
               {u"file:\\\\\\C:\\a.mp3", {"C:\\a.mp3"}},
               {u"file:///C|/a.mp3", {"C:/a.mp3"}},
               {u"file://localhost/C:/a.mp3", {"C:/a.mp3"}},
               {u"file://LocalHost/C|/a.mp3", {"C:/a.mp3"}},
               {u"file://localhost/Music/a.mp3", {"D:\\Music/a.mp3"}},
               {u"file:///Music/a.mp3", {"D:\\Music/a.mp3"}},
               {u"file:/Music/a.mp3", {"D:\\Music/a.mp3"}},
               {u"file:Music/a.mp3", {"D:\\Lists\\Music/a.mp3"}},
               {u"file://a.mp3", {"D:\\Lists\\a.mp3"}},
               {u"file://server/share/a.mp3", {"\\\\server/share/a.mp3"}},
               {u"file:////server/share/a.mp3", {"\\\\server/share/a.mp3"}},
               {u"file://///server/share/a.mp3", {"\\\\server/share/a.mp3"}}});
}

TEST(ReferencePaths, OfAFileUrlTheDecodedFormGoesFirst) {
  ExpectPaths({{u"file:///C:/a%20b.mp3", {"C:/a b.mp3", "C:/a%20b.mp3"}},
               {u"file:///C:/Gr%F6%DFe.mp3", {"C:/Größe.mp3", "C:/Gr%F6%DFe.mp3"}},
               {u"file:%2F%2F%2FC%3A/a.mp3", {"C:/a.mp3", "D:\\Lists\\%2F%2F%2FC%3A/a.mp3"}},
               {u"a%20b.mp3", {"D:\\Lists\\a%20b.mp3"}}});
}

TEST(ReferencePaths, NothingComesOfNothing) {
  ExpectPaths({{u"", {}},
               {u"/", {}},
               {u"\\", {}},
               {u"\\\\", {}},
               {u"file:", {}},
               {u"file://", {}},
               {u"file:///", {}},
               {u"file://localhost/", {}}});
  EXPECT_TRUE(ReferencePaths(u"a.mp3", u"", Windows1252()).empty());
  EXPECT_TRUE(ReferencePaths(u"\\a.mp3", u"", Windows1252()).empty());
}

TEST(ReferencePaths, AnAddressHasASchemeOfTwoLettersOrMore) {
  for (const StringView text :
       {u"http://x", u"HTTPS://x", u"ftp://", u"mms://x", u"mmst://x", u"mmsu://x", u"rtsp://x",
        u"rtp://x", u"x-file://x", u"svn+ssh://x"}) {
    EXPECT_TRUE(IsInternetAddress(text)) << Utf8(text);
  }
  for (const StringView text :
       {u"", u"://", u"C://x", u"file://x", u"FILE://x", u"http:/x", u"http", u"my http://x",
        u"\"http://x", u"7up://x", u"ä://x", u"a\\b://x"}) {
    EXPECT_FALSE(IsInternetAddress(text)) << Utf8(text);
  }
}

}  // namespace
}  // namespace norvo
