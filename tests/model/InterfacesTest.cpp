#include "model/AsxEntry.h"
#include "model/Entries.h"
#include "model/ModelTest.h"

namespace norvo {
namespace {

class InterfacesTest : public LibraryTest {
 protected:
  Lines Of(StringView className) {
    const ObjectRef object = component.Create(className);
    EXPECT_TEXT(object->ClassName(), className);
    return InterfaceOf(*object);
  }
};

const Lines kSharedMembers = {
    "get let String Entry_AlbumName",
    "get let String Entry_ArtistName",
    "get let String Entry_CreationDate",
    "get let Variant Entry_Duration",
    "get let-by-ref Int32 Entry_EntryType",
    "get let String Entry_FileName",
    "get Double Entry_FileSize",
    "get let String Entry_Genre",
    "method Boolean Entry_GetID3TagInfo",
    "method String Entry_DestinationPath",
    "let Int32 Entry_NativeFormat",
    "get let String Entry_PlayListName",
    "get let String Entry_SongTitle",
    "get let String Entry_TrackNumber",
    "get let String Entry_SongName",
    "get let String Entry_SourceURL",
    "get let Int32 Entry_URLType",
    "get let Boolean HasExtendedInfo",
};

TEST_F(InterfacesTest, EntryHasItsMembersInOrder) {
  EXPECT_EQ(Of(u"Entry"), (Lines{
                              "get let String AlbumName",
                              "get let String ArtistName",
                              "get let String SongName",
                              "get let String CreationDate",
                              "get let Variant Duration",
                              "get let-by-ref Int32 EntryType",
                              "get let String FileName",
                              "get Double FileSize",
                              "get let String Genre",
                              "get let Int32 NativeFormat",
                              "get let String PlayListName",
                              "get let String SongTitle",
                              "get let String SourceURL",
                              "get let Int32 Urltype",
                              "get let String TrackNumber",
                              "method String DestinationPath",
                              "method Boolean GetID3TagInfo",
                          }));
}

TEST_F(InterfacesTest, M3UEntryHasTheSharedMembersInOrder) {
  EXPECT_EQ(Of(u"M3UEntry"), kSharedMembers);
}

TEST_F(InterfacesTest, PlsEntryHasTheSharedMembersInOrder) {
  EXPECT_EQ(Of(u"PlsEntry"), kSharedMembers);
}

TEST_F(InterfacesTest, AsxEntryHasTheSharedMembersAndThenItsOwn) {
  Lines expected = kSharedMembers;
  for (const char* const own :
       {"get let String ASX_Author", "get let String ASX_Artist", "get let String ASX_Album",
        "get let String Copyright", "get let String HREF", "get let String ASX_SongName",
        "get let String ASX_Title", "get let Variant BitRate", "get let Variant DigitallySecure",
        "get let Variant MediaAttribute", "get let Variant MediaType",
        "get let Variant PlaylistAttribute", "get let Variant PlayCount",
        "get let String Abstract"}) {
    expected.emplace_back(own);
  }
  EXPECT_EQ(Of(u"AsxEntry"), expected);
}

TEST_F(InterfacesTest, EntriesHasItsMembersInOrder) {
  EXPECT_EQ(Of(u"Entries"), (Lines{
                                "get Int16 Count",
                                "method none Add, Object PlsEntry",
                                "method Object Item, by-ref Int32 index",
                                "method Boolean Remove, by-ref String Name",
                                "get let Int32 CollectionType",
                                "get Int32 TotalSongs",
                            }));
}

TEST_F(InterfacesTest, PlayListsHasItsMembersInOrder) {
  EXPECT_EQ(Of(u"PlayLists"), (Lines{
                                  "method none Add, Object PlayList",
                                  "method Object Item, by-ref Int32 index",
                                  "method Boolean Remove, by-ref String Name",
                                  "get Int16 Count",
                                  "get Int32 TotalSongs",
                                  "get Int32 TotalPlayLists",
                              }));
}

TEST_F(InterfacesTest, ArtistListHasItsMembersInOrder) {
  EXPECT_EQ(Of(u"ArtistList"),
            (Lines{
                "method none Add, by-ref Variant vKeyID, by-ref Variant vNewValue",
                "method none Remove, by-ref Variant vKeyID",
                "method Boolean SearchByID, Variant vKeyID, by-ref Variant vSought",
                "method Boolean SearchByValue, by-ref Variant vValue, by-ref Object Current",
                "method Variant GetFirst",
                "method Variant GetNext",
                "method Variant GetPrevious",
                "method Variant GetLast",
                "get Int32 Count",
                "get let Boolean AllowDuplicates",
                "get let Boolean AllowOverWrite",
            }));
}

TEST_F(InterfacesTest, ArtistItemHasItsMembersInOrder) {
  EXPECT_EQ(Of(u"ArtistItem"), (Lines{
                                   "get let Variant mValue",
                                   "get let Variant mKeyID",
                                   "get let Object mNextItem",
                                   "get let Object mPreviousItem",
                                   "get let-by-ref Int32 Value",
                                   "get let-by-ref String KeyID",
                                   "get let-by-ref Object NextItem",
                                   "get let-by-ref Object PreviousItem",
                               }));
}

TEST_F(InterfacesTest, EveryEntryClassCanBeUsedWhereverAnEntryIsExpected) {
  for (const StringView name : {u"Entry", u"AsxEntry", u"M3UEntry", u"PlsEntry"}) {
    SCOPED_TRACE(Utf8(name));
    const ObjectRef object = component.Create(name);
    const auto entry = std::dynamic_pointer_cast<EntryFields>(object);
    ASSERT_NE(entry, nullptr);
    entry->SetGenre(u"Rock");
    EXPECT_TEXT(entry->Genre(), u"Rock");
    entry->SetNativeFormat(9);
    EXPECT_EQ(entry->NativeFormat(), 9);
  }
  EXPECT_EQ(std::dynamic_pointer_cast<EntryFields>(component.Create(u"Entries")), nullptr);
}

}  // namespace
}  // namespace norvo
