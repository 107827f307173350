#include "text/FingerprintSet.h"

#include <gtest/gtest.h>

#include "text/Number.h"

namespace norvo {
namespace {

TEST(FingerprintSet, AnEmptySetHasNothing) {
  EXPECT_FALSE(FingerprintSet().Has(Fingerprint()));
}

TEST(FingerprintSet, HasAllOfManyPrintsAndNoOther) {
  FingerprintSet set;
  for (std::uint32_t i = 0; i < 5000; ++i) {
    ASSERT_TRUE(set.Insert(FingerprintOf(FormatInteger(i))));
  }
  EXPECT_EQ(set.Size(), 5000u);
  for (std::uint32_t i = 0; i < 5000; ++i) {
    ASSERT_TRUE(set.Has(FingerprintOf(FormatInteger(i))));
  }
  EXPECT_FALSE(set.Has(FingerprintOf(u"5000")));
}

TEST(FingerprintSet, TakesEachPrintOnce) {
  FingerprintSet set;
  EXPECT_TRUE(set.Insert(CaselessFingerprintOf(u"a")));
  EXPECT_FALSE(set.Insert(CaselessFingerprintOf(u"A")));
  EXPECT_EQ(set.Size(), 1u);
}

TEST(FingerprintSet, PrintsThatBelongInOnePlaceAreToldApart) {
  FingerprintSet set;
  for (std::uint32_t i = 0; i < 60; ++i) ASSERT_TRUE(set.Insert({7, i}));
  for (std::uint32_t i = 0; i < 60; ++i) ASSERT_TRUE(set.Has({7, i}));
  EXPECT_FALSE(set.Has({7, 60}));
}

TEST(FingerprintSet, HoldsNothingAfterClearing) {
  FingerprintSet set;
  set.Insert(Fingerprint());
  set.Clear();
  EXPECT_EQ(set.Size(), 0u);
  EXPECT_FALSE(set.Has(Fingerprint()));
  EXPECT_TRUE(set.Insert(Fingerprint()));
}

}  // namespace
}  // namespace norvo
