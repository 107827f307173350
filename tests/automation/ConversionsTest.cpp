#include "automation/Conversions.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "automation/AutomationObject.h"
#include "automation/RunTimeError.h"
#include "support/RaisedErrors.h"
#include "support/TextPrinting.h"

namespace norvo {
namespace {

class Nothing final : public AutomationObject {
 public:
  StringView ClassName() const override { return u"Nothing"; }
  Variant Get(StringView, Arguments) override { return {}; }
  void Let(StringView, Arguments, const Variant&) override {}
  Variant Call(StringView, Arguments) override { return {}; }
};

Variant Text(StringView text) {
  return String(text);
}

struct Whole {
  Variant value;
  std::int32_t expected;
};

TEST(Conversions, AllValuesThatAreNumbersBecomeIntegers) {
  const Whole rows[] = {{Variant(), 0},
                        {true, -1},
                        {false, 0},
                        {std::uint8_t{255}, 255},
                        {std::int16_t{-7}, -7},
                        {std::int32_t{32767}, 32767},
                        {1.5, 2},
                        {2.5, 2},
                        {-1.5, -2},
                        {32767.4999, 32767},
                        {-32768.5, -32768},
                        {Date{12.0}, 12},
                        {Text(u" 42 "), 42},
                        {Text(u"0.5"), 0},
                        {Text(u"1e2"), 100}};
  for (const Whole& row : rows) {
    EXPECT_EQ(ToInt16(row.value), row.expected);
    EXPECT_EQ(ToInt32(row.value), row.expected);
  }
}

TEST(Conversions, NumbersOutsideTheRangeOverflow) {
  EXPECT_EQ(NumberRaisedBy([] { return ToInt16(32767.5); }), error::kOverflow);
  EXPECT_EQ(NumberRaisedBy([] { return ToInt16(-32769.0); }), error::kOverflow);
  EXPECT_EQ(NumberRaisedBy([] { return ToInt16(std::int32_t{32768}); }), error::kOverflow);
  EXPECT_EQ(NumberRaisedBy([] { return ToInt32(2147483647.5); }), error::kOverflow);
  EXPECT_EQ(NumberRaisedBy([] { return ToInt32(-2147483649.0); }), error::kOverflow);
  EXPECT_EQ(NumberRaisedBy([] { return ToByte(256.0); }), error::kOverflow);
  EXPECT_EQ(NumberRaisedBy([] { return ToInt32(std::nan("")); }), error::kOverflow);
  EXPECT_EQ(NumberRaisedBy([] { return ToInt32(Text(u"1e400")); }), error::kOverflow);
  EXPECT_EQ(NumberRaisedBy([] { return ToDouble(Text(u"1e400")); }), error::kOverflow);
  EXPECT_EQ(ToInt32(2147483647.4), 2147483647);
  EXPECT_EQ(ToInt32(-2147483648.5), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(ToByte(254.5), 254);
}

TEST(Conversions, ValuesThatAreNoNumbersDoNotMatch) {
  const Variant values[] = {Text(u""),
                            Text(u"abc"),
                            Text(u"1a"),
                            Text(u"True"),
                            Missing{},
                            ObjectRef(),
                            ObjectRef(std::make_shared<Nothing>()),
                            StringArray()};
  for (const Variant& value : values) {
    EXPECT_EQ(NumberRaisedBy([&] { return ToInt16(value); }), error::kTypeMismatch);
    EXPECT_EQ(NumberRaisedBy([&] { return ToInt32(value); }), error::kTypeMismatch);
    EXPECT_EQ(NumberRaisedBy([&] { return ToDouble(value); }), error::kTypeMismatch);
    EXPECT_EQ(NumberRaisedBy([&] { return ToByte(value); }), error::kTypeMismatch);
  }
}

TEST(Conversions, TextsConvertLikeTheirNumbers) {
  EXPECT_EQ(Int16FromText(u"2.5"), 2);
  EXPECT_EQ(Int32FromText(u"-7"), -7);
  EXPECT_EQ(NumberRaisedBy([] { return Int16FromText(u"40000"); }), error::kOverflow);
  EXPECT_EQ(NumberRaisedBy([] { return Int16FromText(u""); }), error::kTypeMismatch);
  EXPECT_EQ(NumberRaisedBy([] { return Int32FromText(u"2147483648"); }), error::kOverflow);
}

TEST(Conversions, CountsAreNarrowedWithinTheirRange) {
  EXPECT_EQ(CountToInt16(0), 0);
  EXPECT_EQ(CountToInt16(32767), 32767);
  EXPECT_EQ(NumberRaisedBy([] { return CountToInt16(32768); }), error::kOverflow);
  EXPECT_EQ(CountToInt32(2147483647), 2147483647);
  EXPECT_EQ(NumberRaisedBy([] { return CountToInt32(2147483648u); }), error::kOverflow);
}

TEST(Conversions, BooleansComeFromNumbersAndFromTheirNames) {
  EXPECT_FALSE(ToBoolean(Variant()));
  EXPECT_TRUE(ToBoolean(true));
  EXPECT_TRUE(ToBoolean(std::int32_t{2}));
  EXPECT_TRUE(ToBoolean(0.25));
  EXPECT_FALSE(ToBoolean(std::int16_t{0}));
  EXPECT_TRUE(ToBoolean(Text(u"True")));
  EXPECT_TRUE(ToBoolean(Text(u" tRUE ")));
  EXPECT_FALSE(ToBoolean(Text(u"FALSE")));
  EXPECT_TRUE(ToBoolean(Text(u"-1")));
  EXPECT_FALSE(ToBoolean(Text(u"0")));
  EXPECT_EQ(NumberRaisedBy([] { return ToBoolean(Text(u"")); }), error::kTypeMismatch);
  EXPECT_EQ(NumberRaisedBy([] { return ToBoolean(Text(u"yes")); }), error::kTypeMismatch);
  EXPECT_EQ(NumberRaisedBy([] { return ToBoolean(Missing{}); }), error::kTypeMismatch);
}

TEST(Conversions, ObjectsComeFromObjectsAndFromNothing) {
  const ObjectRef object = std::make_shared<Nothing>();
  EXPECT_EQ(ToObject(object), object);
  EXPECT_EQ(ToObject(Variant()), nullptr);
  EXPECT_EQ(NumberRaisedBy([] { return ToObject(Text(u"x")); }), error::kTypeMismatch);
  EXPECT_EQ(NumberRaisedBy([] { return ToObject(std::int32_t{0}); }), error::kTypeMismatch);
}

TEST(Conversions, EachTypeHasItsText) {
  EXPECT_TEXT(ToText(Variant()), u"");
  EXPECT_TEXT(ToText(true), u"True");
  EXPECT_TEXT(ToText(false), u"False");
  EXPECT_TEXT(ToText(std::uint8_t{9}), u"9");
  EXPECT_TEXT(ToText(std::int16_t{-9}), u"-9");
  EXPECT_TEXT(ToText(std::int32_t{-2147483647 - 1}), u"-2147483648");
  EXPECT_TEXT(ToText(1.0), u"1");
  EXPECT_TEXT(ToText(0.5), u"0.5");
  EXPECT_TEXT(ToText(Text(u"a\r\n")), u"a\r\n");
  EXPECT_EQ(NumberRaisedBy([] { return ToText(Missing{}); }), error::kTypeMismatch);
  EXPECT_EQ(NumberRaisedBy([] { return ToText(ObjectRef()); }), error::kTypeMismatch);
  EXPECT_EQ(NumberRaisedBy([] { return ToText(StringArray()); }), error::kTypeMismatch);
}

TEST(Conversions, ADateBecomesItsText) {
  EXPECT_TEXT(ToText(Date{37755.5}), u"5/14/2003 12:00:00 PM");
}

TEST(Conversions, AValueIsHadInUtf8) {
  EXPECT_EQ(ToUtf8Text(Text(u"Ma\u00DF")), "Ma\xC3\x9F");
  EXPECT_EQ(ToUtf8Text(std::int32_t{-7}), "-7");
  EXPECT_EQ(ToUtf8Text(Variant()), "");
  EXPECT_EQ(NumberRaisedBy([] { return ToUtf8Text(Missing{}); }), error::kTypeMismatch);
}

TEST(Conversions, LikeRaisesForAPatternThatIsNotValid) {
  EXPECT_TRUE(Like(u"abc", u"A*", Compare::Text));
  EXPECT_FALSE(Like(u"abc", u"A*", Compare::Binary));
  EXPECT_EQ(NumberRaisedBy([] { return Like(u"a", u"[a", Compare::Text); }),
            error::kInvalidPattern);
  EXPECT_EQ(NumberRaisedBy([] { return Like(u"", u"[z-a]", Compare::Binary); }),
            error::kInvalidPattern);
}

TEST(Conversions, NullConvertsToNothing) {
  EXPECT_EQ(NumberRaisedBy([] { return ToText(Variant(Null{})); }), 94);
  EXPECT_EQ(NumberRaisedBy([] { return ToInt32(Variant(Null{})); }), 94);
  EXPECT_EQ(NumberRaisedBy([] { return ToBoolean(Variant(Null{})); }), 94);
  EXPECT_EQ(NumberRaisedBy([] { return ToObject(Variant(Null{})); }), 13);
  EXPECT_EQ(RunTimeError(94).Description(), u"Invalid use of Null");
}

}  // namespace
}  // namespace norvo
