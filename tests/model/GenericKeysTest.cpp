#include "model/GenericKeys.h"

#include <set>

#include "model/AsxEntry.h"
#include "model/ModelTest.h"
#include "text/Number.h"

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
    const EntryKey key{u"Key", u"Property", nullptr, nullptr, row.use};
    EXPECT_EQ(key.IsWritten(true), row.writtenForAsx);
    EXPECT_EQ(key.IsWritten(false), row.written);
    EXPECT_EQ(key.IsRead(true), row.readForAsx);
    EXPECT_EQ(key.IsRead(false), row.read);
  }
}

class OwnValuesTest : public LibraryTest {
 protected:
  /// What both ways give of an entry whose properties all have a value.
  void ExpectSame(StringView className, bool forAsx) {
    const ObjectRef object = component.Create(className);
    auto& entry = dynamic_cast<FormatEntry&>(*object);
    std::int32_t number = 0;
    for (const EntryKey& row : EntryKeys()) {
      const Member* const member = entry.Members()->Find(row.property);
      if (member != nullptr && member->let != nullptr) entry.Let(row.property, ++number);
    }
    for (const EntryKey& row : EntryKeys()) {
      if (!row.IsWritten(forAsx)) continue;
      String text = u"behind ";
      row.append(entry, text);
      EXPECT_TEXT(text, u"behind " + ToText(entry.Get(row.property))) << Utf8(row.key);
    }
  }
};

TEST_F(OwnValuesTest, AreThoseOfThePropertiesByName) {
  ExpectSame(u"AsxEntry", true);
  ExpectSame(u"M3UEntry", false);
  ExpectSame(u"PlsEntry", false);
}

class OwnSettingTest : public LibraryTest {
 protected:
  using Texts = std::vector<String>;

  /// The values of all readable properties of a new entry, or the error, once a text was set.
  template <class Set>
  std::vector<String> ValuesAfter(StringView className, Set set) {
    const ObjectRef entry = component.Create(className);
    std::vector<String> values;
    values.push_back(FormatInteger(NumberRaisedBy([&] { set(*entry); })));
    for (const EntryKey& row : EntryKeys()) {
      const bool isThere = entry->Members()->Find(row.property) != nullptr;
      if (isThere) values.push_back(ToText(entry->Get(row.property)));
    }
    return values;
  }

  void ExpectSame(StringView className, bool forAsx) {
    for (const EntryKey& row : EntryKeys()) {
      if (!row.IsRead(forAsx)) continue;
      for (const String& text :
           Texts{u"", u"3", u" true ", u"-40000", u"99999999999", u"a.m3u", u"C:\\a"}) {
        const auto byName = [&](AutomationObject& entry) { entry.Let(row.property, text); };
        const auto byRow = [&](AutomationObject& entry) {
          row.set(dynamic_cast<FormatEntry&>(entry), text);
        };
        EXPECT_EQ(ValuesAfter(className, byRow), ValuesAfter(className, byName))
            << Utf8(row.key) << " = " << Utf8(text);
      }
    }
  }
};

TEST_F(OwnSettingTest, DoesWhatSettingByNameDoes) {
  ExpectSame(u"AsxEntry", true);
  ExpectSame(u"M3UEntry", false);
  ExpectSame(u"PlsEntry", false);
}

TEST(GenericKeysTest, TheLastKeyIsWrittenForAllEntries) {
  EXPECT_TRUE(EntryKeys().back().IsWritten(true));
  EXPECT_TRUE(EntryKeys().back().IsWritten(false));
}

}  // namespace
}  // namespace norvo
