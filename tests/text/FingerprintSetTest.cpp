#include "text/FingerprintIndex.h"

#include <gtest/gtest.h>

#include "text/Number.h"

namespace norvo {
namespace {

TEST(FingerprintIndex, AnEmptyIndexFindsNothing) {
  EXPECT_FALSE(FingerprintIndex().Find(Fingerprint()));
}

TEST(FingerprintIndex, FindsTheNumbersOfManyPrints) {
  FingerprintIndex index;
  for (std::uint32_t i = 0; i < 5000; ++i) {
    ASSERT_TRUE(index.Insert(FingerprintOf(FormatInteger(i)), i));
  }
  EXPECT_EQ(index.Size(), 5000u);
  for (std::uint32_t i = 0; i < 5000; ++i) {
    ASSERT_EQ(index.Find(FingerprintOf(FormatInteger(i))), i);
  }
  EXPECT_FALSE(index.Find(FingerprintOf(u"5000")));
}

TEST(FingerprintIndex, KeepsTheFirstNumberOfAPrint) {
  FingerprintIndex index;
  EXPECT_TRUE(index.Insert(CaselessFingerprintOf(u"a"), 1));
  EXPECT_FALSE(index.Insert(CaselessFingerprintOf(u"A"), 2));
  EXPECT_EQ(index.Find(CaselessFingerprintOf(u"a")), 1u);
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
