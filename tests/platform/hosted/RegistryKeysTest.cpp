#include "platform/hosted/RegistryKeys.h"

#include <gtest/gtest.h>

#include "text/Number.h"

namespace norvo {
namespace {

TEST(RegistryKeys, AHiveIsThereFromTheBeginning) {
  const RegistryKeys keys;
  EXPECT_TRUE(keys.Find(Hive::CurrentUser, u""));
  EXPECT_TRUE(keys.Find(Hive::LocalMachine, u""));
  EXPECT_NE(keys.Find(Hive::LocalMachine, u""), keys.Find(Hive::ClassesRoot, u""));
  EXPECT_FALSE(keys.Find(Hive::CurrentUser, u"Software"));
}

TEST(RegistryKeys, KeysAboveExistWithAKeyAndCaseDoesNotMatter) {
  RegistryKeys keys;
  const std::size_t added = keys.AddViewed(Hive::CurrentUser, u"Software\\Norvo\\Debug");
  EXPECT_EQ(keys.Find(Hive::CurrentUser, u"SOFTWARE\\norvo\\debug"), added);
  EXPECT_TRUE(keys.Find(Hive::CurrentUser, u"software\\NORVO"));
  EXPECT_TRUE(keys.Find(Hive::CurrentUser, u"software"));
  EXPECT_FALSE(keys.Find(Hive::CurrentUser, u"Norvo"));
  EXPECT_FALSE(keys.Find(Hive::CurrentUser, u"Software\\Norvo\\Debug\\More"));
  EXPECT_FALSE(keys.Find(Hive::LocalMachine, u"Software\\Norvo\\Debug"));
  EXPECT_EQ(keys.AddViewed(Hive::CurrentUser, u"SOFTWARE\\Norvo\\DEBUG"), added);
}

TEST(RegistryKeys, OneNameMayStandBelowSeveralKeys) {
  RegistryKeys keys;
  const std::size_t one = keys.AddViewed(Hive::CurrentUser, u"A\\X");
  const std::size_t two = keys.AddViewed(Hive::CurrentUser, u"B\\X");
  EXPECT_NE(one, two);
  EXPECT_EQ(keys.Find(Hive::CurrentUser, u"B\\x"), two);
}

TEST(RegistryKeys, NamesThatAreCopiedOutliveTheirText) {
  RegistryKeys keys;
  std::size_t added = 0;
  {
    const String path(u"Software\\A name that is too long for a short text");
    added = keys.AddCopied(Hive::CurrentUser, path);
  }
  EXPECT_EQ(keys.Find(Hive::CurrentUser, u"Software\\A name that is too long for a short text"),
            added);
}

TEST(RegistryKeys, ManyKeysAreAllFound) {
  RegistryKeys keys;
  constexpr std::int32_t kMany = 20000;
  for (std::int32_t i = 0; i < kMany; ++i) {
    keys.AddCopied(Hive::LocalMachine, u"Software\\Classes\\K" + FormatInteger(i));
  }
  EXPECT_EQ(keys.Count(), std::size_t{3 + 2 + kMany});
  for (std::int32_t i = 0; i < kMany; ++i) {
    ASSERT_TRUE(keys.Find(Hive::LocalMachine, u"software\\classes\\k" + FormatInteger(i))) << i;
  }
  EXPECT_FALSE(keys.Find(Hive::LocalMachine, u"Software\\Classes\\K" + FormatInteger(kMany)));
}

}  // namespace
}  // namespace norvo
