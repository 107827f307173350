#include "lists/ReferenceFinder.h"

#include <filesystem>
#include <fstream>
#include <random>

#include "automation/RunTimeError.h"
#include "machines/TemporaryFolder.h"
#include "platform/hosted/HostedPlatform.h"
#include "support/LibraryTest.h"

namespace norvo {
namespace {

using namespace std::string_view_literals;

constexpr StringView kFolder = u"C:\\Lists\\Pop";

/// "file C:\a.mp3", "address http://x", "no song C:\a.txt", "missing a.mp3".
std::string Shown(const FoundReference& found) {
  constexpr const char* kKinds[] = {"file ", "address ", "no song ", "missing "};
  return kKinds[static_cast<std::size_t>(found.kind)] + Utf8(found.path);
}

class ReferenceFinderTest : public LibraryTest {
 protected:
  ReferenceFinderTest() {
    platform->AddDrive(u'A', DriveType::Removable);
    platform->AddDrive(u'D', DriveType::Fixed);
    platform->AddDrive(u'E', DriveType::CdRom);
    platform->AddDrive(u'N', DriveType::Network);
    platform->AddDrive(u'R', DriveType::RamDisk);
    platform->AddDrive(u'U', DriveType::Unknown);
    platform->AddFolder(kFolder);
  }

  std::string Find(StringView reference, StringView folder = kFolder) {
    return Shown(ReferenceFinder(component).Find(reference, folder));
  }

  void Put(StringView path) { platform->AddFile(path, "x"); }

  struct Row {
    StringView reference;
    std::string found;
  };
  void ExpectFound(const std::vector<Row>& rows) {
    for (const Row& row : rows) EXPECT_EQ(Find(row.reference), row.found) << Utf8(row.reference);
  }
};

TEST_F(ReferenceFinderTest, PathsAreFoundAsWritten) {
  for (const StringView path : {u"C:\\Music\\a.mp3", u"C:\\a.mp3", u"C:\\Lists\\a.mp3",
                                u"C:\\Lists\\Pop\\a.mp3", u"C:\\Lists\\Pop\\Sub\\a.mp3"}) {
    Put(path);
  }
  ExpectFound({{u"C:\\Music\\a.mp3", "file C:\\Music\\a.mp3"},
               {u"C:\\Music\\..\\Music\\.\\a.mp3", "file C:\\Music\\a.mp3"},
               {u"\\Music\\a.mp3", "file C:\\Music\\a.mp3"},
               {u"\\a.mp3", "file C:\\a.mp3"},
               {u"a.mp3", "file C:\\Lists\\Pop\\a.mp3"},
               {u".\\a.mp3", "file C:\\Lists\\Pop\\a.mp3"},
               {u"..\\a.mp3", "file C:\\Lists\\a.mp3"},
               {u"..\\..\\..\\..\\a.mp3", "file C:\\a.mp3"},
               {u"../../Music/a.mp3", "file C:\\Music\\a.mp3"},
               {u"Sub\\a.mp3", "file C:\\Lists\\Pop\\Sub\\a.mp3"},
               {u"Sub/a.mp3", "file C:\\Lists\\Pop\\Sub\\a.mp3"},
               {u"  a.mp3\t", "file C:\\Lists\\Pop\\a.mp3"},
               {u"a.mp3\0x"sv, "file C:\\Lists\\Pop\\a.mp3"}});
}

TEST_F(ReferenceFinderTest, TheFolderMayEndInABackslash) {
  Put(u"C:\\a.mp3");
  Put(u"D:\\b.mp3");
  EXPECT_EQ(Find(u"a.mp3", u"C:\\"), "file C:\\a.mp3");
  EXPECT_EQ(Find(u"\\b.mp3", u"D:\\Lists\\"), "file D:\\b.mp3");
  EXPECT_EQ(Find(u"\\a.mp3", u"D:\\Lists"), "missing \\a.mp3");
  EXPECT_EQ(Find(u"a.mp3", u""), "missing a.mp3");
  EXPECT_EQ(Find(u"C:\\a.mp3", u""), "file C:\\a.mp3");
}

TEST_F(ReferenceFinderTest, TheLastNameIsSpelledAsOnDisk) {
  Put(u"C:\\Music\\Größe No 1.MP3");
  EXPECT_EQ(Find(u"c:\\MUSIC\\GRÖSSE no 1.mp3"), "missing c:\\MUSIC\\GRÖSSE no 1.mp3");
  EXPECT_EQ(Find(u"c:\\MUSIC\\grÖße no 1.mp3"), "file c:\\MUSIC\\Größe No 1.MP3");
  EXPECT_EQ(Find(u"C:\\Music\\größe no 1.mp3. ."), "file C:\\Music\\Größe No 1.MP3");
}

TEST_F(ReferenceFinderTest, OtherWaysToWriteADriveAreFound) {
  Put(u"C:\\Music\\a.mp3");
  Put(u"C:\\a.mp3");
  ExpectFound({{u"/Music/a.mp3", "file C:\\Music\\a.mp3"},
               {u"C:/Music/a.mp3", "file C:\\Music\\a.mp3"},
               {u"C:\\\\Music\\\\a.mp3", "file C:\\Music\\a.mp3"},
               {u"C://Music/a.mp3", "file C:\\Music\\a.mp3"},
               {u"C|/Music/a.mp3", "file C:\\Music\\a.mp3"},
               {u"C:a.mp3", "file C:\\a.mp3"},
               {u"C:Music\\a.mp3", "file C:\\Music\\a.mp3"}});
}

TEST_F(ReferenceFinderTest, FileUrlsAreFound) {
  Put(u"C:\\Music\\a b.mp3");
  Put(u"C:\\Music\\Größe.mp3");
  Put(u"C:\\Lists\\Pop\\a b.mp3");
  ExpectFound({{u"file:///C:/Music/a%20b.mp3", "file C:\\Music\\a b.mp3"},
               {u"file:///C:/Music/a b.mp3", "file C:\\Music\\a b.mp3"},
               {u"file://C:\\Music\\a b.mp3", "file C:\\Music\\a b.mp3"},
               {u"file:C:\\Music\\a b.mp3", "file C:\\Music\\a b.mp3"},
               {u"FILE://LOCALHOST/c:/Music/a%20b.mp3", "file c:\\Music\\a b.mp3"},
               {u"file:///c|/Music/a%20b.mp3", "file c:\\Music\\a b.mp3"},
               {u"file:///C:/Music/Gr%C3%B6%C3%9Fe.mp3", "file C:\\Music\\Größe.mp3"},
               {u"file:///C:/Music/Gr%F6%DFe.mp3", "file C:\\Music\\Größe.mp3"},
               {u"file:///C:/Music/GrÃ¶ÃŸe.mp3", "file C:\\Music\\Größe.mp3"},
               {u"file:a%20b.mp3", "file C:\\Lists\\Pop\\a b.mp3"},
               {u"file://server/share/a%20b.mp3", "address \\\\server\\share\\a b.mp3"},
               {u"file:///C:/Music/c.mp3", "missing file:///C:/Music/c.mp3"},
               {u"file://", "missing file://"}});
}

TEST_F(ReferenceFinderTest, DecodedTextsAreFoundAndTheWrittenOneGoesFirst) {
  Put(u"C:\\Music\\A & B.mp3");
  Put(u"C:\\Music\\A &amp; C.mp3");
  Put(u"C:\\Music\\A & C.mp3");
  Put(u"C:\\Music\\100% Ä.mp3");
  Put(u"C:\\Music\\x%20y.mp3");
  Put(u"C:\\Music\\x y.mp3");
  ExpectFound({{u"C:\\Music\\A &amp; B.mp3", "file C:\\Music\\A & B.mp3"},
               {u"C:\\Music\\A &#38; B&#x2E;mp3", "file C:\\Music\\A & B.mp3"},
               {u"C:\\Music\\A &amp; C.mp3", "file C:\\Music\\A &amp; C.mp3"},
               {u"C:\\Music\\100%25%20%C4.mp3", "file C:\\Music\\100% Ä.mp3"},
               {u"C:/Music/A%20%26%20B.mp3", "file C:\\Music\\A & B.mp3"},
               {u"C:/Music/A%20&amp;%20B.mp3", "file C:\\Music\\A & B.mp3"},
               {u"C:\\Music\\100% Ã„.mp3", "file C:\\Music\\100% Ä.mp3"},
               {u"C:\\Music\\x%20y.mp3", "file C:\\Music\\x%20y.mp3"},
               {u"file:///C:/Music/x%20y.mp3", "file C:\\Music\\x y.mp3"},
               {u"C:\\Music\\A &; B.mp3", "missing C:\\Music\\A &; B.mp3"}});
}

TEST_F(ReferenceFinderTest, QuotesComeOffLast) {
  Put(u"C:\\Lists\\Pop\\a.mp3");
  Put(u"C:\\Lists\\Pop\\'b'.mp3");
  ExpectFound({{u"\"a.mp3\"", "file C:\\Lists\\Pop\\a.mp3"},
               {u"'a.mp3'", "file C:\\Lists\\Pop\\a.mp3"},
               {u"\"a.mp3", "file C:\\Lists\\Pop\\a.mp3"},
               {u"&quot;a%2Emp3&quot;", "file C:\\Lists\\Pop\\a.mp3"},
               {u"'b'.mp3", "file C:\\Lists\\Pop\\'b'.mp3"},
               {u"\"http://x/a\"", "address http://x/a"}});
}

TEST_F(ReferenceFinderTest, AddressesStayAndCostNoLookAtAnyDisk) {
  platform->Log().Clear();
  ExpectFound({{u"http://x/a.mp3", "address http://x/a.mp3"},
               {u"HTTP://x/A%20B?a=1&amp;b=2", "address HTTP://x/A%20B?a=1&amp;b=2"},
               {u"ftp://x", "address ftp://x"},
               {u"mms://x", "address mms://x"},
               {u"mmst://x", "address mmst://x"},
               {u"mmsu://x", "address mmsu://x"},
               {u"https://x", "address https://x"},
               {u"rtsp://x", "address rtsp://x"},
               {u"rtp://x", "address rtp://x"},
               {u"anything://x", "address anything://x"}});
  EXPECT_EQ(platform->Log().Total(), 0u);
}

TEST_F(ReferenceFinderTest, SharesAndDrivesThatComeAndGoStay) {
  platform->AddFile(u"E:\\b.mp3", "x");
  platform->Log().Clear();
  ExpectFound({{u"\\\\server\\share\\a.mp3", "address \\\\server\\share\\a.mp3"},
               {u"//server/share/a.mp3", "address \\\\server\\share\\a.mp3"},
               {u"\\\\server\\share\\\\x\\..\\a.mp3", "address \\\\server\\share\\\\x\\..\\a.mp3"},
               {u"A:\\a.mp3", "address A:\\a.mp3"},
               {u"E:\\\\x\\..\\a.mp3", "address E:\\\\x\\..\\a.mp3"},
               {u"E:a.mp3", "address E:\\a.mp3"},
               {u"E|\\a.mp3", "address E:\\a.mp3"},
               {u"E:/x/../a.mp3", "address E:\\a.mp3"},
               {u"E:\\a.mp3", "address E:\\a.mp3"},
               {u"e:/b.mp3", "address e:\\b.mp3"},
               {u"N:\\a.mp3", "address N:\\a.mp3"},
               {u"file:///E:/Track01.cda", "address E:\\Track01.cda"}});
  EXPECT_EQ(Find(u"a.mp3", u"E:\\Lists"), "address E:\\Lists\\a.mp3");
  EXPECT_EQ(Find(u"\\a.mp3", u"\\\\server\\share\\Lists"), "address \\\\server\\share\\a.mp3");
  EXPECT_EQ(platform->Log().Count(u"FactsOf"), 0u);
}

TEST_F(ReferenceFinderTest, TwoBackslashesMakeAnAddressUnlessThereIsTheFile) {
  Put(u"C:\\a.mp3");
  ExpectFound({{u"\\\\a.mp3", "file C:\\a.mp3"},
               {u"\\\\b.mp3", "address \\\\b.mp3"},
               {u"\\\\C:\\a.mp3", "file C:\\a.mp3"},
               {u"//a.mp3", "file C:\\a.mp3"},
               {u"// my list", "missing // my list"}});
}

TEST_F(ReferenceFinderTest, RamDisksHoldFilesAndMissingDrivesNothing) {
  Put(u"R:\\a.mp3");
  ExpectFound({{u"R:\\a.mp3", "file R:\\a.mp3"},
               {u"R:\\b.mp3", "missing R:\\b.mp3"},
               {u"G:\\a.mp3", "missing G:\\a.mp3"},
               {u"U:\\a.mp3", "missing U:\\a.mp3"}});
}

TEST_F(ReferenceFinderTest, WhatIsNoSongIsToldAndWhatMayBeIsASong) {
  for (const StringView path : {u"C:\\a.txt", u"C:\\a.ogg", u"C:\\a.MID", u"C:\\x.as\\a.txt",
                                u"C:\\a.mp3.bak", u"C:\\a.m3u", u"C:\\song"}) {
    Put(path);
  }
  ExpectFound({{u"C:\\a.txt", "no song C:\\a.txt"},
               {u"C:\\a.ogg", "file C:\\a.ogg"},
               {u"C:\\a.mid", "file C:\\a.MID"},
               {u"C:\\x.as\\a.txt", "file C:\\x.as\\a.txt"},
               {u"C:\\a.mp3.bak", "file C:\\a.mp3.bak"},
               {u"C:\\a.m3u", "no song C:\\a.m3u"},
               {u"C:\\song", "no song C:\\song"}});
}

TEST_F(ReferenceFinderTest, AFolderIsNoFile) {
  platform->AddFolder(u"C:\\Music\\a.mp3");
  ExpectFound({{u"C:\\Music\\a.mp3", "missing C:\\Music\\a.mp3"},
               {u"C:\\Music\\", "missing C:\\Music\\"},
               {u"C:\\", "missing C:\\"},
               {u"..", "missing .."}});
}

TEST_F(ReferenceFinderTest, ASeparatorAtTheEndOfAFileDoesNotMatter) {
  Put(u"C:\\Music\\b.mp3");
  Put(u"C:\\Lists\\Pop\\c.mp3");
  ExpectFound({{u"C:\\Music\\b.mp3\\", "file C:\\Music\\b.mp3"},
               {u"C:/Music/b.mp3//", "file C:\\Music\\b.mp3"},
               {u"file:///C:/Music/b.mp3/", "file C:\\Music\\b.mp3"},
               {u"c.mp3/", "file C:\\Lists\\Pop\\c.mp3"},
               {u"d.mp3/", "missing d.mp3/"}});
}

TEST_F(ReferenceFinderTest, SpellingsOfOneNameInUnicodeAreTheSame) {
  Put(u"C:\\Music\\Bj\u00F6rk.mp3");
  Put(u"C:\\Music\\E\u0301tude.mp3");
  ExpectFound({{u"C:\\Music\\Bjo\u0308rk.mp3", Utf8(u"file C:\\Music\\Bj\u00F6rk.mp3")},
               {u"C:\\Music\\\u00C9tude.mp3", Utf8(u"file C:\\Music\\E\u0301tude.mp3")},
               {u"file:///C:/Music/%C3%89tude.mp3", Utf8(u"file C:\\Music\\E\u0301tude.mp3")},
               {u"C:\\Music\\Bjork.mp3", "missing C:\\Music\\Bjork.mp3"}});
}

TEST_F(ReferenceFinderTest, TheSpellingAsWrittenGoesFirst) {
  Put(u"C:\\Bj\u00F6rk.mp3");
  Put(u"C:\\Bjo\u0308rk.mp3");
  ExpectFound({{u"C:\\Bj\u00F6rk.mp3", Utf8(u"file C:\\Bj\u00F6rk.mp3")},
               {u"C:\\Bjo\u0308rk.mp3", Utf8(u"file C:\\Bjo\u0308rk.mp3")}});
}

TEST_F(ReferenceFinderTest, EachFolderMayBeSpelledInItsOwnWay) {
  Put(u"C:\\M\u00FCsik\\Bjo\u0308rk\\J\u00F3ga.mp3");
  Put(u"C:\\Plain\\Bjo\u0308rk J\u00F3ga.mp3");
  const std::string expected = Utf8(u"file C:\\M\u00FCsik\\Bjo\u0308rk\\J\u00F3ga.mp3");
  ExpectFound({{u"C:\\Mu\u0308sik\\Bj\u00F6rk\\Jo\u0301ga.mp3", expected},
               {u"C:\\M\u00FCsik\\Bj\u00F6rk\\J\u00F3ga.mp3", expected},
               {u"C:\\MU\u0308SIK\\BJ\u00D6RK\\JO\u0301GA.mp3", expected},
               {u"C:\\Plain\\BJ\u00F6rk Jo\u0301ga.MP3",
                Utf8(u"file C:\\Plain\\Bjo\u0308rk J\u00F3ga.mp3")},
               {u"C:\\None\\Bj\u00F6rk\\Jo\u0301ga.mp3",
                Utf8(u"missing C:\\None\\Bj\u00F6rk\\Jo\u0301ga.mp3")}});
}

TEST_F(ReferenceFinderTest, AFolderIsListedOnceAndOnlyForNamesThatAreNotPlain) {
  Put(u"C:\\Music\\a.mp3");
  ReferenceFinder finder(component);
  platform->Log().Clear();
  for (int i = 0; i < 3; ++i) finder.Find(u"C:\\Music\\missing.mp3", kFolder);
  EXPECT_EQ(platform->Log().Count(u"ListFolder"), 0u);
  for (int i = 0; i < 3; ++i) finder.Find(u"C:\\Music\\\u65E5.mp3", kFolder);
  EXPECT_EQ(platform->Log().Count(u"ListFolder"), 1u);
}

TEST_F(ReferenceFinderTest, ANameOfThePageThatLooksLikeUtf8IsFound) {
  Put(u"C:\\Music\\Ã¶.mp3");
  ExpectFound({{u"C:\\Music\\ö.mp3", "file C:\\Music\\Ã¶.mp3"}});
  Put(u"C:\\Music\\ö.mp3");
  ExpectFound({{u"C:\\Music\\ö.mp3", "file C:\\Music\\ö.mp3"}});
}

TEST_F(ReferenceFinderTest, TextsThatNameNothingAreMissing) {
  for (const StringView text :
       {u"",    u"C:",  u"C",     u":",       u"\\",       u"\\\\", u"/",     u"//",  u".",
        u"..",  u"...", u"file:", u"file://", u"file:///", u"%",    u"%0",    u"%00", u"%2F",
        u"&#;", u"&",   u"\"",    u"\"\"",    u"'",        u"''",   u"?",     u"*",   u"|",
        u"C|",  u"<>",  u"://",   u"#",       u"\xD83D",   u"Ã",    u"\xFFFF"}) {
    EXPECT_EQ(Find(text), "missing " + Utf8(text));
  }
}

TEST_F(ReferenceFinderTest, VeryLongReferencesAreMissing) {
  for (const StringView piece : {u"x", u"..\\", u"a/", u"%41", u"&amp;", u"Ã¶", u"\"", u"/"}) {
    String text;
    while (text.size() < (1u << 18)) text += piece;
    EXPECT_EQ(ReferenceFinder(component).Find(text, kFolder).kind, FoundReference::Kind::Missing)
        << Utf8(piece);
  }
}

TEST_F(ReferenceFinderTest, NothingIsCountedOrLogged) {
  Put(u"C:\\Lists\\Pop\\a.mp3");
  Find(u"a.mp3");
  Find(u"b.mp3");
  EXPECT_EQ(component.MediaBytes(), 0);
  EXPECT_TRUE(log.empty());
  EXPECT_TRUE(platform->Records().empty());
}

TEST_F(ReferenceFinderTest, AFailingDiskRaisesNothing) {
  Put(u"C:\\Music\\A B.mp3");
  constexpr StringView kReference = u"C:/Music/A%20B.mp3";
  platform->Log().Clear();
  EXPECT_EQ(Find(kReference), "file C:\\Music\\A B.mp3");
  const std::size_t calls = platform->Log().Total();
  for (std::size_t k = 1; k <= calls; ++k) {
    platform->Log().FailAt(k, error::kDeviceInputOutput);
    const std::string found = Find(kReference);
    EXPECT_TRUE(platform->Log().HasFailed());
    EXPECT_TRUE(found == "file C:\\Music\\A B.mp3" || found == "missing C:/Music/A%20B.mp3") << k;
    platform->Log().RunOutOfMemoryAt(k);
    EXPECT_NO_THROW(Find(kReference)) << k;
    EXPECT_TRUE(platform->Log().HasFailed());
  }
  platform->Log().FailOn(u"FactsOf", 1, error::kPermissionDenied);
  EXPECT_EQ(Find(kReference), "file C:\\Music\\A B.mp3") << "the second meaning is still there";
}

TEST_F(ReferenceFinderTest, AnyTextGivesAnAnswer) {
  Put(u"C:\\Lists\\Pop\\a.mp3");
  constexpr StringView kPieces[] = {u"a.mp3", u"C:", u"\\", u"/",  u"..",    u".",      u"%",
                                    u"%41",   u"|",  u":",  u"&",  u"&amp;", u"file:",  u"//",
                                    u"\"",    u"'",  u" ",  u"Ã¶", u"%C3",   u"\xD83D", u"\t"};
  std::mt19937 random(20030514);
  int found = 0;
  for (int i = 0; i < 20000; ++i) {
    String text;
    for (std::size_t pieces = random() % 8; pieces > 0; --pieces) {
      text += kPieces[random() % std::size(kPieces)];
    }
    const FoundReference result = ReferenceFinder(component).Find(text, kFolder);
    if (result.kind == FoundReference::Kind::File) {
      ++found;
      ASSERT_TRUE(platform->HasFile(result.path)) << Utf8(text) << " gives " << Utf8(result.path);
    }
  }
  EXPECT_GT(found, 100);
}

TEST(ReferenceFinder, FindsFilesOfAMachineInAFolder) {
  const TemporaryFolder folder;
  const std::filesystem::path music = folder.Path() / "C" / "My Music";
  std::filesystem::create_directories(music / "Sub.mp3");
  for (const char* name : {"Größe & Co.MP3", "Note.txt", "100% [Live].ogg"}) {
    std::ofstream(music / name) << "x";
  }
  const auto component = OpenLibrary(std::make_shared<HostedPlatform>(folder.Path()));
  ReferenceFinder finder(*component);
  const auto find = [&](StringView reference) {
    return Shown(finder.Find(reference, u"C:\\Lists"));
  };
  EXPECT_EQ(find(u"..\\MY MUSIC\\größe & co.mp3"), "file C:\\MY MUSIC\\Größe & Co.MP3");
  EXPECT_EQ(find(u"file:///C:/My%20Music/Gr%C3%B6%C3%9Fe%20&amp;%20Co.mp3"),
            "file C:\\My Music\\Größe & Co.MP3");
  EXPECT_EQ(find(u"/My Music/GrÃ¶ÃŸe & Co.mp3"), "file C:\\My Music\\Größe & Co.MP3");
  EXPECT_EQ(find(u"C:\\My Music\\100%25%20%5bLive%5D.ogg"), "file C:\\My Music\\100% [Live].ogg");
  EXPECT_EQ(find(u"\\My Music\\Note.txt"), "no song C:\\My Music\\Note.txt");
  EXPECT_EQ(find(u"\\My Music\\Sub.mp3"), "missing \\My Music\\Sub.mp3");
  EXPECT_EQ(find(u"D:\\a.mp3"), "missing D:\\a.mp3");
  EXPECT_EQ(find(String(1 << 20, u'x')), "missing " + std::string(1 << 20, 'x'));
}

TEST_F(ReferenceFinderTest, WhatIsLongerThanAnyPathLeadsNowhere) {
  const String start = u"http://a/";
  const String longest = start + String(32767 - start.size(), u'x');
  EXPECT_TRUE(Find(longest).starts_with("address "));
  EXPECT_TRUE(Find(longest + u"x").starts_with("missing "));
}

}  // namespace
}  // namespace norvo
