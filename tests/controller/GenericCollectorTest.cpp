#include "controller/GenericCollector.h"

#include "automation/RunTimeError.h"
#include "services/SettingsLines.h"
#include "support/LibraryTest.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

constexpr const char* kGeneric = "[Global Properties]\r\nPavaneVersion=1.6\r\n";
constexpr StringView kDocuments = u"C:\\My Documents\\";

class GenericCollectorTest : public LibraryTest {
 protected:
  GenericCollectorTest() { platform->AddFolder(kDocuments); }

  void Add(StringView name, std::string_view bytes = kGeneric) {
    platform->AddFile(String(kDocuments) + String(name), bytes);
  }
  /// What is found, behind the documents folder.
  Lines Collect(StringView folder = kDocuments) {
    Lines found;
    for (const String& path : CollectGenericFiles(component, folder)) {
      EXPECT_TRUE(path.starts_with(kDocuments)) << Utf8(path);
      found.push_back(Utf8(path.substr(kDocuments.size())));
    }
    return found;
  }
};

TEST_F(GenericCollectorTest, FilesComeInNameOrderFolderByFolder) {
  for (const StringView name :
       {u"b.ini", u"A.ini", u"c.INI", u"Norvo\\KVs\\2.ini", u"Norvo\\KVs\\10.ini", u"Norvo\\z.ini",
        u"a folder\\deep\\x.ini", u"a folder\\y.ini", u"B folder\\x.Ini"}) {
    Add(name);
  }
  const Lines found = {"A.ini",
                       "b.ini",
                       "c.INI",
                       "a folder\\y.ini",
                       "a folder\\deep\\x.ini",
                       "B folder\\x.Ini",
                       "Norvo\\z.ini",
                       "Norvo\\KVs\\10.ini",
                       "Norvo\\KVs\\2.ini"};
  EXPECT_EQ(Collect(), found);
  EXPECT_EQ(Collect(u"C:\\My Documents"), found);
  EXPECT_TRUE(log.empty());
}

struct CollectedRow {
  const char16_t* name;
  const char* bytes;
  bool found;
};

TEST_F(GenericCollectorTest, AGenericFileIsToldByItsEndingItsSectionAndItsKey) {
  constexpr CollectedRow kRows[] = {
      {u"a.ini", "[Global Properties]\r\nPavaneVersion=1.6\r\n", true},
      {u"b.ini", "[GLOBAL PROPERTIES]\npavaneversion=", true},
      {u"c.ini", "; by hand\r\n[x]\r\ny=1\r\n[Global Properties]\r\n\r\n PavaneVersion = 2\r\n",
       true},
      {u"d.ini", "[Global Properties]\r\nPlaylistName=x\r\n", false},
      {u"e.ini", "[Global Properties]\r\n;PavaneVersion=1.6\r\n", false},
      {u"f.ini", "[Global Properties]\r\n[Other]\r\nPavaneVersion=1.6\r\n", false},
      {u"g.ini", "PavaneVersion=1.6\r\n", false},
      {u"h.ini", "[Winamp]\r\ncwd=C:\\\r\n", false},
      {u"i.ini", "", false},
      {u"j.ini", "[Global Properties]\r\nPavaneVersion\r\n", false},
      {u"k.ini.bak", "[Global Properties]\r\nPavaneVersion=1.6\r\n", false},
      {u"l.txt", "[Global Properties]\r\nPavaneVersion=1.6\r\n", false},
      {u"mini", "[Global Properties]\r\nPavaneVersion=1.6\r\n", false},
      {u".ini", "[Global Properties]\r\nPavaneVersion=1.6\r\n", true},
  };
  for (const CollectedRow& row : kRows) Add(row.name, row.bytes);
  Lines expected;
  for (const CollectedRow& row : kRows) {
    if (row.found) expected.push_back(Utf8(row.name));
  }
  const Lines found = Collect();
  EXPECT_EQ(Lines(found.begin() + 1, found.end()), Lines(expected.begin(), expected.end() - 1));
  EXPECT_EQ(found[0], ".ini");
  EXPECT_TRUE(log.empty());
}

TEST_F(GenericCollectorTest, FilesOfEveryEncodingAreTold) {
  const String text = u"[Global Properties]\r\nPavaneVersion=1.6\r\nPlaylistName=音楽\r\n";
  Add(u"1.ini", EncodeFile(text, FileEncoding::Utf16LittleEndian, Windows1252()));
  Add(u"2.ini", EncodeFile(text, FileEncoding::Utf16BigEndian, Windows1252()));
  Add(u"3.ini", EncodeFile(text, FileEncoding::Utf8, Windows1252()));
  Add(u"4.ini", std::string("\0[Global Properties]", 20));
  EXPECT_EQ(Collect(), Lines({"1.ini", "2.ini", "3.ini"}));
}

TEST_F(GenericCollectorTest, AFolderThatIsNamedLikeAGenericFileIsEnteredAndNoFile) {
  Add(u"x.ini\\y.ini");
  Add(u"empty.ini\\y.txt");
  EXPECT_EQ(Collect(), Lines({"x.ini\\y.ini"}));
  EXPECT_TRUE(log.empty());
}

TEST_F(GenericCollectorTest, TheFoldersThatADriveScanSkipsAreSkippedWithAllBelow) {
  for (const StringView folder : {u"System Volume Information", u"RECYCLER", u"$Recycle.Bin",
                                  u"Temporary Internet Files", u"a\\my recycle"}) {
    Add(String(folder) + u"\\x.ini");
    Add(String(folder) + u"\\deep\\x.ini");
  }
  Add(u"My System Volume Information\\x.ini");
  EXPECT_EQ(Collect(), Lines({"My System Volume Information\\x.ini"}));
}

TEST_F(GenericCollectorTest, ADocumentsFolderThatIsNamedLikeASkippedOneIsSearched) {
  platform->AddFile(u"C:\\Recycle\\x.ini", kGeneric);
  EXPECT_EQ(Utf8(CollectGenericFiles(component, u"C:\\Recycle\\")), Lines({"C:\\Recycle\\x.ini"}));
}

TEST_F(GenericCollectorTest, AFileThatCannotBeReadCostsOneLogLine) {
  Add(u"a.ini");
  Add(u"b.ini");
  Add(u"c.ini");
  platform->Files().Deny(u"C:\\My Documents\\b.ini");
  EXPECT_EQ(Collect(), Lines({"a.ini", "c.ini"}));
  EXPECT_EQ(Utf8(log), Lines({"HelperMan::GenericQueue -> The file cannot be read: "
                              "C:\\My Documents\\b.ini"}));
}

TEST_F(GenericCollectorTest, AGenericFileOfTooManyLinesCostsOneLogLineAndAnotherFileNone) {
  const std::string lines(kMostSettingsLines, '\n');
  Add(u"a.ini", kGeneric + lines);
  Add(u"b.ini", lines + "x");
  Add(u"c.ini");
  EXPECT_EQ(Collect(), Lines({"c.ini"}));
  EXPECT_EQ(Utf8(log), Lines({"HelperMan::GenericQueue -> The file cannot be read: "
                              "C:\\My Documents\\a.ini"}));
}

TEST_F(GenericCollectorTest, AFolderThatCannotBeListedCostsOneLogLine) {
  Add(u"a\\x.ini");
  Add(u"b\\x.ini");
  Add(u"b\\deep\\x.ini");
  Add(u"c\\x.ini");
  platform->Files().Deny(u"C:\\My Documents\\b");
  EXPECT_EQ(Collect(), Lines({"a\\x.ini", "c\\x.ini"}));
  EXPECT_EQ(Utf8(log), Lines({"HelperMan::GenericQueue -> Permission denied"}));
}

TEST_F(GenericCollectorTest, AFolderThatDoesNotExistHoldsNothingAndIsLogged) {
  EXPECT_EQ(Collect(u"C:\\gone"), Lines());
  EXPECT_EQ(Utf8(log), Lines({"HelperMan::GenericQueue -> Path not found"}));
}

TEST_F(GenericCollectorTest, AFolderWhoseListingFindsNoMemoryIsPassedOver) {
  Add(u"a\\x.ini");
  Add(u"b\\x.ini");
  platform->Log().RunOutOfMemoryAt(2);
  EXPECT_EQ(Collect(), Lines({"b\\x.ini"}));
  EXPECT_EQ(Utf8(log), Lines({"HelperMan::GenericQueue -> Out of memory"}));
}

TEST_F(GenericCollectorTest, AVeryDeepTreeIsSearchedToItsEnd) {
  String path;
  for (int i = 0; i < 3000; ++i) path += u"d\\";
  Add(path + u"x.ini");
  EXPECT_EQ(Collect(), Lines({Utf8(path) + "x.ini"}));
}

TEST_F(GenericCollectorTest, TheWatcherHearsOfEachFolderThatIsEntered) {
  class Follower final : public Observer {
   public:
    void OnFolder(StringView path) override { folders.push_back(Utf8(path)); }
    Lines folders;
  } follower;
  Add(u"b\\x.ini");
  Add(u"a\\Recycled\\x.ini");
  component.SetObserver(&follower);
  Collect();
  component.SetObserver(&watcher);
  EXPECT_EQ(follower.folders,
            Lines({"C:\\My Documents\\", "C:\\My Documents\\a\\", "C:\\My Documents\\b\\"}));
}

TEST_F(GenericCollectorTest, OnlyFilesOfTheEndingAreOpenedAndEachOnce) {
  Add(u"a.ini");
  Add(u"b.ini", "[x]\r\n");
  Add(u"c.mp3");
  platform->Log().Clear();
  Collect();
  EXPECT_EQ(platform->Calls(u"Settings.Read"), 2u);
  EXPECT_EQ(platform->Calls(u"OpenForReading"), 0u);
  EXPECT_EQ(platform->Calls(u"Settings.Write"), 0u);
}

}  // namespace
}  // namespace norvo
