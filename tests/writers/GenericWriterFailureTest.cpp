#include <cstdlib>

#include "model/GenericKeys.h"
#include "model/ModelTest.h"
#include "writers/GenericWriter.h"

namespace norvo {
namespace {

/// A machine of its own with a playlist of two entries and, where it will be written, an old file.
class Machine {
 public:
  explicit Machine(StringView name) : file_(String(name) + u".ini") {
    if (name.find(u':') == StringView::npos) file_ = String(kDataArea) + file_;
    platform->ConfigureProduct();
    platform->SetRegistry(Hive::CurrentUser, kDebugKey, u"VBDebugOut", std::int32_t{3});
    platform->AddFile(file_, "old");
    record.type = 3;
    record.name = name;
    for (const StringView source : {u"http://x", u""}) {  // reading the second logs two lines
      const ObjectRef entry = library->Create(u"M3UEntry");
      entry->Let(u"Entry_SourceURL", String(source));
      record.entries->Add(entry);
    }
  }

  bool Write() { return WriteGeneric(*library, record, u""); }
  const std::string& Bytes() { return platform->Bytes(file_); }

  std::shared_ptr<MemoryPlatform> platform = std::make_shared<MemoryPlatform>();
  std::unique_ptr<Component> library = OpenLibrary(platform);
  PlaylistRecord record;

 private:
  String file_;
};

class GenericWriterFailureTest : public ::testing::TestWithParam<StringView> {
 protected:
  /// Writes once for every platform call that can fail, and once without a failure.
  template <class Arm>
  void FailEverywhere(Arm arm) {
    Machine unharmed(GetParam());
    ASSERT_TRUE(unharmed.Write());
    const std::string whole = unharmed.Bytes();
    std::size_t failed = 0;
    for (std::size_t k = 1;; ++k) {
      SCOPED_TRACE(k);
      Machine machine(GetParam());
      arm(machine.platform->Log(), k);
      bool written = false;
      ASSERT_NO_THROW(written = machine.Write());
      EXPECT_EQ(machine.Bytes(), written ? whole : "old");
      if (!written) ++failed;
      if (!machine.platform->Log().HasFailed()) {
        EXPECT_TRUE(written);
        break;
      }
    }
    EXPECT_GE(failed, 1u);
  }
};

std::string NameOfPlace(const ::testing::TestParamInfo<StringView>& place) {
  return place.index == 0 ? "Bare" : "FullPath";
}
INSTANTIATE_TEST_SUITE_P(Names, GenericWriterFailureTest,
                         ::testing::Values(StringView(u"Mix"), StringView(u"C:\\Out\\Mix")),
                         NameOfPlace);

TEST_P(GenericWriterFailureTest, AFailingCallGivesFalseOrAWholeFile) {
  FailEverywhere([](CallLog& calls, std::size_t k) { calls.FailAt(k, error::kDiskFull); });
}

TEST_P(GenericWriterFailureTest, ADiskThatIsGoneGivesFalseOrAWholeFile) {
  FailEverywhere(
      [](CallLog& calls, std::size_t k) { calls.FailFrom(k, error::kDeviceInputOutput); });
}

TEST_P(GenericWriterFailureTest, AShortageOfMemoryGivesFalseOrAWholeFile) {
  FailEverywhere([](CallLog& calls, std::size_t k) { calls.RunOutOfMemoryAt(k); });
}

TEST_P(GenericWriterFailureTest, AFailedWritingLeavesTheOldFileAndTheNextOneSucceeds) {
  Machine machine(GetParam());
  machine.platform->FailOn(u"Settings.Write", 1, error::kDiskFull);
  EXPECT_FALSE(machine.Write());
  EXPECT_EQ(machine.Bytes(), "old");
  EXPECT_EQ(machine.platform->Calls(u"Settings.Write"), 1u);
  EXPECT_TRUE(machine.Write());
  EXPECT_NE(machine.Bytes(), "old");
}

using GenericWriterErrorTest = LibraryTest;

TEST_F(GenericWriterErrorTest, AnEntryThatFailsEndsTheWritingWithItsSectionAndNoneOfItsKeys) {
  PlaylistRecord record;
  record.type = 3;
  record.name = u"C:\\Mix";
  const ObjectRef first = component.Create(u"M3UEntry");
  first->Let(u"Entry_SourceURL", String(u"http://x"));
  record.entries->Add(first);
  record.entries->Add(std::make_shared<ForeignObject>(
      Values{{u"Entry_EntryType", std::int32_t{0}}, {u"Entry_ArtistName", String(u"A")}}));
  record.entries->Add(first);
  EXPECT_FALSE(WriteGeneric(component, record, u""));
  EXPECT_EQ(platform->Bytes(u"C:\\Mix.ini"),
            "[Global Properties]\r\nPavaneVersion=1.6\r\nPlaylistName=C:\\Mix\r\nPlaylistType=3\r\n"
            "OriginalFileName=\r\nCreationTime=\r\nTotalSongs=3\r\n\r\n"
            "[Entry 1 Properties]\r\nFileSize=0\r\nHasExtendedInfo=False\r\nSourceURL=http://x\r\n"
            "URLType=0\r\n\r\n[Entry 2 Properties]\r\n");
  EXPECT_TRUE(log.empty());
}

TEST_F(GenericWriterErrorTest, AnEntryThatIsGoneWhenItsTurnComesEndsTheWriting) {
  PlaylistRecord record;
  record.type = 3;
  record.name = u"C:\\Mix";
  bool armed = false;
  const auto removeFirst = [&] {
    if (std::exchange(armed, false)) record.entries->Remove(u"*");
  };
  for (int i = 0; i < 2; ++i) record.entries->Add(std::make_shared<Meddler>(u"0", removeFirst));
  armed = true;
  EXPECT_FALSE(WriteGeneric(component, record, u""));
  const std::string written = platform->Bytes(u"C:\\Mix.ini");
  EXPECT_NE(written.find("\r\n[Entry 1 Properties]\r\nArtist=0\r\n"), std::string::npos);
  EXPECT_EQ(written.find("[Entry 2 Properties]"), std::string::npos);
}

TEST_F(GenericWriterErrorTest, PlainEntriesLackTheAsxKeys) {
  PlaylistRecord record;
  record.type = 2;
  record.name = u"C:\\Mix";
  record.entries->SetCollectionType(2);
  const ObjectRef entry = component.Create(u"M3UEntry");
  entry->Let(u"Entry_EntryType", std::int32_t{2});
  record.entries->Add(entry);
  EXPECT_FALSE(WriteGeneric(component, record, u""));
  EXPECT_TRUE(log.empty());
}

TEST_F(GenericWriterErrorTest, AValueWithoutTextFormEndsTheWriting) {
  PlaylistRecord record;
  record.type = 1;
  record.name = u"C:\\Mix";
  record.entries->SetCollectionType(1);
  const ObjectRef entry = component.Create(u"AsxEntry");
  SetAll(*entry, {{u"Entry_EntryType", std::int32_t{1}},
                  {u"Abstract", String(u"read before it")},
                  {u"DigitallySecure", ObjectRef()}});
  record.entries->Add(entry);
  EXPECT_FALSE(WriteGeneric(component, record, u""));
  EXPECT_TRUE(platform->Bytes(u"C:\\Mix.ini").ends_with("\r\n\r\n[Entry 1 Properties]\r\n"));
}

TEST_F(GenericWriterErrorTest, WhicheverPropertyOfAScriptsObjectRaisesNoKeyOfItIsWritten) {
  for (const bool asx : {false, true}) {
    for (const EntryKey& raising : EntryKeys()) {
      // The collection has asked for the type before.
      if (!raising.IsWritten(asx) || raising.property == u"Entry_EntryType") continue;
      SCOPED_TRACE(Utf8(raising.property));
      const auto object = std::make_shared<ForeignObject>(Values{});
      Lines expected;
      for (const EntryKey& row : EntryKeys()) {
        if (!row.IsWritten(asx)) continue;
        if (&row <= &raising) expected.push_back(Utf8(row.property));
        if (&row != &raising) object->Let(row.property, String(u"2"));
      }
      object->Let(u"Entry_EntryType", std::int32_t{2});
      PlaylistRecord record;
      record.type = 2;
      record.name = u"C:\\Mix";
      record.entries->SetCollectionType(2);
      record.entries->Add(object);
      record.entries->SetCollectionType(asx ? 2 : 3);
      object->reads.clear();
      EXPECT_FALSE(WriteGeneric(component, record, u""));
      EXPECT_EQ(Utf8(object->reads), expected);
      EXPECT_TRUE(platform->Bytes(u"C:\\Mix.ini").ends_with("\r\n\r\n[Entry 1 Properties]\r\n"));
    }
  }
}

TEST_F(GenericWriterErrorTest, APlaceThatIsNoFileGivesFalse) {
  platform->AddFolder(u"C:\\Folder.ini");
  platform->AddFile(u"C:\\Locked.ini", "old");
  platform->Files().SetReadOnly(u"C:\\Locked.ini");
  for (const StringView name : {u"C:\\Folder", u"C:\\Locked", u"Q:\\Mix", u"C:\\a*b"}) {
    SCOPED_TRACE(Utf8(name));
    PlaylistRecord record;
    record.type = 3;
    record.name = name;
    record.entries->Add(component.Create(u"M3UEntry"));
    EXPECT_FALSE(WriteGeneric(component, record, u""));
  }
  EXPECT_EQ(platform->Bytes(u"C:\\Locked.ini"), "old");
}

TEST_F(GenericWriterErrorTest, MoreThan32767EntriesAreNotWritten) {
  PlaylistRecord record;
  record.type = 3;
  record.name = u"C:\\Mix";
  const ObjectRef entry = component.Create(u"M3UEntry");
  entry->Let(u"Entry_SourceURL", String(u"http://x"));
  for (int i = 0; i < 32767; ++i) record.entries->Add(entry);
  EXPECT_TRUE(WriteGeneric(component, record, u""));
  const std::string whole = platform->Bytes(u"C:\\Mix.ini");
  EXPECT_NE(whole.find("\r\nTotalSongs=32767\r\n"), std::string::npos);
  EXPECT_NE(whole.find("\r\n[Entry 32767 Properties]\r\n"), std::string::npos);
  record.entries->Add(entry);
  EXPECT_FALSE(WriteGeneric(component, record, u""));
  EXPECT_EQ(platform->Bytes(u"C:\\Mix.ini"), whole);
  EXPECT_TRUE(log.empty());
}

TEST_F(GenericWriterErrorTest, AShortageOfMemoryAfterAnErrorDoesNotEndTheProgram) {
  const auto writeShortOfMemory = [&] {
    PlaylistRecord record;
    record.type = 3;
    record.name = u"C:\\Mix";
    record.entries->Add(
        std::make_shared<ForeignObject>(Values{{u"Entry_EntryType", std::int32_t{0}}}));
    platform->Log().RunOutOfMemoryAt(1);  // the write of what was set before the error
    std::_Exit(WriteGeneric(component, record, u"") ? 1 : 0);
  };
  EXPECT_EXIT(writeShortOfMemory(), ::testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace norvo
