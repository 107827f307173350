#include "text/UnitWords.h"

#include <gtest/gtest.h>

#include <string>

#include "text/Ascii.h"
#include "text/Encoding.h"

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

/// What is refused adds nothing; what is taken is there as it is.
bool IsRefusedAsPlain(StringView text) {
  std::string bytes = "before ";
  const bool isTaken = AppendPlainAscii(bytes, text);
  EXPECT_EQ(bytes, isTaken ? "before " + ToUtf8(text) : "before ");
  return !isTaken;
}

TEST(UnitWords, AnswerForEachUnitOfATextOfAnyLength) {
  ExpectFoundAtEachPlace('a', '\x80', [](std::string_view text) { return !IsAscii(text); });
  ExpectFoundAtEachPlace('\x7F', '\xFF', [](std::string_view text) { return !IsAscii(text); });
  for (const char16_t beyond : {u'\x80', u'\u0100', u'\uFF00'}) {
    ExpectFoundAtEachPlace(u'a', beyond, [](StringView text) { return !IsAscii(text); });
    ExpectFoundAtEachPlace(u'a', beyond, IsRefusedAsPlain);
  }
  for (const char16_t control : {u'\0', u'\t', u'\x1F'}) {
    ExpectFoundAtEachPlace(u' ', control, [](StringView text) { return HasControls(text); });
    ExpectFoundAtEachPlace(u'\u0100', control, [](StringView text) { return HasControls(text); });
    ExpectFoundAtEachPlace(u'z', control, IsRefusedAsPlain);
  }
}

TEST(UnitWords, ALongTextIsPlainUpToItsLastUnit) {
  for (const std::size_t length : {511u, 512u, 513u, 1024u, 1500u}) {
    String text(length, u'~');
    EXPECT_FALSE(IsRefusedAsPlain(text)) << length;
    text.back() = u'\x80';
    EXPECT_TRUE(IsRefusedAsPlain(text)) << length;
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

/// Texts of any length up to 20 of units that share bytes with each other, in any order.
template <class Visit>
void ForEachMixedText(Visit visit) {
  constexpr StringView kUnits = u"\n\r\\./a \u0A0A\u0A61\u0D0A\u5C2E\u2E5C\u000B\u000C\uFFFF";
  std::uint32_t state = 1;
  for (std::size_t length = 0; length <= 20; ++length) {
    for (int round = 0; round < 200; ++round) {
      String text;
      for (std::size_t i = 0; i < length; ++i) {
        state = state * 1664525u + 1013904223u;
        // Every other text has a NUL, too.
        const std::size_t at =
            (state >> 16) % (kUnits.size() + static_cast<std::size_t>(round % 2));
        text += at < kUnits.size() ? kUnits[at] : u'\0';
      }
      visit(text);
    }
  }
}

TEST(UnitWords, AUnitIsFoundAmongOthersWithTheSameBytes) {
  ForEachMixedText([](const String& text) {
    for (const char16_t unit : {u'\n', u'\\', u'.', u'\0', u'\u0A0A', u'\uFFFF', u'z'}) {
      for (std::size_t from = 0; from <= text.size() + 1; ++from) {
        ASSERT_EQ(FindUnit(text, unit, from), text.find(unit, from));
      }
    }
    for (std::size_t from = 0; from <= text.size() + 1; ++from) {
      const std::size_t end = text.find_first_of(u"\r\n", from);
      ASSERT_EQ(FindLineEnd(text, from), end == String::npos ? text.size() : end);
    }
  });
}

TEST(UnitWords, NeighboursAreSeenWhereverTheyStand) {
  const auto isPair = [](char16_t before, char16_t unit) -> std::uint16_t {
    return before == u'.' && unit == u'\\';
  };
  ForEachMixedText([&](const String& text) {
    for (std::size_t from = 1; from <= text.size() + 1; ++from) {
      const std::size_t found = text.find(u".\\", from - 1);
      ASSERT_EQ(AnyNeighbours(text, from, isPair), found != String::npos);
    }
  });
}

}  // namespace
}  // namespace norvo
