#include "model/ObjectList.h"

#include "model/ModelTest.h"

namespace norvo {
namespace {

ObjectRef Named(StringView name) {
  return std::make_shared<ForeignObject>(Values{{u"Name", String(name)}});
}

TEST(ObjectListTest, ItemsStandFromOneOnInTheOrderOfTheirAdding) {
  ObjectList list;
  const ObjectRef first = Named(u"a");
  const ObjectRef second = Named(u"b");
  list.Append(first);
  list.Append(second);
  list.Append(first);
  EXPECT_EQ(list.At(1), first);
  EXPECT_EQ(list.At(2), second);
  EXPECT_EQ(list.At(3), first);
  EXPECT_EQ(list.At(4), nullptr);
  EXPECT_EQ(NumberRaisedBy([&] { list.At(0); }), error::kInvalidArgument);
  EXPECT_EQ(list.Count16(), 3);
  EXPECT_EQ(list.Count32(), 3);
}

TEST(ObjectListTest, AnItemMayAddToTheListWhileItIsAskedForItsName) {
  ObjectList list;
  bool added = false;
  list.Append(std::make_shared<Meddler>(u"first", [&] {
    if (added) return;
    added = true;
    for (int i = 0; i < 1000; ++i) list.Append(Named(u"new"));
  }));
  list.Append(Named(u"second"));
  EXPECT_FALSE(list.RemoveByName(u"second"));
  EXPECT_EQ(list.Count32(), 1001);
  EXPECT_FALSE(list.RemoveByName(u"first"));
  EXPECT_EQ(list.Count32(), 1000);
}

TEST(ObjectListTest, AnItemMayRemoveItselfOrAllItemsWhileItIsAskedForItsName) {
  ObjectList list;
  bool inside = false;
  std::weak_ptr<AutomationObject> meddler;
  {
    const auto object = std::make_shared<Meddler>(u"x", [&] {
      if (inside) return;
      inside = true;
      list.RemoveByName(u"x");  // this object
      list.RemoveByName(u"y");
    });
    meddler = object;
    list.Append(object);
  }
  list.Append(Named(u"y"));
  EXPECT_FALSE(list.RemoveByName(u"x"));
  EXPECT_EQ(list.Count32(), 0);
  EXPECT_TRUE(meddler.expired());
}

TEST(ObjectListTest, ItemsThatVanishDuringTheSearchEndIt) {
  ObjectList list;
  bool inside = false;
  list.Append(std::make_shared<Meddler>(u"keep", [&] {
    if (inside) return;
    inside = true;
    list.RemoveByName(u"y");
    list.RemoveByName(u"z");
  }));
  list.Append(Named(u"y"));
  list.Append(Named(u"z"));
  EXPECT_FALSE(list.RemoveByName(u"never"));
  EXPECT_EQ(list.Count32(), 1);
}

TEST(ObjectListTest, ARemovedItemIsLetGoOf) {
  ObjectList list;
  std::weak_ptr<AutomationObject> removed;
  {
    const ObjectRef object = Named(u"x");
    removed = object;
    list.Append(object);
  }
  list.RemoveByName(u"x");
  EXPECT_TRUE(removed.expired());
}

}  // namespace
}  // namespace norvo
