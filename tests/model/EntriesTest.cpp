#include "model/Entries.h"

#include "model/ModelTest.h"

namespace norvo {
namespace {

class EntriesTest : public LibraryTest {
 protected:
  ObjectRef EntryOfType(std::int32_t type) {
    ObjectRef entry = component.Create(u"M3UEntry");
    entry->Let(u"Entry_EntryType", type);
    return entry;
  }
  static std::shared_ptr<ForeignObject> Foreign(const Variant& type) {
    return std::make_shared<ForeignObject>(Values{{u"Entry_EntryType", type}});
  }
  static std::shared_ptr<ForeignObject> Named(StringView name) {
    return std::make_shared<ForeignObject>(
        Values{{u"Entry_EntryType", std::int32_t{0}}, {u"Name", String(name)}});
  }

  void Add(const Variant& entry) {
    std::vector<Variant> arguments{entry};
    entries.Call(u"Add", arguments);
  }
  ObjectRef Item(std::int32_t index) {
    std::vector<Variant> arguments{index};
    return ToObject(entries.Call(u"Item", arguments));
  }
  bool Remove(StringView pattern) {
    std::vector<Variant> arguments{String(pattern)};
    return ToBoolean(entries.Call(u"Remove", arguments));
  }
  std::int32_t Count() { return ToInt32(entries.Get(u"Count")); }

  const ObjectRef reference = component.Create(u"Entries");
  AutomationObject& entries = *reference;
};

TEST_F(EntriesTest, AFreshCollectionIsEmpty) {
  EXPECT_EQ(entries.Get(u"Count"), Variant(std::int16_t{0}));
  EXPECT_EQ(entries.Get(u"TotalSongs"), Variant(std::int32_t{0}));
  EXPECT_EQ(entries.Get(u"CollectionType"), Variant(std::int32_t{0}));
}

TEST_F(EntriesTest, TheCollectionTypeIsKeptAsGiven) {
  for (const std::int32_t type : {1, 6, 7, -1, 2147483647}) {
    entries.Let(u"CollectionType", type);
    EXPECT_EQ(entries.Get(u"CollectionType"), Variant(type));
  }
}

TEST_F(EntriesTest, OnlyEntriesOfTheCollectionsTypeAreAdded) {
  for (std::int32_t collection = 0; collection <= 7; ++collection) {
    for (std::int32_t type = 0; type <= 7; ++type) {
      Entries fresh;
      fresh.SetCollectionType(collection);
      fresh.Add(EntryOfType(type));
      EXPECT_EQ(fresh.Count(), type == collection ? 1 : 0) << collection << " " << type;
    }
  }
  EXPECT_TRUE(log.empty());
}

TEST_F(EntriesTest, EveryFormatEntryIsTakenAndABareEntryIsNot) {
  entries.Let(u"CollectionType", std::int32_t{3});
  for (const StringView name : {u"AsxEntry", u"M3UEntry", u"PlsEntry"}) {
    const ObjectRef entry = component.Create(name);
    Add(entry);  // its type is not set yet
    entry->Let(u"Entry_EntryType", std::int32_t{3});
    Add(entry);
  }
  EXPECT_EQ(Count(), 3);
  entries.Let(u"CollectionType", std::int32_t{0});
  EXPECT_EQ(NumberRaisedBy([&] { Add(component.Create(u"Entry")); }), 0);
  EXPECT_EQ(Count(), 3);
}

TEST_F(EntriesTest, ItemsComeBackInTheOrderOfTheirAddingFromIndexOne) {
  std::vector<ObjectRef> added;
  for (int i = 0; i < 5; ++i) {
    added.push_back(EntryOfType(0));
    Add(added.back());
    EXPECT_EQ(Count(), i + 1);
  }
  for (std::int32_t i = 1; i <= 5; ++i) EXPECT_EQ(Item(i), added[static_cast<std::size_t>(i - 1)]);
  EXPECT_EQ(entries.Get(u"TotalSongs"), Variant(std::int32_t{5}));
}

TEST_F(EntriesTest, TheSameEntryCanStandInTheCollectionTwice) {
  const ObjectRef entry = EntryOfType(0);
  Add(entry);
  Add(entry);
  EXPECT_EQ(Count(), 2);
  EXPECT_EQ(Item(2), entry);
}

TEST_F(EntriesTest, AnIndexPastTheEndGivesNoObject) {
  EXPECT_EQ(Item(1), nullptr);
  Add(EntryOfType(0));
  EXPECT_EQ(Item(2), nullptr);
  EXPECT_EQ(Item(2147483647), nullptr);
  EXPECT_TRUE(log.empty());
}

TEST_F(EntriesTest, AnIndexBelowOneIsAnInvalidArgument) {
  for (int round = 0; round < 2; ++round) {
    for (const std::int32_t index : {0, -1, -2147483647 - 1}) {
      EXPECT_EQ(NumberRaisedBy([&] { Item(index); }), error::kInvalidArgument) << index;
    }
    Add(EntryOfType(0));
  }
}

TEST_F(EntriesTest, TheIndexPassedByReferenceIsNotChanged) {
  Add(EntryOfType(0));
  std::vector<Variant> arguments{String(u"1")};
  EXPECT_NE(ToObject(entries.Call(u"Item", arguments)), nullptr);
  EXPECT_EQ(ToText(arguments[0]), u"1");
}

TEST_F(EntriesTest, NoObjectIsNotAddedAndRaisesNothing) {
  EXPECT_EQ(NumberRaisedBy([&] { Add(ObjectRef()); }), 0);
  EXPECT_EQ(NumberRaisedBy([&] { Add(Variant()); }), 0);
  EXPECT_EQ(Count(), 0);
}

TEST_F(EntriesTest, AForeignObjectIsTakenAndComesOutAsTheSame) {
  entries.Let(u"CollectionType", std::int32_t{4});
  const auto foreign = Foreign(std::int32_t{4});
  Add(ObjectRef(foreign));
  EXPECT_EQ(Item(1), foreign);
  EXPECT_EQ(Utf8(foreign->reads), Lines{"Entry_EntryType"});
}

TEST_F(EntriesTest, AForeignTypeOfAnotherKindCountsByItsNumber) {
  entries.Let(u"CollectionType", std::int32_t{4});
  Add(ObjectRef(Foreign(std::int16_t{4})));
  Add(ObjectRef(Foreign(4.0)));
  Add(ObjectRef(Foreign(String(u"4"))));
  EXPECT_EQ(Count(), 3);
}

TEST_F(EntriesTest, AForeignTypeIsComparedAsItIsAndNotRounded) {
  entries.Let(u"CollectionType", std::int32_t{4});
  const Variant others[] = {3.6, 4.4, String(u"4.4"), 4294967300.0, Date{4.25}};
  for (const Variant& type : others) {
    const auto foreign = Foreign(type);
    Add(ObjectRef(foreign));
    EXPECT_EQ(Count(), 0) << ToUtf8Text(type);
    EXPECT_EQ(foreign->reads.size(), 2u) << ToUtf8Text(type);
  }
}

TEST_F(EntriesTest, TheTypeOfARejectedObjectIsReadTwice) {
  const auto foreign = Foreign(std::int32_t{5});
  Add(ObjectRef(foreign));
  EXPECT_EQ(Count(), 0);
  EXPECT_EQ(Utf8(foreign->reads), (Lines{"Entry_EntryType", "Entry_EntryType"}));
}

TEST_F(EntriesTest, AnObjectWhoseTypeCannotBeReadIsDroppedSilently) {
  const auto nameless = std::make_shared<ForeignObject>(Values{});
  const auto strange = Foreign(String(u"M3U"));
  const auto object = Foreign(ObjectRef(nameless));
  const auto starved = Foreign(std::int32_t{0});
  starved->shortOfMemory = true;
  for (const auto& foreign : {nameless, strange, object, starved}) {
    EXPECT_EQ(NumberRaisedBy([&] { Add(ObjectRef(foreign)); }), 0);
  }
  EXPECT_EQ(Count(), 0);
  EXPECT_TRUE(log.empty());
}

TEST_F(EntriesTest, RemoveTakesTheFirstMatchAwayAndStillSaysFalse) {
  const ObjectRef objects[] = {Named(u"alpha"), Named(u"beta"), Named(u"betb")};
  for (const ObjectRef& object : objects) Add(object);
  EXPECT_FALSE(Remove(u"bet*"));
  EXPECT_EQ(Count(), 2);
  EXPECT_EQ(Item(1), objects[0]);
  EXPECT_EQ(Item(2), objects[2]);
}

TEST_F(EntriesTest, RemoveMatchesNamesAsPatternsWithRegardToCase) {
  const struct {
    StringView name, pattern;
    bool matches;
  } rows[] = {{u"Mix", u"Mix", true},      {u"Mix", u"mix", false},    {u"Mix", u"M*", true},
              {u"Mix", u"?ix", true},      {u"Mix", u"??ix", false},   {u"M1", u"M#", true},
              {u"Mx", u"M#", false},       {u"Mix", u"[A-N]ix", true}, {u"Mix", u"[!A-N]ix", false},
              {u"Mix", u"[a-n]ix", false}, {u"Mix", u"Mi", false},     {u"", u"", true},
              {u"Mix", u"", false},        {u"", u"*", true}};
  for (const auto& row : rows) {
    SCOPED_TRACE(Utf8(row.name) + " like " + Utf8(row.pattern));
    Entries fresh;
    fresh.Add(Named(row.name));
    EXPECT_FALSE(fresh.Remove(String(row.pattern)));
    EXPECT_EQ(fresh.Count(), row.matches ? 0 : 1);
  }
}

TEST_F(EntriesTest, RemoveOnAnEmptyCollectionIsFalse) {
  EXPECT_FALSE(Remove(u"*"));
}

TEST_F(EntriesTest, RemoveRaisesAtAnItemWithoutName) {
  for (const StringView name : {u"AsxEntry", u"M3UEntry", u"PlsEntry"}) {
    const auto fresh = std::make_shared<Entries>();
    fresh->Add(component.Create(name));
    EXPECT_EQ(NumberRaisedBy([&] { fresh->Remove(u"*"); }), error::kNoSuchMember);
    EXPECT_EQ(fresh->Count(), 1);
  }
  Add(Named(u"x"));
  Add(EntryOfType(0));
  Add(Named(u"y"));
  EXPECT_EQ(NumberRaisedBy([&] { Remove(u"y"); }), error::kNoSuchMember);
  EXPECT_EQ(Count(), 3);
  EXPECT_FALSE(Remove(u"x"));
  EXPECT_EQ(Count(), 2);
}

TEST_F(EntriesTest, RemoveRaisesForAPatternThatIsNotValid) {
  Add(Named(u"x"));
  EXPECT_EQ(NumberRaisedBy([&] { Remove(u"[x"); }), error::kInvalidPattern);
  EXPECT_EQ(Count(), 1);
}

TEST_F(EntriesTest, CountOverflowsAbove32767AndTotalSongsDoesNot) {
  Entries& collection = dynamic_cast<Entries&>(entries);
  const ObjectRef entry = EntryOfType(0);
  for (int i = 0; i < 32767; ++i) collection.Add(entry);
  EXPECT_EQ(entries.Get(u"Count"), Variant(std::int16_t{32767}));
  Add(entry);
  EXPECT_EQ(NumberRaisedBy([&] { entries.Get(u"Count"); }), error::kOverflow);
  EXPECT_EQ(entries.Get(u"TotalSongs"), Variant(std::int32_t{32768}));
  EXPECT_EQ(Item(32768), entry);
  EXPECT_EQ(Item(32769), nullptr);
}

TEST_F(EntriesTest, EntriesLiveAsLongAsTheyAreHeld) {
  auto collection = std::make_unique<Entries>();
  std::weak_ptr<AutomationObject> first;
  ObjectRef held;
  {
    const ObjectRef entry = EntryOfType(0);
    first = entry;
    collection->Add(entry);
    held = EntryOfType(0);
    collection->Add(held);
  }
  EXPECT_FALSE(first.expired());
  collection.reset();
  EXPECT_TRUE(first.expired());
  EXPECT_EQ(held.use_count(), 1);
}

}  // namespace
}  // namespace norvo
