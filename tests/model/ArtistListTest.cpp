#include "model/ArtistList.h"

#include <algorithm>

#include "model/ModelTest.h"

namespace norvo {
namespace {

// Nothing here searches a list for a value that the walk can reach: that never returns, as
// intended.
class ArtistListTest : public LibraryTest {
 protected:
  void Add(const Variant& key, const Variant& value) {
    std::vector<Variant> arguments{key, value};
    list->Call(u"Add", arguments);
    EXPECT_EQ(arguments, (std::vector<Variant>{key, value}));
  }
  Variant SearchByID(const Variant& key, Variant& sought) {
    std::vector<Variant> arguments{key, sought};
    Variant result = list->Call(u"SearchByID", arguments);
    sought = arguments[1];
    return result;
  }
  /// Result of the search; `current` is where the walk stopped.
  Variant SearchByValue(const Variant& value, ObjectRef& current) {
    std::vector<Variant> arguments{value, current};
    Variant result = list->Call(u"SearchByValue", arguments);
    current = ToObject(arguments[1]);
    return result;
  }
  /// The first node: the one that a walk for a huge value does not leave.
  ObjectRef Head() {
    ObjectRef current;
    SearchByValue(1e300, current);
    return current;
  }
  static ObjectRef Next(const ObjectRef& node) { return ToObject(node->Get(u"NextItem")); }
  static ObjectRef Previous(const ObjectRef& node) { return ToObject(node->Get(u"PreviousItem")); }
  /// Key and value of every node from the head on.
  Lines Nodes() {
    Lines lines;
    for (ObjectRef node = Head(); node; node = Next(node)) {
      lines.push_back(Utf8(TextOf(*node, u"KeyID")) + "=" + Utf8(TextOf(*node, u"Value")));
    }
    return lines;
  }
  std::int32_t Count() { return ToInt32(list->Get(u"Count")); }

  ObjectRef list = component.Create(u"ArtistList");
};

TEST_F(ArtistListTest, AFreshListIsEmptyWithItsSwitchesOff) {
  EXPECT_EQ(list->Get(u"Count"), Variant(std::int32_t{0}));
  EXPECT_EQ(list->Get(u"AllowDuplicates"), Variant(false));
  EXPECT_EQ(list->Get(u"AllowOverWrite"), Variant(false));
  EXPECT_EQ(Head(), nullptr);
}

TEST_F(ArtistListTest, TheSwitchesKeepWhatTheyAreGiven) {
  for (const StringView name : {u"AllowDuplicates", u"AllowOverWrite"}) {
    list->Let(name, true);
    EXPECT_EQ(list->Get(name), Variant(true));
    list->Let(name, String(u"False"));
    EXPECT_EQ(list->Get(name), Variant(false));
    EXPECT_EQ(NumberRaisedBy([&] { list->Let(name, String(u"x")); }), error::kTypeMismatch);
  }
}

TEST_F(ArtistListTest, TheCursorAndTheRemovalDoNothing) {
  Add(String(u"a"), std::int32_t{1});
  for (const StringView name : {u"GetFirst", u"GetNext", u"GetPrevious", u"GetLast"}) {
    EXPECT_EQ(list->Call(name), Variant()) << Utf8(name);
  }
  std::vector<Variant> arguments{String(u"a")};
  EXPECT_EQ(list->Call(u"Remove", arguments), Variant());
  EXPECT_EQ(arguments[0], Variant(String(u"a")));
  EXPECT_EQ(Nodes(), Lines({"a=1"}));
  EXPECT_EQ(Count(), 1);
}

TEST_F(ArtistListTest, NodesStandInDescendingOrderOfTheirKeys) {
  for (const StringView key : {u"a", u"c", u"b"}) Add(String(key), std::int32_t{0});
  EXPECT_EQ(Nodes(), Lines({"c=0", "b=0", "a=0"}));
  EXPECT_EQ(Count(), 3);
}

TEST_F(ArtistListTest, EveryOrderOfAddingGivesTheSameList) {
  Lines keys = {"a", "b", "c", "d", "e"};
  do {
    list = component.Create(u"ArtistList");
    for (const std::string& key : keys) Add(String(key.begin(), key.end()), std::int32_t{0});
    EXPECT_EQ(Nodes(), Lines({"e=0", "d=0", "c=0", "b=0", "a=0"}));
  } while (std::next_permutation(keys.begin(), keys.end()));
}

TEST_F(ArtistListTest, KeysAreComparedAsTextsUnitByUnit) {
  for (const StringView key : {u"a", u"B", u"10", u"9", u"", u"ab", u"Ä", u"ä", u"a "}) {
    Add(String(key), std::int32_t{0});
  }
  EXPECT_EQ(Nodes(), Lines({"ä=0", "Ä=0", "ab=0", "a =0", "a=0", "B=0", "9=0", "10=0", "=0"}));
}

TEST_F(ArtistListTest, KeysAndValuesAreConverted) {
  Add(std::int32_t{12}, String(u" 7 "));
  Add(2.5, 3.5);
  Add(true, true);
  Add(Variant(), Variant());
  EXPECT_EQ(Nodes(), Lines({"True=-1", "2.5=4", "12=7", "=0"}));
  Variant sought;
  EXPECT_EQ(SearchByID(std::int16_t{12}, sought), Variant(true));
  EXPECT_EQ(sought, Variant(std::int32_t{7}));
}

TEST_F(ArtistListTest, WhatDoesNotConvertIsAnErrorAndNoCall) {
  EXPECT_EQ(NumberRaisedBy([&] { Add(String(u"a"), String(u"x")); }), error::kTypeMismatch);
  EXPECT_EQ(NumberRaisedBy([&] { Add(String(u"a"), 3e9); }), error::kOverflow);
  EXPECT_EQ(NumberRaisedBy([&] { Add(list, std::int32_t{1}); }), error::kTypeMismatch);
  EXPECT_EQ(Count(), 0);
  EXPECT_EQ(Head(), nullptr);
}

TEST_F(ArtistListTest, ARefusedDuplicateKeepsTheNodeAndCountsAllTheSame) {
  Add(String(u"a"), std::int32_t{1});
  Add(String(u"a"), std::int32_t{2});
  EXPECT_EQ(Nodes(), Lines({"a=1"}));
  EXPECT_EQ(Count(), 2);
}

TEST_F(ArtistListTest, OverwritingChangesTheNodesValueAndCounts) {
  list->Let(u"AllowOverWrite", true);
  Add(String(u"b"), std::int32_t{0});
  Add(String(u"a"), std::int32_t{1});
  const ObjectRef node = Next(Head());
  Add(String(u"a"), std::int32_t{7});
  EXPECT_EQ(Nodes(), Lines({"b=0", "a=7"}));
  EXPECT_EQ(Next(Head()), node);
  EXPECT_EQ(Count(), 3);
}

TEST_F(ArtistListTest, ADuplicateStandsInFrontOfItsEqualsWhateverOverwritingSays) {
  list->Let(u"AllowDuplicates", true);
  for (const bool overwrite : {false, true}) {
    list->Let(u"AllowOverWrite", overwrite);
    for (const StringView key : {u"a", u"b", u"c"})
      Add(String(key), std::int32_t{overwrite ? 2 : 1});
  }
  EXPECT_EQ(Nodes(), Lines({"c=2", "c=1", "b=2", "b=1", "a=2", "a=1"}));
  EXPECT_EQ(Count(), 6);
}

TEST_F(ArtistListTest, AnOldHeadGetsNoLinkBackAndEveryOtherNodeDoes) {
  Add(String(u"a"), std::int32_t{0});
  Add(String(u"c"), std::int32_t{0});  // a new head
  ObjectRef head = Head();
  ObjectRef last = Next(head);
  EXPECT_EQ(Previous(head), nullptr);
  EXPECT_EQ(Previous(last), nullptr);
  Add(String(u"b"), std::int32_t{0});  // between the two
  const ObjectRef middle = Next(head);
  EXPECT_EQ(Previous(middle), head);
  EXPECT_EQ(Previous(last), middle);
  Add(String(u"0"), std::int32_t{0});  // at the end
  EXPECT_EQ(Previous(Next(last)), last);
  EXPECT_EQ(Next(Next(last)), nullptr);
}

TEST_F(ArtistListTest, ASearchByKeyHandsBackTheValueOfTheFirstSuchNode) {
  list->Let(u"AllowDuplicates", true);
  Add(String(u"a"), std::int32_t{1});
  Add(String(u"b"), std::int32_t{2});
  Add(String(u"b"), std::int32_t{3});
  Variant sought = String(u"before");
  for (const StringView key : {u"", u"A", u"aa", u"c", u"b "}) {
    EXPECT_EQ(SearchByID(String(key), sought), Variant(false)) << Utf8(key);
    EXPECT_EQ(sought, Variant(String(u"before"))) << Utf8(key);
  }
  EXPECT_EQ(SearchByID(String(u"b"), sought), Variant(true));
  EXPECT_EQ(sought, Variant(std::int32_t{3}));
  EXPECT_EQ(SearchByID(String(u"a"), sought), Variant(true));
  EXPECT_EQ(sought, Variant(std::int32_t{1}));
}

TEST_F(ArtistListTest, ASearchByKeyInAnEmptyListFindsNothing) {
  Variant sought = std::int32_t{5};
  EXPECT_EQ(SearchByID(String(u"a"), sought), Variant(false));
  EXPECT_EQ(sought, Variant(std::int32_t{5}));
  EXPECT_EQ(NumberRaisedBy([&] { SearchByID(list, sought); }), error::kTypeMismatch);
}

TEST_F(ArtistListTest, ASearchByValueStopsAtTheFirstSmallerOne) {
  Add(String(u"c"), std::int32_t{9});
  Add(String(u"b"), std::int32_t{5});
  Add(String(u"a"), std::int32_t{2});
  ObjectRef current;
  EXPECT_EQ(SearchByValue(std::int32_t{4}, current), Variant(false));
  ASSERT_NE(current, nullptr);
  EXPECT_TEXT(TextOf(*current, u"KeyID"), u"a");
  EXPECT_EQ(SearchByValue(8.5, current), Variant(false));
  EXPECT_TEXT(TextOf(*current, u"KeyID"), u"b");
  EXPECT_EQ(SearchByValue(String(u"100"), current), Variant(false));
  EXPECT_TEXT(TextOf(*current, u"KeyID"), u"c");
  EXPECT_EQ(SearchByValue(std::int32_t{-1}, current), Variant(false));
  EXPECT_EQ(current, nullptr);  // the walk has reached the end
}

TEST_F(ArtistListTest, ASearchByValueStartsAtTheHeadWhateverItIsGiven) {
  Add(String(u"b"), std::int32_t{5});
  Add(String(u"a"), std::int32_t{9});
  ObjectRef current = component.Create(u"ArtistItem");
  EXPECT_EQ(SearchByValue(std::int32_t{6}, current), Variant(false));
  EXPECT_EQ(current, Head());  // its own value is smaller
  EXPECT_EQ(SearchByValue(std::int32_t{1}, current), Variant(false));
  EXPECT_EQ(current, nullptr);
}

TEST_F(ArtistListTest, ASearchByValueInAnEmptyListGivesNoNode) {
  ObjectRef current = component.Create(u"ArtistItem");
  EXPECT_EQ(SearchByValue(std::int32_t{1}, current), Variant(false));
  EXPECT_EQ(current, nullptr);
}

TEST_F(ArtistListTest, ASearchByValueThatEndsBehindTheListFillsAnEmptyVariableWithNoObject) {
  for (const bool withNode : {false, true}) {
    if (withNode) Add(String(u"a"), std::int32_t{9});
    std::vector<Variant> arguments{std::int32_t{1}, Variant()};
    EXPECT_EQ(list->Call(u"SearchByValue", arguments), Variant(false));
    EXPECT_EQ(arguments[1], Variant(ObjectRef()));
  }
}

TEST_F(ArtistListTest, ASearchByValueTakesNodesOnlyAndNumbersOnly) {
  Add(String(u"a"), std::int32_t{1});
  ObjectRef current = list;
  EXPECT_EQ(NumberRaisedBy([&] { SearchByValue(std::int32_t{9}, current); }), error::kTypeMismatch);
  current = nullptr;
  EXPECT_EQ(NumberRaisedBy([&] { SearchByValue(String(u"x"), current); }), error::kTypeMismatch);
}

TEST_F(ArtistListTest, ANodeThatAScriptHasSpoiltIsAnError) {
  Add(String(u"a"), std::int32_t{1});
  const ObjectRef head = Head();
  head->Let(u"mValue", String(u"x"));
  ObjectRef current;
  EXPECT_EQ(NumberRaisedBy([&] { SearchByValue(std::int32_t{9}, current); }), error::kTypeMismatch);
  head->Let(u"mKeyID", list);
  Variant sought;
  EXPECT_EQ(NumberRaisedBy([&] { SearchByID(String(u"a"), sought); }), error::kTypeMismatch);
  head->Let(u"mKeyID", Variant());  // the list and its node would hold each other
}

class ArtistItemTest : public LibraryTest {
 protected:
  ObjectRef NewItem() { return component.Create(u"ArtistItem"); }
};

TEST_F(ArtistItemTest, AFreshNodeIsEmpty) {
  const ObjectRef item = NewItem();
  EXPECT_EQ(item->Get(u"mValue"), Variant());
  EXPECT_EQ(item->Get(u"mKeyID"), Variant());
  EXPECT_EQ(item->Get(u"Value"), Variant(std::int32_t{0}));
  EXPECT_EQ(item->Get(u"KeyID"), Variant(String()));
  for (const StringView name : {u"mNextItem", u"mPreviousItem", u"NextItem", u"PreviousItem"}) {
    EXPECT_EQ(item->Get(name), Variant(ObjectRef())) << Utf8(name);
  }
}

TEST_F(ArtistItemTest, ThePlainFieldsAndThePropertiesAreTheSameStorage) {
  const ObjectRef item = NewItem();
  const ObjectRef other = NewItem();
  item->Let(u"Value", String(u"7"));
  EXPECT_EQ(item->Get(u"mValue"), Variant(std::int32_t{7}));
  item->Let(u"mValue", String(u"8"));
  EXPECT_EQ(item->Get(u"Value"), Variant(std::int32_t{8}));
  EXPECT_EQ(item->Get(u"mValue"), Variant(String(u"8")));
  item->Let(u"KeyID", std::int32_t{12});
  EXPECT_EQ(item->Get(u"mKeyID"), Variant(String(u"12")));
  item->Let(u"mKeyID", 2.5);
  EXPECT_EQ(item->Get(u"KeyID"), Variant(String(u"2.5")));
  item->Let(u"NextItem", other);
  EXPECT_EQ(item->Get(u"mNextItem"), Variant(other));
  item->Let(u"mNextItem", ObjectRef());
  EXPECT_EQ(item->Get(u"NextItem"), Variant(ObjectRef()));
  item->Let(u"mPreviousItem", other);
  EXPECT_EQ(item->Get(u"PreviousItem"), Variant(other));
  item->Let(u"PreviousItem", ObjectRef());
  EXPECT_EQ(item->Get(u"mPreviousItem"), Variant(ObjectRef()));
}

TEST_F(ArtistItemTest, ThePlainFieldsTakeAnyValue) {
  const ObjectRef item = NewItem();
  const ObjectRef object = std::make_shared<ForeignObject>(Values{});
  for (const Variant& value : {Variant(), Variant(true), Variant(2.5), Variant(object)}) {
    for (const StringView name : {u"mValue", u"mKeyID"}) {
      item->Let(name, value);
      EXPECT_EQ(item->Get(name), value) << Utf8(name);
    }
  }
  EXPECT_EQ(NumberRaisedBy([&] { item->Get(u"Value"); }), error::kTypeMismatch);
  EXPECT_EQ(NumberRaisedBy([&] { item->Get(u"KeyID"); }), error::kTypeMismatch);
}

TEST_F(ArtistItemTest, AnObjectThatEndsSeesTheValueThatReplacedIt) {
  const std::pair<StringView, StringView> rows[] = {
      {u"mValue", u"mValue"}, {u"mValue", u"Value"}, {u"mKeyID", u"mKeyID"}, {u"mKeyID", u"KeyID"}};
  for (const auto& [field, property] : rows) {
    SCOPED_TRACE(Utf8(property));
    const ObjectRef item = NewItem();
    Variant seen;
    item->Let(field, EndingWith([&, name = field] { seen = item->Get(name); }));
    item->Let(property, std::int32_t{5});
    EXPECT_EQ(ToText(seen), u"5");
  }
}

TEST_F(ArtistItemTest, WhatDoesNotConvertChangesNothing) {
  const ObjectRef item = NewItem();
  item->Let(u"Value", std::int32_t{1});
  EXPECT_EQ(NumberRaisedBy([&] { item->Let(u"Value", String(u"x")); }), error::kTypeMismatch);
  EXPECT_EQ(NumberRaisedBy([&] { item->Let(u"Value", 3e9); }), error::kOverflow);
  EXPECT_EQ(item->Get(u"Value"), Variant(std::int32_t{1}));
  for (const StringView link : {u"NextItem", u"PreviousItem", u"mNextItem", u"mPreviousItem"}) {
    EXPECT_EQ(NumberRaisedBy([&] { item->Let(link, component.Create(u"Entry")); }),
              error::kTypeMismatch);
    EXPECT_EQ(NumberRaisedBy([&] { item->Let(link, std::int32_t{1}); }), error::kTypeMismatch);
  }
}

/// How many of the nodes are still alive.
std::size_t Alive(const std::vector<std::weak_ptr<AutomationObject>>& nodes) {
  std::size_t alive = 0;
  for (const auto& node : nodes) alive += node.expired() ? 0u : 1u;
  return alive;
}

TEST_F(ArtistListTest, AListWithLinksBackLeavesNoNodeBehind) {
  list->Let(u"AllowDuplicates", true);
  for (const StringView key : {u"m", u"z", u"a", u"q", u"q", u"b", u"z", u"m"}) {
    Add(String(key), std::int32_t{0});
  }
  std::vector<std::weak_ptr<AutomationObject>> nodes;
  std::size_t linksBack = 0;
  for (ObjectRef node = Head(); node; node = Next(node)) {
    nodes.push_back(node);
    linksBack += Previous(node) ? 1u : 0u;
  }
  ASSERT_EQ(nodes.size(), 8u);
  ASSERT_GT(linksBack, 4u);
  EXPECT_EQ(Alive(nodes), 8u);
  list.reset();
  EXPECT_EQ(Alive(nodes), 0u);
}

TEST_F(ArtistListTest, ANodeThatIsHeldOutlivesTheListWithWhatFollowsIt) {
  for (const StringView key : {u"d", u"c", u"b", u"a"}) Add(String(key), std::int32_t{0});
  const ObjectRef held = Next(Head());
  ASSERT_NE(Previous(held), nullptr);
  const std::weak_ptr<AutomationObject> head = Head();
  list.reset();
  EXPECT_TRUE(head.expired());
  EXPECT_EQ(Previous(held), nullptr);
  EXPECT_TEXT(TextOf(*Next(Next(held)), u"KeyID"), u"a");
}

constexpr int kLong = 100000;

String KeyOf(int number) {
  const std::string digits = std::to_string(1000000 + number);
  return String(digits.begin(), digits.end());
}

TEST_F(ArtistListTest, AVeryLongListIsReleasedHoweverItsNodesAreLinked) {
  for (const bool linkedBack : {false, true}) {
    list = component.Create(u"ArtistList");
    // With a greatest key at the head every other node gets its link back.
    if (linkedBack) Add(String(u"z"), std::int32_t{0});
    for (int i = 0; i < kLong; ++i) Add(KeyOf(i), std::int32_t{0});
    std::vector<std::weak_ptr<AutomationObject>> nodes;
    for (ObjectRef node = Head(); node; node = Next(node)) nodes.push_back(node);
    ASSERT_GE(nodes.size(), std::size_t{kLong});
    EXPECT_EQ(Previous(nodes.back().lock()) != nullptr, linkedBack);
    list.reset();
    EXPECT_EQ(Alive(nodes), 0u);
  }
}

/// A chain of nodes each of which is held by the one made after it, linked as the row says by the
/// two links in turn.
struct ChainRow {
  const char16_t* even;
  const char16_t* odd;
};

TEST_F(ArtistItemTest, AVeryLongChainIsReleasedHoweverItsNodesAreLinked) {
  constexpr ChainRow kRows[] = {{u"NextItem", u"NextItem"},
                                {u"PreviousItem", u"PreviousItem"},
                                {u"NextItem", u"PreviousItem"}};
  for (const ChainRow& row : kRows) {
    std::vector<std::weak_ptr<AutomationObject>> nodes;
    ObjectRef chain;
    for (int i = 0; i < kLong; ++i) {
      const ObjectRef node = NewItem();
      node->Let(i % 2 == 0 ? row.even : row.odd, chain);
      nodes.push_back(node);
      chain = node;
    }
    EXPECT_EQ(Alive(nodes), nodes.size());
    chain.reset();
    EXPECT_EQ(Alive(nodes), 0u) << Utf8(row.even) << Utf8(row.odd);
  }
}

TEST_F(ArtistItemTest, ANodeInTheMiddleOfAChainThatIsHeldKeepsWhatFollows) {
  ObjectRef first = NewItem();
  const ObjectRef middle = NewItem();
  const ObjectRef last = NewItem();
  first->Let(u"NextItem", middle);
  middle->Let(u"NextItem", last);
  first.reset();
  EXPECT_EQ(middle->Get(u"NextItem"), Variant(last));
}

}  // namespace
}  // namespace norvo
