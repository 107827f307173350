#include "services/DataCop.h"

#include "automation/RunTimeError.h"
#include "support/LibraryTest.h"

namespace norvo {
namespace {

using namespace DataCop;

class DataCopTest : public LibraryTest {
 protected:
  DataCopTest() {
    platform->AddDrive(u'D', DriveType::Removable);
    platform->AddDrive(u'E', DriveType::CdRom);
    platform->AddDrive(u'F', DriveType::Fixed);
    platform->AddDrive(u'N', DriveType::Network);
    platform->AddDrive(u'R', DriveType::RamDisk);
    platform->AddDrive(u'U', DriveType::Unknown);
    platform->AddDrive(u'A', DriveType::Removable);
  }

  std::int32_t TypeOf(StringView reference, StringView folder = u"C:\\Music\\") {
    String text(reference);
    return GetURLType(component, text, folder);
  }

  String Resolved(StringView reference, StringView folder) {
    String text(reference);
    GetURLType(component, text, folder);
    return text;
  }

  Status Judge(StringView reference, StringView folder = u"C:\\Music\\") {
    judged = reference;
    type = -1;
    return GetGenValue(component, judged, folder, type);
  }

  String judged;           // the reference after the last judgement
  std::int32_t type = -1;  // its type
};

struct JudgedRow {
  StringView reference;
  std::int32_t type;
};

TEST_F(DataCopTest, EachKindOfReferenceHasItsType) {
  constexpr JudgedRow kRows[] = {
      // Drives, by their kind; A and B are left to the patterns.
      {u"C:\\a.mp3", 0},
      {u"c:\\a.mp3", 0},
      {u"C:\\", 0},
      {u"R:\\a.mp3", 5},
      {u"D:\\a.mp3", 6},
      {u"e:\\a.mp3", 6},
      {u"N:\\a.mp3", 7},
      {u"U:\\a.mp3", 10},
      {u"Q:\\a.mp3", 10},
      {u"A:\\song.mp3", 3},
      {u"b:\\song.mp3", 3},
      {u"C:a.mp3", 4},
      {u"C:/a.mp3", 4},
      {u" C:\\a.mp3", 4},
      // Shares and addresses.
      {u"\\\\server\\share\\a.mp3", 8},
      {u"\\\\", 8},
      {u"http://host/a.mp3", 9},
      {u"HTTP://host", 9},
      {u"ftp://host", 9},
      {u"Mms://host", 9},
      {u"https://host", 4},
      {u"http:/host", 4},
      {u"rtsp://host", 4},
      // From the drive's root.
      {u"\\Music\\a.mp3", 1},
      {u"\\a.mp3", 1},
      {u"\\.hidden", 1},
      {u"\\01 Mix\\a.mp3", 1},
      {u"\\#1\\a.mp3", 1},
      {u"\\Ärzte\\a.mp3", 1},
      {u"\\日本\\a.mp3", 1},
      {u"\\_a.mp3", 4},
      {u"\\(a)\\b.mp3", 4},
      {u"\\", 10},
      // Beginning with a point.
      {u"..\\a.mp3", 2},
      {u".\\a.mp3", 2},
      {u"..\\..\\a.mp3", 2},
      {u"..\\7.mp3", 2},
      {u".x\\a.mp3", 2},
      {u".\\_a.mp3", 4},
      {u"..\\", 4},
      {u"..", 4},
      {u".a.mp3", 4},
      // Other relative paths.
      {u"Pop\\a.mp3", 3},
      {u"pop\\", 3},
      {u"1\\a.mp3", 3},
      {u"#\\a.mp3", 3},
      {u"Ärzte\\a.mp3", 3},
      {u"_x\\a.mp3", 4},
      {u"[x]\\a.mp3", 4},
      // Bare names, and what is left.
      {u"a.mp3", 4},
      {u" ", 4},
      {u"x/y.mp3", 4},
      {u"", 10},
  };
  for (const JudgedRow& row : kRows)
    EXPECT_EQ(TypeOf(row.reference), row.type) << Utf8(row.reference);
}

struct ResolutionRow {
  StringView reference;
  StringView folder;
  StringView resolved;
};

TEST_F(DataCopTest, RelativeReferencesAreWrittenInFull) {
  platform->AddFile(u"C:\\Music\\a.mp3", "x");
  platform->AddFile(u"F:\\Music\\f.mp3", "x");
  constexpr ResolutionRow kRows[] = {
      {u"..\\a.mp3", u"C:\\Music\\Pop\\", u"C:\\Music\\a.mp3"},
      {u"..\\..\\..\\a.mp3", u"C:\\Music\\Pop\\", u"C:\\a.mp3"},
      {u".\\a.mp3", u"C:\\Music", u"C:\\Music\\a.mp3"},
      {u"a.mp3", u"C:\\Music", u"C:\\Music\\a.mp3"},
      {u"a.mp3", u"C:\\Music\\", u"C:\\Music\\a.mp3"},
      {u"Pop\\x/a.mp3", u"C:\\Music\\", u"C:\\Music\\Pop\\x\\a.mp3"},
      {u"Pop\\..\\a.mp3. ", u"C:\\Music\\", u"C:\\Music\\a.mp3"},
      {u"a.mp3", u"\\\\server\\share\\Music", u"\\\\server\\share\\Music\\a.mp3"},
      // From the root: only where the file is there.
      {u"\\Music\\a.mp3", u"C:\\Lists\\", u"C:\\Music\\a.mp3"},
      {u"\\Music\\f.mp3", u"F:\\Lists\\", u"F:\\Music\\f.mp3"},
      {u"\\Music\\none.mp3", u"C:\\Lists\\", u"\\Music\\none.mp3"},
      {u"\\Music\\a.mp3", u"F:\\Lists\\", u"\\Music\\a.mp3"},
      // All others stay.
      {u"C:\\x\\..\\a.mp3", u"C:\\Music\\", u"C:\\x\\..\\a.mp3"},
      {u"D:\\x\\..\\a.mp3", u"C:\\Music\\", u"D:\\x\\..\\a.mp3"},
      {u"\\\\server\\share\\..\\a", u"C:\\Music\\", u"\\\\server\\share\\..\\a"},
      {u"http://host/../a", u"C:\\Music\\", u"http://host/../a"},
      {u"\\", u"C:\\Music\\", u"\\"},
  };
  for (const ResolutionRow& row : kRows) {
    EXPECT_TEXT(Resolved(row.reference, row.folder), row.resolved)
        << Utf8(row.reference) << " in " << Utf8(row.folder);
  }
}

TEST_F(DataCopTest, AnEmptyReferenceLeavesItsType) {
  EXPECT_EQ(Judge(u""), Status::Empty);
  EXPECT_EQ(type, -1);
  EXPECT_EQ(platform->Log().Total(), 0u);
}

TEST_F(DataCopTest, StatusCodesAreTheDocumentedNumbers) {
  EXPECT_EQ(static_cast<std::uint32_t>(Status::Ok), 0u);
  EXPECT_EQ(static_cast<std::uint32_t>(Status::FileNotFound), 0x800407DBu);
  EXPECT_EQ(static_cast<std::uint32_t>(Status::Accepted), 0x800407E0u);
  EXPECT_EQ(static_cast<std::uint32_t>(Status::NotMedia), 0x800407DFu);
  EXPECT_EQ(static_cast<std::uint32_t>(Status::Empty), 0x80041389u);
}

TEST_F(DataCopTest, AddressesAndSharesAreAcceptedWithoutALookAtTheDisk) {
  for (const StringView reference :
       {u"http://host/a.mp3", u"ftp://host/a", u"mms://host/a", u"\\\\server\\share\\a.mp3"}) {
    EXPECT_EQ(Judge(reference), Status::Accepted) << Utf8(reference);
    EXPECT_TEXT(judged, reference);
  }
  EXPECT_EQ(platform->Log().Total(), 0u);
}

TEST_F(DataCopTest, ReferencesOnOtherDrivesAreAcceptedWithoutALookAtTheFile) {
  EXPECT_EQ(Judge(u"D:\\a.txt"), Status::Accepted);
  EXPECT_EQ(type, url_type::kRemovable);
  EXPECT_EQ(Judge(u"E:\\a.txt"), Status::Accepted);
  EXPECT_EQ(Judge(u"N:\\a.txt"), Status::Accepted);
  EXPECT_EQ(type, url_type::kNetworkDrive);
  EXPECT_EQ(platform->Calls(u"FactsOf"), 0u);
}

TEST_F(DataCopTest, UnusableReferencesAreNotFound) {
  for (const StringView reference : {u"Q:\\a.mp3", u"U:\\a.mp3", u"\\"}) {
    EXPECT_EQ(Judge(reference), Status::FileNotFound) << Utf8(reference);
    EXPECT_EQ(type, url_type::kUnusable);
  }
  EXPECT_EQ(platform->Calls(u"FactsOf"), 0u);
}

TEST_F(DataCopTest, LocalMediaFilesThatExistAreGood) {
  platform->AddFile(u"C:\\Music\\a.mp3", "12345");
  platform->AddFile(u"R:\\a.mp3", "12345");
  constexpr JudgedRow kRows[] = {
      {u"C:\\Music\\a.mp3", 0}, {u"\\Music\\a.mp3", 1}, {u"..\\Music\\a.mp3", 2},
      {u"Pop\\..\\a.mp3", 3},   {u"a.mp3", 4},          {u"R:\\a.mp3", 5}};
  for (const JudgedRow& row : kRows) {
    EXPECT_EQ(Judge(row.reference, u"C:\\Music"), Status::Ok) << Utf8(row.reference);
    EXPECT_EQ(type, row.type) << Utf8(row.reference);
  }
}

TEST_F(DataCopTest, MissingFilesAndFoldersTurnToTypeTen) {
  platform->AddFolder(u"C:\\Music\\folder.mp3");
  for (const StringView reference :
       {u"C:\\Music\\none.mp3", u"\\Music\\none.mp3", u"..\\none.mp3", u"Pop\\none.mp3",
        u"none.mp3", u"R:\\none.mp3", u"folder.mp3", u"C:\\Music\\folder.mp3"}) {
    EXPECT_EQ(Judge(reference), Status::FileNotFound) << Utf8(reference);
    EXPECT_EQ(type, url_type::kUnusable) << Utf8(reference);
  }
}

TEST_F(DataCopTest, ARootRelativeReferenceIsLookedForOnThePlaylistsDriveOnly) {
  platform->AddFile(u"C:\\Music\\a.mp3", "x");
  EXPECT_EQ(Judge(u"\\Music\\a.mp3", u"F:\\Lists\\"), Status::FileNotFound);
  EXPECT_EQ(type, url_type::kUnusable);
  EXPECT_EQ(component.MediaBytes(), 0);
}

TEST_F(DataCopTest, MediaAreKnownByMarksAnywhereInThePath) {
  for (const StringView path :
       {u"C:\\a.mp3", u"C:\\a.MP3", u"C:\\a.asx", u"C:\\a.wav", u"C:\\a.cda", u"C:\\a.asf",
        u"C:\\a.as", u"C:\\a.aif", u"C:\\a.aiff", u"C:\\a.wma", u"C:\\a.asp", u"C:\\a.mp3.txt",
        u"C:\\x.as\\readme.txt", u"C:\\..mp3", u"C:\\a.b.Wma"}) {
    platform->AddFile(path, "x");
    EXPECT_EQ(Judge(path), Status::Ok) << Utf8(path);
  }
  for (const StringView path : {u"C:\\x\\readme.txt", u"C:\\mp3", u"C:\\a.mp4", u"C:\\a.ai",
                                u"C:\\amp3", u"C:\\a.m3u", u"C:\\noextension"}) {
    platform->AddFile(path, "x");
    EXPECT_EQ(Judge(path), Status::NotMedia) << Utf8(path);
    EXPECT_EQ(type, url_type::kFixedDrive);
  }
}

TEST_F(DataCopTest, EveryExistingLocalFileAddsItsSizeToTheTotal) {
  platform->AddFile(u"C:\\a.mp3", "12345");
  platform->AddFile(u"C:\\a.txt", "123");
  Judge(u"C:\\a.mp3");
  Judge(u"C:\\a.mp3");
  Judge(u"C:\\a.txt");
  Judge(u"C:\\none.mp3");
  Judge(u"D:\\a.mp3");
  Judge(u"http://host/a.mp3");
  EXPECT_EQ(component.MediaBytes(), 13);
}

TEST_F(DataCopTest, TheFactsComeFromTheOneLookUp) {
  platform->AddFile(u"C:\\Music\\Song.mp3", "12345", 99);
  for (const StringView reference : {u"C:\\music\\song.MP3", u"\\music\\song.MP3", u"song.MP3"}) {
    platform->Log().Clear();
    String text(reference);
    std::optional<FileFacts> facts;
    EXPECT_EQ(GetGenValue(component, text, u"C:\\Music", type, &facts), Status::Ok);
    ASSERT_TRUE(facts.has_value());
    EXPECT_TEXT(facts->name, u"Song.mp3");
    EXPECT_EQ(facts->size, 5);
    EXPECT_EQ(facts->created, 99);
    EXPECT_EQ(platform->Calls(u"FactsOf"), 1u) << Utf8(reference);
  }
}

TEST_F(DataCopTest, AnErrorOfTheDriveEndsQuietlyWithTheTypeSoFar) {
  platform->FailOn(u"TypeOfDrive", 1, error::kDeviceInputOutput);
  EXPECT_EQ(TypeOf(u"D:\\a.mp3"), 0);
  platform->FailOn(u"AbsolutePathName", 1, error::kDeviceInputOutput);
  EXPECT_EQ(TypeOf(u"Pop\\a.mp3"), 3);
  EXPECT_TRUE(log.empty());
}

TEST_F(DataCopTest, NoFailureOfTheMachineReachesTheReaders) {
  for (const StringView reference : {u"C:\\Music\\a.mp3", u"\\Music\\a.mp3", u"..\\a.mp3", u"a.mp3",
                                     u"R:\\a.mp3", u"D:\\a.mp3"}) {
    std::size_t k = 0;
    do {
      ++k;
      platform->FailAt(k, error::kDeviceInputOutput);
      EXPECT_NO_THROW(Judge(reference)) << Utf8(reference) << ", call " << k;
      platform->Log().StopFailing();
    } while (platform->Log().HasFailed());
    EXPECT_GT(k, 1u);
  }
}

struct BetweenRow {
  StringView text;
  StringView open;
  StringView close;
  bool fromTheRight;
  StringView expected;
};

TEST_F(DataCopTest, TheTextBetweenTwoMarksIsTrimmed) {
  constexpr BetweenRow kRows[] = {
      {u"<title>Song</title>", u"<title>", u"</title>", false, u"Song"},
      {u"<TITLE>  My Song </Title>", u"<title>", u"</TITLE>", false, u"My Song"},
      {u"a=\"1\" b=\"2\"", u"b=\"", u"\"", false, u"2"},
      {u"<a>x<a>y</a>", u"<a>", u"</a>", false, u"x<a>y"},
      {u"</a><a>x</a>", u"<a>", u"</a>", false, u"x"},
      {u"<a>x</a>y</a>", u"<a>", u"</a>", false, u"x"},
      {u"<a> rest ", u"<a>", u"</a>", false, u"rest"},
      {u"nothing here", u"<a>", u"</a>", false, u""},
      {u"<a></a>", u"<a>", u"</a>", false, u""},
      {u"", u"<a>", u"</a>", false, u""},
      {u"||", u"|", u"|", false, u""},
      {u"C:\\Music\\Pop\\a.mp3", u"\\", u"\\", true, u"Pop"},
      {u"C:\\Music\\a.mp3", u".", u"\\", true, u"a"},
      {u"a.b.c", u".", u"x", true, u"a.b"},
      {u"abc", u".", u"\\", true, u""},
      {u"", u".", u"\\", true, u""},
  };
  for (const BetweenRow& row : kRows) {
    EXPECT_TEXT(Between(row.text, row.open, row.close, row.fromTheRight), row.expected)
        << Utf8(row.text);
  }
}

TEST_F(DataCopTest, TextStreamsOpenFilesThatExist) {
  platform->AddFile(u"C:\\a.m3u", "first\r\nsecond");
  const auto stream = OpenTextStream(component, u"c:\\A.m3u");
  ASSERT_NE(stream, nullptr);
  EXPECT_TEXT(stream->ReadLine(), u"first");
  platform->Files().Deny(u"C:\\a.m3u");
  for (const StringView path : {u"C:\\a.m3u", u"C:\\none.m3u", u"C:\\", u"", u"Q:\\a.m3u"}) {
    EXPECT_EQ(OpenTextStream(component, path), nullptr) << Utf8(path);
  }
}

TEST(DataCopMediaTest, AMediaMarkAnywhereInThePathMakesItMedia) {
  for (const StringView path : {u"a.mp3", u"C:\\x.AS\\readme.txt", u"a.asp", u"a.mp3.bak"}) {
    EXPECT_TRUE(DataCop::IsMediaPath(path)) << Utf8(path);
  }
  for (const StringView path : {u"", u"mp3", u"a.mp", u"a.ogg", u"a. mp3", u"a."}) {
    EXPECT_FALSE(DataCop::IsMediaPath(path)) << Utf8(path);
  }
  for (const StringView mark : DataCop::MediaMarks()) {
    EXPECT_TRUE(DataCop::IsMediaPath(mark)) << Utf8(mark);
  }
}

}  // namespace
}  // namespace norvo
