#include <map>

#include "automation/RunTimeError.h"
#include "services/DataCop.h"
#include "support/LibraryTest.h"

namespace norvo {
namespace {

using namespace DataCop;

/// An entry of any class, with the fields that a test gives it.
class FakeEntry final : public AutomationObject {
 public:
  FakeEntry(StringView className, std::map<String, Variant> fields)
      : className_(className), fields_(std::move(fields)) {}

  StringView ClassName() const override { return className_; }
  Variant Get(StringView name, Arguments) override {
    const auto found = fields_.find(String(name));
    if (found == fields_.end()) throw RunTimeError(error::kNoSuchMember);
    return found->second;
  }
  void Let(StringView, Arguments, const Variant&) override {}
  Variant Call(StringView name, Arguments arguments) override { return Get(name, arguments); }

 private:
  String className_;
  std::map<String, Variant> fields_;
};

class DestinationFoldersTest : public LibraryTest {
 protected:
  DestinationFoldersTest() { platform->AddDrive(u'F', DriveType::Fixed); }
};

TEST_F(DestinationFoldersTest, TheGroupRootEndsInABackslashAndLoadsTheSubNames) {
  EXPECT_TEXT(GetGroupRoot(component), u"");
  platform->ConfigureProduct();
  EXPECT_TEXT(GetGroupRoot(component), kGroupRoot);
  EXPECT_TRUE(component.SubNames().loaded);
  EXPECT_TEXT(component.SubNames().names[4], u"PlayLists");
  platform->SetRegistry(Hive::LocalMachine, String(kBaseKey) + u"\\KVS\\KVMediaPlayLists",
                        u"SubGroupRootName", String(u"F:\\Group"));
  EXPECT_TEXT(GetGroupRoot(component), u"F:\\Group\\");
}

TEST_F(DestinationFoldersTest, TheSubNamesAreReadOnce) {
  platform->ConfigureProduct();
  for (int slot = 1; slot <= 5; ++slot) GetSubNamePath(component, slot);
  LoadDestinations(component);
  EXPECT_EQ(platform->Calls(u"Settings.Read"), 1u);
}

TEST_F(DestinationFoldersTest, SubNamesAreFoundInAnyCaseAndAMissingOneIsEmpty) {
  platform->ConfigureProduct();
  platform->AddFile(String(kGroupRoot) + u"SubNames.txt",
                    "[playliststrings]\r\nSZID001=One\r\nszid003= Three \r\nSzID005=Five\r\n");
  EXPECT_TRUE(LoadSubNames(component));
  const auto& names = component.SubNames().names;
  const Lines expected{"One", "", "Three", "", "Five", ""};
  for (std::size_t slot = 0; slot < names.size(); ++slot) {
    EXPECT_EQ(Utf8(names[slot]), expected[slot]) << slot;
  }
  EXPECT_TEXT(GetSubNamePath(component, 1), String(kGroupRoot) + u"One\\");
  EXPECT_TEXT(GetSubNamePath(component, 2), kGroupRoot);
  EXPECT_TEXT(GetSubNamePath(component, 5), String(kGroupRoot) + u"Five\\");
}

TEST_F(DestinationFoldersTest, WithoutASubNamesFileThePathsAreTheGroupRootAlone) {
  platform->ConfigureProduct();
  platform->Files().RemoveFile(String(kGroupRoot) + u"SubNames.txt");
  EXPECT_FALSE(LoadSubNames(component));
  for (int slot = 1; slot <= 5; ++slot) EXPECT_TEXT(GetSubNamePath(component, slot), kGroupRoot);
}

TEST_F(DestinationFoldersTest, AnUnreadableSubNamesFileIsLikeAMissingOne) {
  platform->ConfigureProduct();
  platform->Files().Deny(String(kGroupRoot) + u"SubNames.txt");
  EXPECT_FALSE(LoadSubNames(component));
  EXPECT_TEXT(GetSubNamePath(component, 1), kGroupRoot);
}

TEST_F(DestinationFoldersTest, ASubNamesFileOfAMebibyteIsTheLargest) {
  platform->ConfigureProduct();
  const std::string names = "[PlayListStrings]\r\nSzID001=One\r\n;";
  const std::string most = names + std::string(1024 * 1024 - names.size(), 'x');
  platform->AddFile(String(kGroupRoot) + u"SubNames.txt", most);
  EXPECT_TRUE(LoadSubNames(component));
  platform->AddFile(String(kGroupRoot) + u"SubNames.txt", most + "x");
  EXPECT_FALSE(LoadSubNames(component));
}

TEST_F(DestinationFoldersTest, WithoutAGroupRootThereAreNoSubNamePaths) {
  EXPECT_FALSE(LoadSubNames(component));
  for (int slot = 1; slot <= 5; ++slot) EXPECT_TEXT(GetSubNamePath(component, slot), u"");
  const Destinations destinations = LoadDestinations(component);
  EXPECT_TEXT(destinations.subGroupRoot, u"");
  for (const String& folder : destinations.folders) EXPECT_TEXT(folder, u"");
}

TEST_F(DestinationFoldersTest, TheSlotTellsWhichNamesAreThere) {
  EXPECT_EQ(DestinationSlot(u"Artist", u"Album"), 1);
  EXPECT_EQ(DestinationSlot(u"Artist", u""), 2);
  EXPECT_EQ(DestinationSlot(u"", u"Album"), 3);
  EXPECT_EQ(DestinationSlot(u"", u""), 4);
}

struct EntryRow {
  StringView className;
  StringView artist;
  StringView album;
  StringView asxArtist;
  StringView asxAlbum;
  StringView expected;
};

TEST_F(DestinationFoldersTest, TheSubFolderOfAnEntryComesFromItsArtistAndAlbum) {
  const Destinations destinations{u"", {u"1\\", u"2\\", u"3\\", u"4\\"}};
  constexpr EntryRow kRows[] = {
      {u"M3UEntry", u"Artist", u"Album", u"", u"", u"1\\Artist\\Album\\"},
      {u"M3UEntry", u"Artist", u"", u"", u"", u"2\\Artist\\"},
      {u"M3UEntry", u"", u"Album", u"", u"", u"3\\Album\\"},
      {u"M3UEntry", u"", u"", u"", u"", u"4\\"},
      {u"PlsEntry", u"  Artist  ", u"   ", u"", u"", u"2\\Artist\\"},
      {u"PlsEntry", u"Artist", u"Album", u"Other", u"Other", u"1\\Artist\\Album\\"},
      {u"AsxEntry", u"Artist", u"Album", u"", u"", u"1\\Artist\\Album\\"},
      {u"AsxEntry", u"Artist", u"Album", u"Asx", u"", u"1\\Asx\\Album\\"},
      {u"AsxEntry", u"", u"", u" Asx ", u"Record", u"1\\Asx\\Record\\"},
      {u"AsxEntry", u"Artist", u"", u"  ", u"", u"4\\"},
  };
  for (const EntryRow& row : kRows) {
    std::map<String, Variant> fields{{u"Entry_ArtistName", String(row.artist)},
                                     {u"Entry_AlbumName", String(row.album)}};
    if (row.className != u"M3UEntry") {
      fields[u"ASX_Artist"] = String(row.asxArtist);
      fields[u"ASX_Album"] = String(row.asxAlbum);
    }
    FakeEntry entry(row.className, std::move(fields));
    EXPECT_TEXT(GetEntrySubFolder(entry, destinations), row.expected)
        << Utf8(row.className) << ", " << Utf8(row.artist) << ", " << Utf8(row.asxArtist);
  }
}

TEST_F(DestinationFoldersTest, NamesOfAnEntryAreCutAtTheirNul) {
  FakeEntry entry(u"M3UEntry", {{u"Entry_ArtistName", String(u"Art \0ist", 8)},
                                {u"Entry_AlbumName", String(u"\0Album", 6)}});
  EXPECT_TEXT(GetEntrySubFolder(entry, {u"", {u"1\\", u"2\\", u"3\\", u"4\\"}}), u"2\\Art\\");
}

TEST_F(DestinationFoldersTest, TheDestinationsHoldTheRootAsConfiguredAndFourSlots) {
  platform->ConfigureProduct();
  platform->SetRegistry(Hive::LocalMachine, String(kBaseKey) + u"\\KVS\\KVMediaPlayLists",
                        u"SubGroupRootName", String(u"F:\\Group"));
  platform->AddFile(u"F:\\Group\\SubNames.txt",
                    "[PlayListStrings]\r\nSzID001=One\r\nSzID004=Four\r\n");
  const Destinations destinations = LoadDestinations(component);
  EXPECT_TEXT(destinations.subGroupRoot, u"F:\\Group");
  EXPECT_TEXT(destinations.folders[0], u"F:\\Group\\One\\");
  EXPECT_TEXT(destinations.folders[1], u"F:\\Group\\");
  EXPECT_TEXT(destinations.folders[3], u"F:\\Group\\Four\\");
}

TEST_F(DestinationFoldersTest, MediaAreRegisteredUnderTheDocumentsFolder) {
  platform->ConfigureProduct();
  const Destinations to = LoadDestinations(component);
  EXPECT_TRUE(RegisterMedia(component, to, u"Music", u"C:\\Root\\Music\\", u"C:\\My\\", u"a.mp3"));
  EXPECT_TRUE(RegisterMedia(component, to, u"Music", u"C:\\Root\\Music\\", u"c:\\MY\\", u"A.mp3"));
  EXPECT_TRUE(RegisterMedia(component, to, u"Video", u"sub", u"C:\\My\\", u""));
  const std::vector<MediaRecord>& records = platform->Records();
  ASSERT_EQ(records.size(), 2u);
  EXPECT_TEXT(records[0].source, u"C:\\My\\a.mp3");
  EXPECT_TEXT(records[0].destination, u"GET_SHELL_FOLDER,5,Music,C:\\Root\\Music\\");
  EXPECT_TEXT(records[0].category, u"Music");
  EXPECT_TEXT(records[1].source, u"C:\\My\\");
  EXPECT_TEXT(records[1].destination, u"GET_SHELL_FOLDER,5,Video,sub");
}

TEST_F(DestinationFoldersTest, WhatTheListRefusesIsNotRegistered) {
  EXPECT_FALSE(RegisterMedia(component, LoadDestinations(component), u"Music", u"", u"C:\\", u"a"));
  platform->ConfigureProduct();
  platform->Migration().RefuseGroups();
  EXPECT_FALSE(RegisterMedia(component, LoadDestinations(component), u"Music", u"", u"C:\\", u"a"));
  EXPECT_TRUE(platform->Records().empty());
}

}  // namespace
}  // namespace norvo
