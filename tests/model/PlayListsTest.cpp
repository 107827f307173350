#include "model/PlayLists.h"

#include "model/ModelTest.h"

namespace norvo {
namespace {

class PlayListsTest : public LibraryTest {
 protected:
  static std::shared_ptr<ForeignObject> WithSongs(const Variant& songs) {
    return std::make_shared<ForeignObject>(Values{{u"TotalSongs", songs}});
  }
  static std::shared_ptr<ForeignObject> Named(StringView name) {
    return std::make_shared<ForeignObject>(
        Values{{u"TotalSongs", std::int32_t{1}}, {u"Name", String(name)}});
  }
  /// A playlist of the library with so many entries.
  ObjectRef PlayListOf(int songs) {
    const ObjectRef playlist = component.Create(u"PlayList");
    const ObjectRef entries = ToObject(playlist->Get(u"PlayListEntries"));
    for (int i = 0; i < songs; ++i) {
      std::vector<Variant> arguments{component.Create(u"M3UEntry")};
      entries->Call(u"Add", arguments);
    }
    return playlist;
  }

  void Add(const Variant& playlist) {
    std::vector<Variant> arguments{playlist};
    lists->Call(u"Add", arguments);
  }
  ObjectRef Item(const Variant& index) {
    std::vector<Variant> arguments{index};
    const ObjectRef item = ToObject(lists->Call(u"Item", arguments));
    EXPECT_EQ(arguments[0], index);
    return item;
  }
  Variant Remove(StringView pattern) {
    std::vector<Variant> arguments{String(pattern)};
    return lists->Call(u"Remove", arguments);
  }
  std::int32_t Total() { return ToInt32(lists->Get(u"TotalSongs")); }
  std::int32_t Count() { return ToInt32(lists->Get(u"TotalPlayLists")); }
  Lines Shown() {
    Lines lines;
    for (const auto& [title, text] : platform->Messages().Shown()) {
      lines.push_back(Utf8(title) + " | " + Utf8(text));
    }
    return lines;
  }

  const ObjectRef lists = component.Create(u"PlayLists");
};

constexpr const char* kPastTheEnd = "Error | Index exceeds Collection size";

TEST_F(PlayListsTest, AFreshCollectionIsEmpty) {
  EXPECT_EQ(lists->Get(u"Count"), Variant(std::int16_t{0}));
  EXPECT_EQ(lists->Get(u"TotalSongs"), Variant(std::int32_t{0}));
  EXPECT_EQ(lists->Get(u"TotalPlayLists"), Variant(std::int32_t{0}));
}

TEST_F(PlayListsTest, TheSongsOfThePlaylistsAreAddedUp) {
  const ObjectRef three = PlayListOf(3);
  const ObjectRef five = PlayListOf(5);
  Add(three);
  Add(five);
  EXPECT_EQ(lists->Get(u"TotalSongs"), Variant(std::int32_t{8}));
  EXPECT_EQ(lists->Get(u"TotalPlayLists"), Variant(std::int32_t{2}));
  EXPECT_EQ(lists->Get(u"Count"), Variant(std::int16_t{2}));
  EXPECT_EQ(Item(std::int32_t{1}), three);
  EXPECT_EQ(Item(std::int32_t{2}), five);
}

TEST_F(PlayListsTest, TheTotalIsThatOfTheMomentOfAdding) {
  const ObjectRef playlist = PlayListOf(3);
  Add(playlist);
  std::vector<Variant> arguments{component.Create(u"M3UEntry")};
  ToObject(playlist->Get(u"PlayListEntries"))->Call(u"Add", arguments);
  EXPECT_EQ(Total(), 3);
  Add(playlist);
  EXPECT_EQ(Total(), 7);
  EXPECT_EQ(Count(), 2);
}

TEST_F(PlayListsTest, TheEmptyReferenceChangesNothing) {
  Add(PlayListOf(2));
  Add(ObjectRef());
  Add(Variant());
  EXPECT_EQ(Count(), 1);
  EXPECT_EQ(Total(), 2);
}

struct SongsRow {
  Variant songs;
  std::int32_t total;
};

TEST_F(PlayListsTest, AnyObjectThatTellsItsSongsIsTaken) {
  const SongsRow rows[] = {
      {std::int16_t{7}, 7},
      {std::int32_t{-4}, -4},
      {std::uint8_t{255}, 255},
      {String(u"12"), 12},
      {String(u" 2.5 "), 2},
      {2.5, 2},
      {3.5, 4},
      {true, -1},
      {Variant(), 0},
      {2147483647.0, 2147483647},
      {-2147483648.0, -2147483647 - 1},
  };
  for (const SongsRow& row : rows) {
    const ObjectRef fresh = component.Create(u"PlayLists");
    const auto object = WithSongs(row.songs);
    std::vector<Variant> arguments{ObjectRef(object)};
    fresh->Call(u"Add", arguments);
    EXPECT_EQ(ToInt32(fresh->Get(u"TotalSongs")), row.total);
    EXPECT_EQ(ToInt32(fresh->Get(u"TotalPlayLists")), 1);
    EXPECT_EQ(Utf8(object->reads), Lines({"TotalSongs"}));
  }
}

TEST_F(PlayListsTest, ATotalThatCannotBeReadReachesTheCallerBehindTheAdding) {
  Add(WithSongs(std::int32_t{5}));
  const auto nameless = std::make_shared<ForeignObject>(Values{});
  const auto text = WithSongs(String(u"many"));
  const auto object = WithSongs(ObjectRef(nameless));
  const auto missing = WithSongs(Missing{});
  EXPECT_EQ(NumberRaisedBy([&] { Add(ObjectRef(nameless)); }), error::kNoSuchMember);
  EXPECT_EQ(NumberRaisedBy([&] { Add(ObjectRef(text)); }), error::kTypeMismatch);
  EXPECT_EQ(NumberRaisedBy([&] { Add(ObjectRef(object)); }), error::kTypeMismatch);
  EXPECT_EQ(NumberRaisedBy([&] { Add(ObjectRef(missing)); }), error::kTypeMismatch);
  EXPECT_EQ(NumberRaisedBy([&] { Add(component.Create(u"Entry")); }), error::kNoSuchMember);
  EXPECT_EQ(Count(), 6);
  EXPECT_EQ(Total(), 5);
  EXPECT_EQ(Item(std::int32_t{2}), nameless);
}

TEST_F(PlayListsTest, ATotalBeyondThirtyTwoBitsIsAnOverflowBehindTheAdding) {
  Add(WithSongs(std::int32_t{2147483647}));
  EXPECT_EQ(NumberRaisedBy([&] { Add(WithSongs(std::int32_t{1})); }), error::kOverflow);
  EXPECT_EQ(Total(), 2147483647);
  EXPECT_EQ(Count(), 2);
  EXPECT_EQ(NumberRaisedBy([&] { Add(WithSongs(1e300)); }), error::kOverflow);
  EXPECT_EQ(Count(), 3);
  Add(WithSongs(std::int32_t{-7}));
  EXPECT_EQ(Total(), 2147483640);
}

TEST_F(PlayListsTest, WhatIsNoObjectIsATypeMismatchAndIsNotAdded) {
  for (const Variant& value : {Variant(std::int32_t{1}), Variant(String(u"x")), Variant(true)}) {
    EXPECT_EQ(NumberRaisedBy([&] { Add(value); }), error::kTypeMismatch);
  }
  EXPECT_EQ(Count(), 0);
}

TEST_F(PlayListsTest, AnIndexPastTheEndIsShownAndGivesNoObject) {
  EXPECT_EQ(Item(std::int32_t{1}), nullptr);
  EXPECT_EQ(Shown(), Lines({kPastTheEnd}));
  Add(PlayListOf(0));
  Add(PlayListOf(0));
  EXPECT_NE(Item(std::int32_t{2}), nullptr);
  EXPECT_EQ(Shown().size(), 1u);
  EXPECT_EQ(Item(std::int32_t{3}), nullptr);
  EXPECT_EQ(Item(std::int32_t{2147483647}), nullptr);
  EXPECT_EQ(Shown(), Lines(3, kPastTheEnd));
  EXPECT_TRUE(log.empty());
}

TEST_F(PlayListsTest, AnIndexBelowOneIsAnInvalidArgumentAndIsNotShown) {
  for (int round = 0; round < 2; ++round) {
    for (const std::int32_t index : {0, -1, -2147483647 - 1}) {
      EXPECT_EQ(NumberRaisedBy([&] { Item(index); }), error::kInvalidArgument) << index;
    }
    Add(PlayListOf(0));
  }
  EXPECT_EQ(Shown(), Lines());
}

TEST_F(PlayListsTest, AnIndexIsConvertedAndRounded) {
  const ObjectRef first = PlayListOf(0);
  const ObjectRef second = PlayListOf(0);
  Add(first);
  Add(second);
  EXPECT_EQ(Item(1.5), second);
  EXPECT_EQ(Item(String(u"1")), first);
  EXPECT_EQ(NumberRaisedBy([&] { Item(String(u"first")); }), error::kTypeMismatch);
  EXPECT_EQ(NumberRaisedBy([&] { Item(3e9); }), error::kOverflow);
}

TEST_F(PlayListsTest, AMessageBoxThatFailsReachesTheCaller) {
  platform->FailOn(u"Messages.Show", 1, error::kDeviceInputOutput);
  EXPECT_EQ(NumberRaisedBy([&] { Item(std::int32_t{1}); }), error::kDeviceInputOutput);
}

TEST_F(PlayListsTest, RemoveTakesTheFirstMatchAwayAndStillSaysFalse) {
  const ObjectRef objects[] = {Named(u"alpha"), Named(u"beta"), Named(u"betb"), Named(u"Beta")};
  for (const ObjectRef& object : objects) Add(object);
  EXPECT_EQ(Remove(u"bet[ab]"), Variant(false));
  EXPECT_EQ(Count(), 3);
  EXPECT_EQ(Item(std::int32_t{2}), objects[2]);
  EXPECT_EQ(Remove(u"bet*"), Variant(false));
  EXPECT_EQ(Remove(u"bet*"), Variant(false));  // case counts
  EXPECT_EQ(Count(), 2);
  EXPECT_EQ(Item(std::int32_t{2}), objects[3]);
  EXPECT_EQ(Total(), 4);  // a removal does not reduce it
}

TEST_F(PlayListsTest, RemoveOnAnEmptyCollectionIsFalse) {
  EXPECT_EQ(Remove(u"*"), Variant(false));
  EXPECT_EQ(Remove(u"[x"), Variant(false));
}

TEST_F(PlayListsTest, RemoveRaisesAtAPlaylistSinceItHasNoName) {
  Add(PlayListOf(1));
  Add(Named(u"x"));
  EXPECT_EQ(NumberRaisedBy([&] { Remove(u"*"); }), error::kNoSuchMember);
  EXPECT_EQ(NumberRaisedBy([&] { Remove(u"x"); }), error::kNoSuchMember);
  EXPECT_EQ(Count(), 2);
}

TEST_F(PlayListsTest, RemoveRaisesForAPatternThatIsNotValid) {
  Add(Named(u"x"));
  EXPECT_EQ(NumberRaisedBy([&] { Remove(u"[x"); }), error::kInvalidPattern);
  EXPECT_EQ(Count(), 1);
}

TEST_F(PlayListsTest, CountOverflowsAbove32767AndTheTotalsDoNot) {
  auto& collection = dynamic_cast<PlayLists&>(*lists);
  const ObjectRef object = WithSongs(std::int32_t{2});
  for (int i = 0; i < 32767; ++i) collection.Add(object);
  EXPECT_EQ(lists->Get(u"Count"), Variant(std::int16_t{32767}));
  Add(object);
  EXPECT_EQ(NumberRaisedBy([&] { lists->Get(u"Count"); }), error::kOverflow);
  EXPECT_EQ(NumberRaisedBy([&] { Remove(u"*"); }), error::kOverflow);
  EXPECT_EQ(Count(), 32768);
  EXPECT_EQ(Total(), 65536);
  EXPECT_EQ(Item(std::int32_t{32768}), object);
}

TEST_F(PlayListsTest, PlaylistsLiveAsLongAsTheyAreHeld) {
  ObjectRef collection = component.Create(u"PlayLists");
  std::weak_ptr<AutomationObject> playlist;
  {
    std::vector<Variant> arguments{PlayListOf(1)};
    playlist = ToObject(arguments[0]);
    collection->Call(u"Add", arguments);
  }
  EXPECT_FALSE(playlist.expired());
  collection.reset();
  EXPECT_TRUE(playlist.expired());
}

}  // namespace
}  // namespace norvo
