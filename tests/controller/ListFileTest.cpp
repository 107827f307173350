#include "controller/ListFile.h"

#include "controller/HelperManFixture.h"

namespace norvo {
namespace {

class ListFileTest : public HelperManFixture {
 protected:
  std::string Header() { return "[" + Utf8(kGroupRoot) + "]\r\n"; }
  bool ListStands() { return platform->HasFile(kListFile); }
};

TEST_F(ListFileTest, TypesComeInTheOrderOfTheListWithSixBeforeFive) {
  AddList({"WMP_ASX Total=1", "WMP_M3U Total=1", "WINAMP_M3U Total=2", "WINAMP_PLS Total=1",
           "MMJB_M3U Total=1", "SONIQUE_PLS Total=1", "[SONIQUE_PLS]", "File1=5", "[MMJB_M3U]",
           "File1=6", "[WINAMP_PLS]", "File1=4", "[WINAMP_M3U]", "File2=3b", "File1=3a",
           "[WMP_M3U]", "File1=2", "[WMP_ASX]", "File1=1"});
  EXPECT_EQ(GetPLSList(Controller()), Lines({"1", "2", "3a", "3b", "4", "6", "5"}));
  EXPECT_EQ(LogLines(), Lines());
}

TEST_F(ListFileTest, ReadingTheListConsumesIt) {
  AddList({"WMP_ASX Total=1", "[WMP_ASX]", "File1=C:\\a.asx"});
  platform->Files().SetReadOnly(kListFile);
  EXPECT_EQ(GetPLSList(Controller()), Lines({"C:\\a.asx"}));
  EXPECT_FALSE(ListStands());
  EXPECT_EQ(GetPLSList(Controller()), Lines());
  EXPECT_EQ(GetPLSList(NewController()), Lines());
  EXPECT_FALSE(ListStands());
}

TEST_F(ListFileTest, AListOfAnotherControllerIsFoundAfterAnEmptyOne) {
  const ObjectRef other = NewController();
  EXPECT_EQ(GetPLSList(Controller()), Lines());
  platform->AddFile(u"C:\\a.asx", "x");
  EXPECT_TRUE(GetAllPlaylists(other));
  EXPECT_EQ(GetPLSList(Controller()), Lines({"C:\\a.asx"}));
}

TEST_F(ListFileTest, WithoutAFileThereIsNothingListed) {
  EXPECT_EQ(GetPLSList(Controller()), Lines());
  EXPECT_FALSE(ListStands());
  EXPECT_EQ(LogLines(), Lines());
}

TEST_F(ListFileTest, AFileWithoutTheHeaderSectionListsNothingAndStays) {
  for (const std::string& text :
       {std::string(), std::string("[WMP_ASX]\r\nFile1=C:\\a.asx\r\n"),
        std::string("[D:\\Other\\]\r\nWMP_ASX Total=1\r\n[WMP_ASX]\r\nFile1=C:\\a.asx\r\n")}) {
    platform->AddFile(kListFile, text);
    EXPECT_EQ(GetPLSList(NewController()), Lines());
    ASSERT_TRUE(ListStands());
    EXPECT_EQ(ListText(), text);
  }
}

TEST_F(ListFileTest, MissingAndZeroTotalsListNothingAndTheFileIsConsumed) {
  AddList({"WMP_ASX Total=0", "[WMP_ASX]", "File1=C:\\a.asx"});
  EXPECT_EQ(GetPLSList(Controller()), Lines());
  EXPECT_FALSE(ListStands());
}

TEST_F(ListFileTest, FilesBeyondTheTotalAreNotListed) {
  AddList({"WMP_ASX Total=1", "[WMP_ASX]", "File1=one", "File2=two"});
  EXPECT_EQ(GetPLSList(Controller()), Lines({"one"}));
}

TEST_F(ListFileTest, AMissingFileKeyLeavesItsSlotEmpty) {
  AddList({"WMP_ASX Total=3", "[WMP_ASX]", "File1=one", "File3=three"});
  EXPECT_EQ(GetPLSList(Controller()), Lines({"one", "", "three"}));
}

TEST_F(ListFileTest, NamesOfSectionsAndKeysIgnoreCase) {
  platform->AddFile(
      kListFile,
      "[c:\\MY DOCUMENTS\\norvo media\\]\r\nwmp_asx TOTAL=1\r\n[wmp_asx]\r\nFILE1=one\r\n");
  EXPECT_EQ(GetPLSList(Controller()), Lines({"one"}));
}

struct DamageRow {
  Lines totals;
  const char* reason;
};

TEST_F(ListFileTest, ADamagedTotalListsNothingIsLoggedAndLeavesTheFile) {
  const DamageRow rows[] = {
      {{"WMP_ASX Total=many"}, "Type mismatch"},
      {{"WMP_ASX Total="}, "Type mismatch"},
      {{"WMP_ASX Total=2147483648"}, "Overflow"},
      {{"WMP_ASX Total=2147483647"}, "Overflow"},
      {{"WMP_ASX Total=2147483647", "WMP_M3U Total=2147483647"}, "Overflow"},
  };
  for (const DamageRow& row : rows) {
    log.clear();
    AddList(row.totals);
    EXPECT_EQ(GetPLSList(NewController()), Lines()) << row.totals[0];
    EXPECT_TRUE(ListStands()) << row.totals[0];
    EXPECT_EQ(LogLines(), Lines({std::string("HelperMan::GetPLSList -> ") + row.reason}))
        << row.totals[0];
  }
}

TEST_F(ListFileTest, TheResultHasNeverMoreSlotsThanTheSumOfTheTotals) {
  for (const Lines& totals : {Lines{"WMP_ASX Total=-1", "WMP_M3U Total=2"},
                              Lines{"WMP_M3U Total=2", "WINAMP_M3U Total=-1"}}) {
    Lines lines = totals;
    lines.insert(lines.end(), {"[WMP_M3U]", "File1=one", "File2=two"});
    AddList(lines);
    EXPECT_LE(GetPLSList(NewController()).size(), 1u) << totals[0];
  }
}

TEST_F(ListFileTest, AnUnreadableListListsNothingAndStays) {
  AddList({"WMP_ASX Total=1", "[WMP_ASX]", "File1=one"});
  platform->Files().Deny(kListFile);
  EXPECT_EQ(GetPLSList(Controller()), Lines());
  EXPECT_TRUE(ListStands());
}

TEST_F(ListFileTest, WithoutAGroupRootThereIsNoList) {
  const auto bare = std::make_shared<MemoryPlatform>();
  bare->SetRegistry(Hive::LocalMachine, String(kBaseKey) + u"\\KVS", u"mode", std::int32_t{0});
  bare->AddFile(u"C:\\a.asx", "x");
  const auto other = OpenLibrary(bare);
  const ObjectRef controller = other->Create(u"helperMan");
  EXPECT_EQ(GetPLSList(controller), Lines());
  EXPECT_FALSE(GetAllPlaylists(controller));
  EXPECT_FALSE(GenericQueue(controller, 0));
  EXPECT_EQ(Utf8(bare->Files().AllFiles()), Lines({"C:\\a.asx"}));
}

TEST_F(ListFileTest, OnlyAMachineThatIsNeitherSourceNorDestinationHasNoList) {
  for (const std::int32_t role : {0, 1, 2, 4, 3}) {
    platform->SetRegistry(Hive::LocalMachine, String(kBaseKey) + u"\\KVS", u"mode", role);
    AddList({"WMP_ASX Total=1", "[WMP_ASX]", "File1=one"});
    EXPECT_EQ(GetPLSList(NewController()), role == 3 ? Lines() : Lines({"one"})) << role;
    EXPECT_EQ(ListStands(), role == 3) << role;
  }
}

TEST_F(ListFileTest, RecordsAreNumberedByTypeAndOtherTypesAreNotRecorded) {
  ListFile list(component, kGroupRoot);
  list.Restart();
  list.Record(u"C:\\a.asx", 1);
  list.Record(u"C:\\b.xyz", 7);
  list.Record(u"C:\\b.xyz", 0);
  list.Record(u"C:\\c.pls", 5);
  list.Record(u"C:\\d.asx", 1);
  list.Save();
  EXPECT_EQ(ListText(), Header() +
                            "WMP_ASX Total=2\r\nSONIQUE_PLS Total=1\r\n[WMP_ASX]\r\n"
                            "File1=C:\\a.asx\r\nFile2=C:\\d.asx\r\n[SONIQUE_PLS]\r\n"
                            "File1=C:\\c.pls\r\n");
  EXPECT_EQ(Utf8(list.Consume()), Lines({"C:\\a.asx", "C:\\d.asx", "C:\\c.pls"}));
  EXPECT_EQ(Utf8(list.Consume()), Lines());
}

}  // namespace
}  // namespace norvo
