#include "model/GenericKeys.h"

#include <set>

#include "model/AsxEntry.h"
#include "model/ModelTest.h"

namespace norvo {
namespace {

TEST(GenericKeysTest, EachKeyIsThereOnceAndStandsForAPropertyThatEntriesHave) {
  std::set<StringView> keys;
  for (const EntryKey& row : EntryKeys()) {
    EXPECT_TRUE(keys.insert(row.key).second) << Utf8(row.key);
    EXPECT_NE(AsxEntry::Interface().Find(row.property), nullptr) << Utf8(row.key);
    if (!row.IsWritten(false) && !row.IsRead(false)) continue;
    EXPECT_NE(M3UEntry::Interface().Find(row.property), nullptr) << Utf8(row.key);
  }
}

TEST(GenericKeysTest, TheUseOfAKeySaysForWhichEntriesItIsWrittenAndRead) {
  const struct {
    KeyUse use;
    bool writtenForAsx, written, readForAsx, read;
  } rows[] = {{KeyUse::Always, true, true, true, true},
              {KeyUse::AsxEntries, true, false, true, false},
              {KeyUse::WrittenForAsxOnly, true, false, true, true},
              {KeyUse::NeverRead, true, true, false, false}};
  for (const auto& row : rows) {
    const EntryKey key{u"Key", u"Property", row.use};
    EXPECT_EQ(key.IsWritten(true), row.writtenForAsx);
    EXPECT_EQ(key.IsWritten(false), row.written);
    EXPECT_EQ(key.IsRead(true), row.readForAsx);
    EXPECT_EQ(key.IsRead(false), row.read);
  }
}

TEST(GenericKeysTest, TheLastKeyIsWrittenForAllEntries) {
  EXPECT_TRUE(EntryKeys().back().IsWritten(true));
  EXPECT_TRUE(EntryKeys().back().IsWritten(false));
}

}  // namespace
}  // namespace norvo
