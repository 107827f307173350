#include "text/Number.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/TextPrinting.h"

namespace norvo {
namespace {

struct Parsed {
  StringView text;
  double number;
};

constexpr Parsed kNumbers[] = {
    {u"0", 0},       {u"7", 7},         {u"007", 7},
    {u"-12", -12},   {u"+12", 12},      {u"1.5", 1.5},
    {u".5", 0.5},    {u"5.", 5},        {u"-.25", -0.25},
    {u"  42  ", 42}, {u"1e3", 1000},    {u"1E+3", 1000},
    {u"1d3", 1000},  {u"1.5D-1", 0.15}, {u"2147483648", 2147483648.0},
    {u"1e-400", 0},  {u"1d-400", 0},
};

TEST(Number, WholeTextsThatAreNumbersAreTaken) {
  for (const Parsed& row : kNumbers) {
    const std::optional<double> number = ParseNumber(row.text);
    ASSERT_TRUE(number.has_value()) << Utf8(row.text);
    EXPECT_DOUBLE_EQ(*number, row.number) << Utf8(row.text);
  }
}

TEST(Number, AllOtherTextsAreNoNumbers) {
  for (const StringView text :
       {u"",    u" ",   u"abc",      u"1a",  u"a1",  u"1 2", u"1,000", u"1.2.3", u".",    u"-",
        u"+",   u"+-1", u"-+1",      u"--1", u"e5",  u"1e",  u"1e+",   u"&H10",  u"0x10", u"inf",
        u"nan", u"NaN", u"infinity", u"\t1", u"1\r", u"1\n", u"٣",     u"½",     u"1-"}) {
    EXPECT_FALSE(ParseNumber(text).has_value()) << Utf8(text);
  }
}

TEST(Number, ANulMakesATextNoNumber) {
  EXPECT_FALSE(ParseNumber(StringView(u"12\0", 3)).has_value());
  EXPECT_FALSE(ParseNumber(StringView(u"\0", 1)).has_value());
}

TEST(Number, WhatADoubleCannotHoldIsInfinite) {
  for (const StringView text : {u"1e400", u"-1e400", u"1D999", u"1000e2147483647",
                                u"1000e9223372036854775807", u"1000e9223372036854775808"}) {
    ASSERT_TRUE(ParseNumber(text).has_value()) << Utf8(text);
    EXPECT_TRUE(std::isinf(*ParseNumber(text))) << Utf8(text);
  }
  const String digits(400, u'9');
  EXPECT_TRUE(std::isinf(ParseNumber(digits).value_or(0)));
}

TEST(Number, WhatIsTooSmallForADoubleIsZeroHoweverItIsWritten) {
  EXPECT_EQ(ParseNumber(u"1E-400").value_or(-1), 0);
  EXPECT_EQ(ParseNumber(u"0." + String(400, u'0') + u"1").value_or(-1), 0);
  EXPECT_EQ(ParseNumber(u"0.001E-2147483648").value_or(-1), 0);
  EXPECT_EQ(ParseNumber(u"0.001E-9223372036854775808").value_or(-1), 0);
}

TEST(Number, WholeNumbersHaveNeitherPointNorExponent) {
  EXPECT_TEXT(FormatNumber(0), u"0");
  EXPECT_TEXT(FormatNumber(-0.0), u"0");
  EXPECT_TEXT(FormatNumber(3), u"3");
  EXPECT_TEXT(FormatNumber(-17), u"-17");
  EXPECT_TEXT(FormatNumber(1e15), u"1000000000000000");
  EXPECT_TEXT(FormatNumber(4294967296.0), u"4294967296");
  EXPECT_TEXT(FormatNumber(1e20), u"100000000000000000000");
  const String largest = FormatNumber(std::numeric_limits<double>::max());
  EXPECT_EQ(largest.size(), 309u);
  EXPECT_EQ(largest.find_first_not_of(u"0123456789"), String::npos);
}

TEST(Number, OtherNumbersHaveUpToFifteenDigits) {
  EXPECT_TEXT(FormatNumber(0.1), u"0.1");
  EXPECT_TEXT(FormatNumber(-1.5), u"-1.5");
  EXPECT_TEXT(FormatNumber(1234567.891), u"1234567.891");
  EXPECT_TEXT(FormatNumber(1.0 / 3), u"0.333333333333333");
}

TEST(Number, IntegersOfEverySizeAreWritten) {
  EXPECT_TEXT(FormatInteger(0), u"0");
  EXPECT_TEXT(FormatInteger(-1), u"-1");
  EXPECT_TEXT(FormatInteger(std::numeric_limits<std::int64_t>::min()), u"-9223372036854775808");
  EXPECT_TEXT(FormatInteger(std::numeric_limits<std::int64_t>::max()), u"9223372036854775807");
}

TEST(Number, AHalfGoesToTheEvenNeighbour) {
  constexpr double kRows[][2] = {
      {0.5, 0},          {1.5, 2},    {2.5, 2},   {3.5, 4},
      {-0.5, 0},         {-1.5, -2},  {-2.5, -2}, {0.49999999999999994, 0},
      {2.51, 3},         {-2.51, -3}, {7, 7},     {32767.5, 32768},
      {-32768.5, -32768}};
  for (const auto& row : kRows) EXPECT_EQ(RoundHalfToEven(row[0]), row[1]) << row[0];
  EXPECT_TRUE(std::isnan(RoundHalfToEven(std::nan(""))));
  EXPECT_TRUE(std::isinf(RoundHalfToEven(std::numeric_limits<double>::infinity())));
}

}  // namespace
}  // namespace norvo
