#include "services/Registry.h"

#include "support/LibraryTest.h"

namespace norvo {
namespace {

class RegistryTest : public LibraryTest {
 protected:
  RegistryKey key{platform->Registry()};
  String text = u"before";
  std::int32_t number = -1;
};

TEST_F(RegistryTest, APlainOpenLooksAtTheUserBeforeTheMachine) {
  platform->SetRegistry(Hive::LocalMachine, u"Software\\X", u"v", String(u"machine"));
  ASSERT_TRUE(key.Open(u"software\\x"));
  EXPECT_TRUE(key.Read(u"V", text));
  EXPECT_TEXT(text, u"machine");
  platform->SetRegistry(Hive::CurrentUser, u"Software\\X", u"v", String(u"user"));
  ASSERT_TRUE(key.Open(u"Software\\X\\"));
  EXPECT_TRUE(key.Read(u"v", text));
  EXPECT_TEXT(text, u"user");
}

TEST_F(RegistryTest, AnEmptyKeyOfTheUserHidesTheMachines) {
  platform->SetRegistry(Hive::LocalMachine, u"Software\\X", u"v", String(u"machine"));
  platform->Registry().AddKey(Hive::CurrentUser, u"Software\\X");
  ASSERT_TRUE(key.Open(u"Software\\X"));
  EXPECT_FALSE(key.Read(u"v", text));
  EXPECT_TEXT(text, u"before");
}

TEST_F(RegistryTest, AnOpenInOneHiveLooksNowhereElse) {
  platform->SetRegistry(Hive::ClassesRoot, u"X", u"", String(u"default"));
  EXPECT_FALSE(key.OpenIn(Hive::LocalMachine, u"X"));
  EXPECT_FALSE(key.OpenIn(Hive::CurrentUser, u"X"));
  ASSERT_TRUE(key.OpenIn(Hive::ClassesRoot, u"X"));
  EXPECT_TRUE(key.Read(u"", text));
  EXPECT_TEXT(text, u"default");
}

TEST_F(RegistryTest, ATextIsReadInOneStepAndEmptyWhenThereIsNone) {
  Registry& registry = platform->Registry();
  EXPECT_TEXT(ReadText(registry, u"X", u"v"), u"");
  platform->SetRegistry(Hive::ClassesRoot, u"X", u"v", String(u"class"));
  platform->SetRegistry(Hive::LocalMachine, u"X", u"v", String(u"machine"));
  platform->SetRegistry(Hive::LocalMachine, u"X", u"number", std::int32_t{7});
  EXPECT_TEXT(ReadText(registry, u"X", u"v"), u"machine");
  EXPECT_TEXT(ReadText(registry, u"X", u"number"), u"");
  EXPECT_TEXT(ReadTextIn(registry, Hive::ClassesRoot, u"X", u"v"), u"class");
  EXPECT_TEXT(ReadTextIn(registry, Hive::CurrentUser, u"X", u"v"), u"");
  platform->SetRegistry(Hive::CurrentUser, u"X", u"v", String(u"user"));
  EXPECT_TEXT(ReadText(registry, u"X", u"v"), u"user");
}

TEST_F(RegistryTest, OpeningNeverCreatesAKey) {
  EXPECT_FALSE(key.Open(u"Software\\X"));
  EXPECT_FALSE(key.OpenIn(Hive::CurrentUser, u"Software\\X"));
  EXPECT_FALSE(platform->Registry().HasKey(Hive::CurrentUser, u"Software\\X"));
  EXPECT_EQ(platform->Calls(u"Registry.CreateKey"), 0u);
}

TEST_F(RegistryTest, AKeyThatIsNotOpenReadsAndWritesNothing) {
  EXPECT_FALSE(key.Read(u"v", text));
  EXPECT_FALSE(key.Read(u"v", number));
  EXPECT_FALSE(key.Write(u"v", std::int32_t{1}));
  EXPECT_EQ(platform->Log().Total(), 0u);
}

TEST_F(RegistryTest, AnOpenThatFailsClosesTheKeyBefore) {
  platform->SetRegistry(Hive::CurrentUser, u"X", u"v", std::int32_t{5});
  ASSERT_TRUE(key.Open(u"X"));
  EXPECT_FALSE(key.Open(u"Y"));
  EXPECT_FALSE(key.Read(u"v", number));
  EXPECT_FALSE(key.Write(u"v", std::int32_t{6}));
}

TEST_F(RegistryTest, AValueOfAnotherTypeIsMissing) {
  platform->SetRegistry(Hive::CurrentUser, u"X", u"text", String(u"7"));
  platform->SetRegistry(Hive::CurrentUser, u"X", u"number", std::int32_t{7});
  platform->SetRegistry(Hive::CurrentUser, u"X", u"double", 7.5);
  ASSERT_TRUE(key.Open(u"X"));
  EXPECT_FALSE(key.Read(u"text", number));
  EXPECT_FALSE(key.Read(u"double", number));
  EXPECT_FALSE(key.Read(u"number", text));
  EXPECT_FALSE(key.Read(u"double", text));
  EXPECT_FALSE(key.Read(u"none", number));
  EXPECT_EQ(number, -1);
  EXPECT_TEXT(text, u"before");
}

TEST_F(RegistryTest, ValuesOfEveryTypeAreWrittenIntoTheOpenedHive) {
  platform->Registry().AddKey(Hive::LocalMachine, u"X");
  ASSERT_TRUE(key.Open(u"X"));
  EXPECT_TRUE(key.Write(u"text", String(u"ä")));
  EXPECT_TRUE(key.Write(u"number", std::int32_t{-5}));
  EXPECT_TRUE(key.Write(u"double", 1.5));
  const MemoryRegistry& registry = platform->Registry();
  EXPECT_EQ(registry.ValueOf(Hive::LocalMachine, u"X", u"text"), RegistryValue(String(u"ä")));
  EXPECT_EQ(registry.ValueOf(Hive::LocalMachine, u"X", u"number"), RegistryValue(-5));
  EXPECT_EQ(registry.ValueOf(Hive::LocalMachine, u"X", u"double"), RegistryValue(1.5));
  platform->Registry().RefuseWrites();
  EXPECT_FALSE(key.Write(u"number", std::int32_t{6}));
}

}  // namespace
}  // namespace norvo
