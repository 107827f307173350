#include "model/PlaylistTypes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "model/ModelTest.h"
#include "model/PlaylistRecord.h"

namespace norvo {
namespace {

TEST(PlaylistTypesTest, EachTypeHasItsNameExtensionReaderAndFailureText) {
  const struct {
    std::int32_t code;
    StringView name, extension;
    Syntax syntax;
    StringView failure;
  } rows[] = {
      {1, u"WMP_ASX", u".asx", Syntax::Asx,
       u"NVERR_OPFAIL, PLAYLIST::ReadPlayList, ReadASX for Type WMP_ASX returned False"},
      {2, u"WMP_M3U", u".m3u", Syntax::Asx,
       u"NVERR_OPFAIL, PLAYLIST::ReadPlayList, ReadASX for Type WMP_M3U returned False"},
      {3, u"WINAMP_M3U", u".m3u", Syntax::M3u,
       u"NVERR_OPFAIL, PLAYLIST::ReadPlayList, ReadM3U for type WINAMP_M3U returned False"},
      {4, u"WINAMP_PLS", u".pls", Syntax::Pls,
       u"NVERR_OPFAIL, PLAYLIST::ReadPlayList, ReadPLS for type WINAMP_PLS returned False"},
      {5, u"SONIQUE_PLS", u".pls", Syntax::Pls,
       u"NVERR_OPFAIL, PLAYLIST::ReadPlayList, ReadPLS for type SONIQUE_PLS returned False"},
      {6, u"MMJB_M3U", u".m3u", Syntax::BareM3u,
       u"NVERR_OPFAIL, PLAYLIST::ReadPlayList, ReadMMJB for type MMJB_M3U returned False"},
  };
  ASSERT_EQ(PlaylistTypes().size(), std::size(rows));
  for (std::size_t i = 0; i < std::size(rows); ++i) {
    SCOPED_TRACE(rows[i].code);
    const PlaylistType& type = PlaylistTypes()[i];
    EXPECT_EQ(type.code, rows[i].code);
    EXPECT_TEXT(type.name, rows[i].name);
    EXPECT_TEXT(type.extension, rows[i].extension);
    EXPECT_EQ(type.readAs, rows[i].syntax);
    EXPECT_TEXT(type.failureText, rows[i].failure);
    EXPECT_EQ(FindPlaylistType(rows[i].code), &type);
  }
}

TEST(PlaylistTypesTest, CodesAndNamesAreEachThereOnce) {
  std::set<std::int32_t> codes, places;
  std::set<StringView> names;
  for (const PlaylistType& type : PlaylistTypes()) {
    EXPECT_TRUE(codes.insert(type.code).second) << type.code;
    EXPECT_TRUE(names.insert(type.name).second) << type.code;
    EXPECT_TRUE(places.insert(type.queuePlace).second) << type.code;
    EXPECT_NE(type.code, playlist_type::kUnknown);
  }
}

/// The codes of some types.
template <class Types>
std::vector<std::int32_t> Codes(const Types& types) {
  std::vector<std::int32_t> codes;
  for (const PlaylistType* const type : types) codes.push_back(type->code);
  return codes;
}

TEST(PlaylistTypesTest, TheQueueTakesTypeSixBeforeTypeFive) {
  EXPECT_EQ(Codes(QueuedTypes()), (std::vector<std::int32_t>{1, 2, 3, 4, 6, 5}));
}

TEST(PlaylistTypesTest, NeitherTypeTwoNorTypeFourIsWritten) {
  EXPECT_EQ(Codes(NativeTypes()), (std::vector<std::int32_t>{1, 3, 6, 5}));
}

TEST(PlaylistTypesTest, EachExtensionIsListedOnce) {
  const std::vector<StringView> expected{u".asx", u".m3u", u".pls"};
  EXPECT_TRUE(std::ranges::equal(PlaylistExtensions(), expected));
}

TEST(PlaylistTypesTest, AllTypesOfAnExtensionHaveTheSameHeader) {
  for (const PlaylistType& type : PlaylistTypes()) {
    for (const PlaylistType& other : PlaylistTypes()) {
      if (type.extension != other.extension) continue;
      EXPECT_EQ(type.header, other.header) << type.code << " " << other.code;
    }
  }
}

TEST(PlaylistTypesTest, PlaylistFilesAreKnownByTheirExtensions) {
  for (const StringView name : {u"a.m3u", u"a.M3U", u"a.pls", u"a.Asx", u".m3u", u"a.mp3.pls"}) {
    EXPECT_TRUE(IsPlayListFile(name)) << Utf8(name);
  }
  for (const StringView name : {u"", u"m3u", u"a.m3u8", u"a.asx ", u"a.mp3", u"a.wpl", u"a.m3"}) {
    EXPECT_FALSE(IsPlayListFile(name)) << Utf8(name);
  }
}

TEST(PlaylistTypesTest, ATypeOfAFileIsTheFirstOfItsExtensionThatFits) {
  const auto type = FindTypeOfFile(
      u"Mix.M3U", [](const PlaylistType& each) { return each.readAs != Syntax::Asx; });
  ASSERT_NE(type, nullptr);
  EXPECT_EQ(type->code, 3);
  const auto any = [](const PlaylistType&) { return true; };
  EXPECT_EQ(FindTypeOfFile(u"Mix.pls", any)->code, 4);
  EXPECT_EQ(FindTypeOfFile(u"Mix.mp3", any), nullptr);
  EXPECT_EQ(FindTypeOfFile(u"Mix.pls", [](const PlaylistType&) { return false; }), nullptr);
}

TEST(PlaylistTypesTest, APlaylistThatTellsNoTypeIsTakenForOneByItsExtensionAndItsTitles) {
  const struct {
    StringView name;
    std::int32_t withTitles, withoutTitles;
  } rows[] = {{u"a.asx", 1, 1}, {u"a.M3U", 3, 6}, {u"a.pls", 4, 4}, {u"a.txt", 3, 6}, {u"", 3, 6}};
  for (const auto& row : rows) {
    EXPECT_EQ(StandInType(row.name, true).code, row.withTitles) << Utf8(row.name);
    EXPECT_EQ(StandInType(row.name, false).code, row.withoutTitles) << Utf8(row.name);
  }
}

TEST(PlaylistTypesTest, ATitleTellsTheFormatAndThePlayer) {
  EXPECT_TEXT(FindPlaylistType(1)->Title(), u"ASX of Windows Media Player");
  EXPECT_TEXT(FindPlaylistType(5)->Title(), u"PLS of Sonique");
}

TEST(PlaylistTypesTest, OtherCodesAreNoTypes) {
  for (const std::int32_t code : {0, 7, -1, 2147483647}) {
    EXPECT_EQ(FindPlaylistType(code), nullptr) << code;
    EXPECT_FALSE(HasAsxEntries(code)) << code;
    EXPECT_TEXT(EntryExtension(code), u"");
  }
}

TEST(PlaylistTypesTest, TypesOneAndTwoHaveAsxEntriesAndTheirExtension) {
  const std::pair<std::int32_t, StringView> rows[] = {{1, u".asx"}, {2, u".asx"}, {3, u".m3u"},
                                                      {4, u".pls"}, {5, u".pls"}, {6, u".m3u"}};
  for (const auto& [code, extension] : rows) {
    EXPECT_EQ(HasAsxEntries(code), code <= 2) << code;
    EXPECT_TEXT(EntryExtension(code), extension);
  }
}

/// A name that a playlist of the type is given over the name "old", and what it is called then.
struct TypeNameRow {
  std::int32_t type;
  StringView given, stored;
};

constexpr TypeNameRow kNameRows[] = {
    {1, u"Mix.asx", u"Mix.asx"},
    {1, u"Mix.m3u", u"Mix.m3u"},
    {1, u"", u""},
    {2, u"Mix.m3u", u"Mix"},
    {2, u"Mix.asx", u"old"},
    {2, u"Mix.m3u.asx", u"Mix"},
    {3, u"Party Mix.m3u", u"Party Mix"},
    {3, u"a.M3U", u"a"},
    {3, u"x.m3u.bak", u"x"},
    {3, u"a.m3u.b.m3u", u"a"},
    {3, u"Mix.pls", u"old"},
    {3, u"Mix", u"old"},
    {3, u"", u"old"},
    {3, u".m3u", u""},
    {4, u"Mix.pls", u"Mix"},
    {4, u"Mix.m3u", u"old"},
    {5, u"Mix.Pls", u"Mix"},
    {5, u"Mix.asx", u"old"},
    {6, u"Mix.m3u", u"Mix"},
    {6, u"Mix.pls", u"old"},
    {0, u"Mix.m3u", u""},
    {7, u"Mix.m3u", u""},
    {-1, u"Mix", u""},
    {3, u"C:\\Out\\Mix.m3u", u"C:\\Out\\Mix"},
};

TEST(PlaylistRecordTest, TheNameIsWhatPrecedesTheExtensionOfItsType) {
  for (const TypeNameRow& row : kNameRows) {
    SCOPED_TRACE(std::to_string(row.type) + " " + Utf8(row.given));
    PlaylistRecord record;
    record.name = u"old";
    record.type = row.type;
    record.SetName(row.given, NameOrigin::Host);
    EXPECT_TEXT(record.name, row.stored);
  }
}

TEST(PlaylistRecordTest, ANameThatIsNotTakenLeavesItsOriginToo) {
  PlaylistRecord record;
  record.type = 3;
  record.SetName(u"a.m3u", NameOrigin::Playlist);
  EXPECT_EQ(record.nameOrigin, NameOrigin::Playlist);
  record.SetName(u"b.pls", NameOrigin::Host);
  EXPECT_TEXT(record.name, u"a");
  EXPECT_EQ(record.nameOrigin, NameOrigin::Playlist);
  record.SetName(u"c.m3u", NameOrigin::Host);
  EXPECT_EQ(record.nameOrigin, NameOrigin::Host);
}

TEST(PlaylistRecordTest, AFreshRecordIsEmpty) {
  const PlaylistRecord record;
  EXPECT_EQ(record.type, 0);
  EXPECT_EQ(record.totalSongsStore, Variant());
  ASSERT_NE(record.entries, nullptr);
  EXPECT_EQ(record.entries->Count(), 0);
  for (const String* const text :
       {&record.originalFileName, &record.asxAuthor, &record.asxTitle, &record.asxVersion,
        &record.asxPlayListAttribute, &record.asxAllowShuffle, &record.name, &record.creationTime,
        &record.asxAlbum, &record.asxArtist}) {
    EXPECT_TEXT(*text, u"");
  }
}

using PlayListNameTest = LibraryTest;

TEST_F(PlayListNameTest, TheNamedPropertyFollowsTheSameRule) {
  for (const TypeNameRow& row : kNameRows) {
    SCOPED_TRACE(std::to_string(row.type) + " " + Utf8(row.given));
    const ObjectRef playlist = component.Create(u"PlayList");
    SetAll(*playlist, {{u"PlayListType", std::int32_t{1}},
                       {u"PlayListName", String(u"old")},
                       {u"PlayListType", row.type},
                       {u"PlayListName", String(row.given)}});
    EXPECT_EQ(playlist->Get(u"PlayListName"), Variant(String(row.stored)));
  }
  EXPECT_TRUE(log.empty());
}

TEST_F(PlayListNameTest, AnyValueIsTakenAsText) {
  const ObjectRef playlist = component.Create(u"PlayList");
  SetAll(*playlist, {{u"PlayListType", std::int32_t{1}}, {u"PlayListName", std::int32_t{1999}}});
  EXPECT_EQ(playlist->Get(u"PlayListName"), Variant(String(u"1999")));
}

}  // namespace
}  // namespace norvo
