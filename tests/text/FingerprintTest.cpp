#include <gtest/gtest.h>

#include <set>
#include <utility>

#include "text/FingerprintIndex.h"
#include "text/Number.h"

namespace norvo {
namespace {

TEST(Fingerprint, DoesNotRegardCase) {
  EXPECT_EQ(Fingerprint().Add(u"C:\\Ärzte\\a.MP3"), Fingerprint().Add(u"c:\\äRZTE\\A.mp3"));
}

TEST(Fingerprint, TellsTextsApartByEveryCharacterAndTheirOrder) {
  std::set<std::pair<std::uint64_t, std::uint64_t>> seen;
  const StringView texts[] = {u"", u"A", u"B", u"AB", u"BA", u"A ", u" A", StringView(u"A\0", 2)};
  for (const StringView text : texts) {
    const Fingerprint print = Fingerprint().Add(text);
    EXPECT_TRUE(seen.emplace(print.first, print.second).second);
  }
}

TEST(Fingerprint, TextsAddedInTurnAreTheirConcatenation) {
  EXPECT_EQ(Fingerprint().Add(u"C:\\").Add(u"a.mp3"), Fingerprint().Add(u"C:\\a.mp3"));
}

TEST(FingerprintIndex, AnEmptyIndexFindsNothing) {
  EXPECT_FALSE(FingerprintIndex().Find(Fingerprint()));
}

TEST(FingerprintIndex, FindsTheNumbersOfManyPrints) {
  FingerprintIndex index;
  for (std::uint32_t i = 0; i < 5000; ++i) {
    ASSERT_TRUE(index.Insert(Fingerprint().Add(FormatInteger(i)), i));
  }
  EXPECT_EQ(index.Size(), 5000u);
  for (std::uint32_t i = 0; i < 5000; ++i) {
    ASSERT_EQ(index.Find(Fingerprint().Add(FormatInteger(i))), i);
  }
  EXPECT_FALSE(index.Find(Fingerprint().Add(u"5000")));
}

TEST(FingerprintIndex, KeepsTheFirstNumberOfAPrint) {
  FingerprintIndex index;
  EXPECT_TRUE(index.Insert(Fingerprint().Add(u"a"), 1));
  EXPECT_FALSE(index.Insert(Fingerprint().Add(u"A"), 2));
  EXPECT_EQ(index.Find(Fingerprint().Add(u"a")), 1u);
  EXPECT_EQ(index.Size(), 1u);
}

TEST(FingerprintIndex, PrintsThatBelongInOnePlaceAreToldApart) {
  FingerprintIndex index;
  for (std::uint32_t i = 0; i < 60; ++i) ASSERT_TRUE(index.Insert({7, i}, i));
  for (std::uint32_t i = 0; i < 60; ++i) ASSERT_EQ(index.Find({7, i}), i);
}

TEST(FingerprintIndex, HoldsNothingAfterClearing) {
  FingerprintIndex index;
  index.Insert(Fingerprint(), 1);
  index.Clear();
  EXPECT_EQ(index.Size(), 0u);
  EXPECT_FALSE(index.Find(Fingerprint()));
  EXPECT_TRUE(index.Insert(Fingerprint(), 2));
}

}  // namespace
}  // namespace norvo
