#include <gtest/gtest.h>

#include <set>
#include <utility>

#include "support/TextPrinting.h"
#include "text/FingerprintIndex.h"
#include "text/Number.h"

namespace norvo {
namespace {

TEST(Fingerprint, HasThePublishedValuesOfTexts) {
  const std::pair<StringView, const char*> rows[] = {
      {u"", "243f6a8885a308d313198a2e03707344"},
      {u"a", "92bbcb00c009ee9a3299a54e460ad31c"},
      {u"A", "cbcc93d0d6ba6bfa5579ce41fc2a0db3"},
      {u"abc", "dbf182519591dad70004359db9c4f213"},
      {u"C:\\Music\\Ärzte.mp3", "045b4c14471d2a4e04d018a4b412a7d1"},
      {u"\U0001F3B5", "01effc107eb3e3c6c2a65753c097a2e1"},
  };
  for (const auto& [text, print] : rows) {
    EXPECT_EQ(TextOf(Fingerprint().AddExact(text)), print) << Utf8(text);
  }
  EXPECT_EQ(TextOf(Fingerprint().Add(u"a")), "cbcc93d0d6ba6bfa5579ce41fc2a0db3");
  EXPECT_EQ(TextOf(Fingerprint().AddExact(u"a").Separate().AddExact(u"b")),
            "2a8f2f01d37281c001eb28478157ea00");
}

TEST(Fingerprint, HasThePublishedValuesOfBytes) {
  EXPECT_EQ(TextOf(Fingerprint().AddBytes("abc")), "dbf182519591dad70004359db9c4f213");
  EXPECT_EQ(TextOf(Fingerprint().AddBytes("\x7F\x80\xFF")), "b0eb2267e1e9e62f8ec42b3237c4a1d4");
}

TEST(Fingerprint, TellsFieldsApartThatAreOneText) {
  const Fingerprint whole = Fingerprint().Add(u"ab").Separate().Add(u"c");
  EXPECT_NE(whole, Fingerprint().Add(u"a").Separate().Add(u"bc"));
  EXPECT_NE(whole, Fingerprint().Add(u"abc").Separate());
  EXPECT_NE(whole, Fingerprint().Add(u"abc"));
  EXPECT_EQ(whole, Fingerprint().Add(u"AB").Separate().Add(u"C"));
}

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
