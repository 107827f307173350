#include "automation/MemberTable.h"

#include <gtest/gtest.h>

#include "support/RaisedErrors.h"
#include "support/TextPrinting.h"

namespace norvo {
namespace {

/// A class with one member of each kind.
class Sample final : public TableObject {
 public:
  String Name() const { return name_; }
  void SetName(const String& name) { name_ = name; }
  std::int16_t Count() const { return 3; }
  void SetSecret(std::int32_t secret) { secret_ = secret; }
  std::shared_ptr<Sample> Child() const { return child_; }
  void SetChild(const std::shared_ptr<Sample>& child) { child_ = child; }

  String Join(const String& first, const Variant& second) {
    return first + (std::holds_alternative<Missing>(second) ? u"<missing>" : ToText(second));
  }
  bool Swap(String& text, std::int32_t& number, std::int32_t added) {
    text += u"!";
    number += added;
    return true;
  }
  void Raise(String& text) {
    text = u"changed";
    throw RunTimeError(error::kInvalidArgument);
  }
  void Fill(String& text, const Variant& extra) {
    text = std::holds_alternative<Missing>(extra) ? u"alone" : u"together";
  }
  void Look(std::int32_t&) {}
  std::int32_t Secret() const { return secret_; }

 protected:
  const MemberTable& Table() const override {
    static const MemberTable table(
        u"Sample",
        {Property<&Sample::Name, &Sample::SetName>(u"Name"), ReadOnly<&Sample::Count>(u"Count"),
         WriteOnly<&Sample::SetSecret>(u"Secret"),
         LetByReference(Property<&Sample::Child, &Sample::SetChild>(u"Child")),
         Method<&Sample::Join>(u"Join", {In(u"First"), Optional(u"Second")}),
         Method<&Sample::Swap>(u"Swap", {ByRef(u"Text"), ByRef(u"Number"), In(u"Added")}),
         Method<&Sample::Raise>(u"Raise", {ByRef(u"Text")}),
         Method<&Sample::Fill>(u"Fill", {ByRef(u"Text"), Optional(u"Extra")}),
         Method<&Sample::Look>(u"Look", {ByRef(u"Number")})});
    return table;
  }

 private:
  String name_ = u"first";
  std::int32_t secret_ = 0;
  std::shared_ptr<Sample> child_;
};

/// Another class of the library, without members.
class Stranger final : public TableObject {
 protected:
  const MemberTable& Table() const override {
    static const MemberTable table(u"Stranger", {});
    return table;
  }
};

class MemberTableTest : public ::testing::Test {
 protected:
  Variant CallWith(StringView name, std::vector<Variant> arguments) {
    return object->Call(name, arguments);
  }

  const std::shared_ptr<Sample> object = std::make_shared<Sample>();
};

TEST_F(MemberTableTest, NamesAreMatchedInAnyCase) {
  EXPECT_TEXT(ToText(object->Get(u"name")), u"first");
  object->Let(u"NAME", String(u"second"));
  EXPECT_TEXT(ToText(object->Get(u"nAmE")), u"second");
  EXPECT_NE(object->Members()->Find(u"sEcReT"), nullptr);
  EXPECT_EQ(object->Members()->Find(u""), nullptr);
}

TEST_F(MemberTableTest, UnknownNamesRaise438) {
  EXPECT_EQ(NumberRaisedBy([&] { object->Get(u"Nam"); }), 438);
  EXPECT_EQ(NumberRaisedBy([&] { object->Let(u"Names", Variant()); }), 438);
  EXPECT_EQ(NumberRaisedBy([&] { object->Call(u""); }), 438);
}

TEST_F(MemberTableTest, PropertiesThatGoOneWayRaise438TheOther) {
  EXPECT_EQ(NumberRaisedBy([&] { object->Let(u"Count", std::int32_t{1}); }), 438);
  EXPECT_EQ(NumberRaisedBy([&] { object->Get(u"Secret"); }), 438);
  EXPECT_EQ(NumberRaisedBy([&] { object->Let(u"Swap", std::int32_t{1}); }), 438);
  object->Let(u"Secret", String(u"41.5"));
  EXPECT_EQ(object->Secret(), 42);
}

TEST_F(MemberTableTest, AWrongNumberOfArgumentsRaises450) {
  EXPECT_EQ(NumberRaisedBy([&] { CallWith(u"Join", {}); }), 450);
  EXPECT_EQ(NumberRaisedBy([&] { CallWith(u"Join", {String(), String(), String()}); }), 450);
  EXPECT_EQ(NumberRaisedBy([&] { CallWith(u"Swap", {String(), std::int32_t{1}}); }), 450);
  EXPECT_EQ(NumberRaisedBy([&] { CallWith(u"Count", {std::int32_t{1}}); }), 450);
  std::vector<Variant> one{std::int32_t{1}};
  EXPECT_EQ(NumberRaisedBy([&] { object->Get(u"Name", one); }), 450);
  EXPECT_EQ(NumberRaisedBy([&] { object->Let(u"Name", one, String()); }), 450);
}

TEST_F(MemberTableTest, AnOptionalArgumentThatIsLeftOutIsMissing) {
  EXPECT_TEXT(ToText(CallWith(u"Join", {String(u"a")})), u"a<missing>");
  EXPECT_TEXT(ToText(CallWith(u"Join", {String(u"a"), Missing{}})), u"a<missing>");
  EXPECT_TEXT(ToText(CallWith(u"Join", {String(u"a"), Variant()})), u"a");
  EXPECT_TEXT(ToText(CallWith(u"Join", {String(u"a"), std::int32_t{5}})), u"a5");
}

TEST_F(MemberTableTest, ArgumentsByReferenceAreWrittenBackInTheirOwnType) {
  std::vector<Variant> arguments{std::int16_t{7}, String(u"40"), std::int32_t{2}};
  EXPECT_TRUE(ToBoolean(object->Call(u"Swap", arguments)));
  EXPECT_EQ(arguments[0], Variant(String(u"7!")));
  EXPECT_EQ(arguments[1], Variant(std::int32_t{42}));
  EXPECT_EQ(arguments[2], Variant(std::int32_t{2}));
}

TEST_F(MemberTableTest, ArgumentsByReferenceThatAreLeftAloneKeepTheirType) {
  std::vector<Variant> arguments{1.25};
  object->Call(u"Look", arguments);
  EXPECT_EQ(arguments[0], Variant(1.25));
}

TEST_F(MemberTableTest, ArgumentsByReferenceAreWrittenBackBesideMissingOnes) {
  std::vector<Variant> arguments{String(u"before")};
  object->Call(u"Fill", arguments);
  EXPECT_EQ(arguments[0], Variant(String(u"alone")));
  arguments.assign({String(u"before"), std::int32_t{1}});
  object->Call(u"Fill", arguments);
  EXPECT_EQ(arguments[0], Variant(String(u"together")));
}

TEST_F(MemberTableTest, ACallThatRaisesLeavesTheArgumentsAsTheyWere) {
  std::vector<Variant> arguments{String(u"before")};
  EXPECT_EQ(NumberRaisedBy([&] { object->Call(u"Raise", arguments); }), 5);
  EXPECT_EQ(arguments[0], Variant(String(u"before")));
}

TEST_F(MemberTableTest, ArgumentsThatDoNotConvertRaiseBeforeTheCall) {
  std::vector<Variant> arguments{String(u"a"), String(u"no number"), std::int32_t{1}};
  EXPECT_EQ(NumberRaisedBy([&] { object->Call(u"Swap", arguments); }), 13);
  EXPECT_EQ(arguments[0], Variant(String(u"a")));
  EXPECT_EQ(NumberRaisedBy([&] { object->Let(u"Secret", 3e9); }), 6);
  EXPECT_EQ(object->Secret(), 0);
}

TEST_F(MemberTableTest, ObjectsMustBeOfTheMembersClassOrNone) {
  const auto child = std::make_shared<Sample>();
  object->Let(u"Child", ObjectRef(child));
  EXPECT_EQ(object->Get(u"Child"), Variant(ObjectRef(child)));
  EXPECT_EQ(NumberRaisedBy([&] { object->Let(u"Child", ObjectRef(std::make_shared<Stranger>())); }),
            13);
  EXPECT_EQ(NumberRaisedBy([&] { object->Let(u"Child", String(u"x")); }), 13);
  EXPECT_EQ(object->Child(), child);
  object->Let(u"Child", ObjectRef());
  EXPECT_EQ(object->Child(), nullptr);
}

TEST_F(MemberTableTest, TheTableShowsMembersInTheirOrderWithTheirTypes) {
  const std::vector<Member>& members = object->Members()->All();
  ASSERT_EQ(members.size(), 9u);
  EXPECT_TEXT(members[0].name, u"Name");
  EXPECT_EQ(members[0].type, ValueType::Text);
  EXPECT_FALSE(members[0].isMethod);
  EXPECT_EQ(members[1].let, nullptr);
  EXPECT_EQ(members[1].type, ValueType::Int16);
  EXPECT_EQ(members[2].call, nullptr);
  EXPECT_EQ(members[2].type, ValueType::Int32);
  EXPECT_TRUE(members[3].letByReference);
  EXPECT_FALSE(members[0].letByReference);
  EXPECT_EQ(members[3].type, ValueType::Object);
  EXPECT_TRUE(members[5].isMethod);
  EXPECT_EQ(members[5].type, ValueType::Boolean);
  EXPECT_EQ(members[6].type, ValueType::None);
}

TEST_F(MemberTableTest, TheTableShowsHowParametersArePassed) {
  const Member* const swap = object->Members()->Find(u"Swap");
  ASSERT_NE(swap, nullptr);
  ASSERT_EQ(swap->parameters.size(), 3u);
  EXPECT_TRUE(swap->parameters[0].byReference);
  EXPECT_EQ(swap->parameters[0].type, ValueType::Text);
  EXPECT_FALSE(swap->parameters[2].byReference);
  EXPECT_EQ(swap->parameters[2].type, ValueType::Int32);
  const Member* const join = object->Members()->Find(u"Join");
  ASSERT_NE(join, nullptr);
  EXPECT_FALSE(join->parameters[0].optional);
  EXPECT_TRUE(join->parameters[1].optional);
  EXPECT_EQ(join->parameters[1].type, ValueType::Any);
}

TEST_F(MemberTableTest, TheClassNameIsTheTables) {
  EXPECT_TEXT(object->ClassName(), u"Sample");
  EXPECT_TEXT(Stranger().ClassName(), u"Stranger");
}

}  // namespace
}  // namespace norvo
