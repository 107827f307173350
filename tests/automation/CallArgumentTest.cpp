#include "automation/CallArgument.h"

#include <gtest/gtest.h>

#include <limits>

#include "automation/AutomationObject.h"
#include "support/RaisedErrors.h"
#include "support/TextPrinting.h"

namespace norvo {
namespace {

/// Answers a call with what it was given; the last call can be looked at.
class Recorder final : public AutomationObject {
 public:
  using AutomationObject::Call;
  using AutomationObject::Get;
  using AutomationObject::Let;

  StringView ClassName() const override { return u"Recorder"; }
  Variant Get(StringView name, Arguments arguments) override { return Record(name, arguments); }
  void Let(StringView name, Arguments arguments, const Variant& value) override {
    Record(name, arguments);
    given.push_back(value);
  }
  Variant Call(StringView name, Arguments arguments) override { return Record(name, arguments); }

  String called;
  std::vector<Variant> given;

 private:
  Variant Record(StringView name, Arguments arguments) {
    called = name;
    given.assign(arguments.begin(), arguments.end());
    if (!arguments.empty()) arguments[0] = String(u"written back");
    return static_cast<std::int32_t>(arguments.size());
  }
};

TEST(CallArguments, TextsOfBothEncodingsAreTexts) {
  EXPECT_EQ(ToVariant("Ma\xC3\x9F"), Variant(String(u"Ma\u00DF")));
  EXPECT_EQ(ToVariant(std::string("Mix")), Variant(String(u"Mix")));
  EXPECT_EQ(ToVariant(std::string_view("Mix")), Variant(String(u"Mix")));
  EXPECT_EQ(ToVariant(u"Mix"), Variant(String(u"Mix")));
  EXPECT_EQ(ToVariant(StringView(u"Mix")), Variant(String(u"Mix")));
  EXPECT_EQ(ToVariant(String(u"Mix")), Variant(String(u"Mix")));
  EXPECT_EQ(ToVariant(""), Variant(String()));
}

TEST(CallArguments, WhatIsNoUtf8BecomesTheReplacementCharacter) {
  EXPECT_EQ(ToVariant("a\xFFz"), Variant(String(u"a\uFFFDz")));
}

TEST(CallArguments, NumbersKeepTheirTypeWhereAVariantHasIt) {
  EXPECT_EQ(ToVariant(true), Variant(true));
  EXPECT_EQ(ToVariant(std::uint8_t{200}), Variant(std::uint8_t{200}));
  EXPECT_EQ(ToVariant(std::int16_t{-3}), Variant(std::int16_t{-3}));
  EXPECT_EQ(ToVariant(7), Variant(std::int32_t{7}));
  EXPECT_EQ(ToVariant(1.5), Variant(1.5));
  EXPECT_EQ(ToVariant(1.5F), Variant(1.5));
}

TEST(CallArguments, OtherWholeNumbersBecomeThoseOfThirtyTwoBits) {
  EXPECT_EQ(ToVariant(std::int8_t{-1}), Variant(std::int32_t{-1}));
  EXPECT_EQ(ToVariant(std::uint16_t{65535}), Variant(std::int32_t{65535}));
  EXPECT_EQ(ToVariant(std::size_t{2147483647}), Variant(std::int32_t{2147483647}));
  EXPECT_EQ(ToVariant(std::int64_t{-2147483648}), Variant(std::int32_t{-2147483647} - 1));
}

TEST(CallArguments, ATooLargeNumberIsErrorSix) {
  EXPECT_EQ(NumberRaisedBy([] { return ToVariant(std::size_t{2147483648}); }), error::kOverflow);
  EXPECT_EQ(NumberRaisedBy([] { return ToVariant(std::int64_t{-2147483649}); }), error::kOverflow);
}

TEST(CallArguments, ObjectsAndTheOtherTypesGoAsTheyAre) {
  const auto recorder = std::make_shared<Recorder>();
  EXPECT_EQ(ToVariant(recorder), Variant(ObjectRef(recorder)));
  EXPECT_EQ(ToVariant(nullptr), Variant(ObjectRef()));
  EXPECT_EQ(ToVariant(Date{2}), Variant(Date{2}));
  EXPECT_EQ(ToVariant(Missing{}), Variant(Missing{}));
  EXPECT_EQ(ToVariant(Null{}), Variant(Null{}));
  EXPECT_EQ(ToVariant(Variant()), Variant());
  const auto texts = std::make_shared<const std::vector<String>>(2, u"Mix");
  EXPECT_EQ(ToVariant(texts), Variant(texts));
}

TEST(CallArguments, CharactersAndPlainPointersAreNone) {
  static_assert(!CallArgument<char>);
  static_assert(!CallArgument<char16_t>);
  static_assert(!CallArgument<wchar_t>);
  static_assert(!CallArgument<void*>);
  static_assert(!CallArgument<Arguments>);
  static_assert(CallArgument<char[4]>);
}

TEST(AutomationObjects, ACallTakesArgumentsInTheirOrder) {
  Recorder recorder;
  EXPECT_EQ(recorder.Call("ReadPlayList", "C:\\\xC3\x84.m3u", 3, true), Variant(std::int32_t{3}));
  EXPECT_TEXT(recorder.called, u"ReadPlayList");
  const std::vector<Variant> expected = {String(u"C:\\\u00C4.m3u"), std::int32_t{3}, true};
  EXPECT_EQ(recorder.given, expected);
  EXPECT_EQ(recorder.Call(u"Wide", 2.5), Variant(std::int32_t{1}));
  EXPECT_TEXT(recorder.called, u"Wide");
}

TEST(AutomationObjects, ACallNeedsNoArguments) {
  Recorder recorder;
  EXPECT_EQ(recorder.Call("GetAllPlaylists"), Variant(std::int32_t{0}));
  EXPECT_EQ(recorder.Call(u"GetAllPlaylists"), Variant(std::int32_t{0}));
  EXPECT_EQ(recorder.Get("Co\xC3\xBCnt"), Variant(std::int32_t{0}));
  EXPECT_TEXT(recorder.called, u"Co\u00FCnt");
}

TEST(AutomationObjects, ANameInUtf8WorksWithArgumentsThatAreWrittenBackToo) {
  Recorder recorder;
  Variant argument = std::int32_t{1};
  recorder.Call("Call", Arguments(&argument, 1));
  EXPECT_EQ(argument, Variant(String(u"written back")));
  argument = std::int32_t{1};
  recorder.Get("Get", Arguments(&argument, 1));
  EXPECT_EQ(argument, Variant(String(u"written back")));
}

TEST(AutomationObjects, WhatACallWritesBackIsLostToACallerWhoPassesValues) {
  Recorder recorder;
  const Variant argument = std::int32_t{1};
  recorder.Call("Call", argument);
  EXPECT_EQ(argument, Variant(std::int32_t{1}));
}

TEST(AutomationObjects, APropertyTakesAnyArgumentForItsValue) {
  Recorder recorder;
  recorder.Let("PlayListName", "Mix");
  EXPECT_TEXT(recorder.called, u"PlayListName");
  EXPECT_EQ(recorder.given, std::vector<Variant>{String(u"Mix")});
  recorder.Let(u"PlayListType", std::size_t{3});
  EXPECT_EQ(recorder.given, std::vector<Variant>{std::int32_t{3}});
  Variant index = std::int32_t{5};
  recorder.Let("Item", Arguments(&index, 1), String(u"Mix"));
  EXPECT_EQ(recorder.given, (std::vector<Variant>{std::int32_t{5}, String(u"Mix")}));
}

}  // namespace
}  // namespace norvo
