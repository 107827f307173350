#include "text/UnitWords.h"

#include <gtest/gtest.h>

#include <string>

#include "text/Ascii.h"

namespace norvo {
namespace {

TEST(UnitWords, AZeroLaneIsSeenWhereverItIsAndNothingElseIsTakenForOne) {
  for (int lane = 0; lane < 4; ++lane) {
    const std::uint64_t others = InEachLane(char16_t{0x8001});
    EXPECT_NE(ZeroLanes<char16_t>(others & ~(std::uint64_t{0xFFFF} << (16 * lane))), 0u);
  }
  EXPECT_EQ(ZeroLanes<char16_t>(0x0001800080000100u), 0u);
  EXPECT_NE(ZeroLanes<char>(0x0101010001010101u), 0u);
  EXPECT_EQ(ZeroLanes<char>(0x8001FF8001010180u), 0u);
}

/// Each place of texts of each length from 0 to 20.
template <class Unit, class Question>
void ExpectFoundAtEachPlace(Unit plain, Unit sought, Question question) {
  for (std::size_t length = 0; length <= 20; ++length) {
    std::basic_string<Unit> text(length, plain);
    EXPECT_FALSE(question(text)) << length;
    for (Unit& unit : text) {
      unit = sought;
      EXPECT_TRUE(question(text)) << length;
      unit = plain;
    }
  }
}

TEST(UnitWords, AnswerForEachUnitOfATextOfAnyLength) {
  ExpectFoundAtEachPlace('a', '\x80', [](std::string_view text) { return !IsAscii(text); });
  ExpectFoundAtEachPlace('\x7F', '\xFF', [](std::string_view text) { return !IsAscii(text); });
  for (const char16_t beyond : {u'\x80', u'\u0100', u'\uFF00'}) {
    ExpectFoundAtEachPlace(u'a', beyond, [](StringView text) { return !IsAscii(text); });
    ExpectFoundAtEachPlace(u'a', beyond, [](StringView text) { return !IsPlainAscii(text); });
  }
  for (const char16_t control : {u'\0', u'\t', u'\x1F'}) {
    ExpectFoundAtEachPlace(u' ', control, [](StringView text) { return HasControls(text); });
    ExpectFoundAtEachPlace(u'\u0100', control, [](StringView text) { return HasControls(text); });
    ExpectFoundAtEachPlace(u'z', control, [](StringView text) { return !IsPlainAscii(text); });
  }
}

TEST(UnitWords, AUnitIsFoundAtItsFirstPlace) {
  for (std::size_t length = 1; length <= 24; ++length) {
    for (std::size_t place = 0; place < length; ++place) {
      String text(length, u'\u0101');
      text[place] = u'\u0001';
      text.back() = u'\u0001';
      EXPECT_EQ(FindUnit(text, u'\u0001'), place);
      EXPECT_EQ(FindUnit(text, u'\u0001', place), place);
      EXPECT_EQ(FindUnit(text, u'\u0001', place + 1),
                place + 1 < length ? length - 1 : StringView::npos);
      EXPECT_EQ(FindUnit(text, u'\u0000'), StringView::npos);
    }
  }
  EXPECT_EQ(FindUnit(u"abc", u'a', 9), StringView::npos);
}

}  // namespace
}  // namespace norvo
