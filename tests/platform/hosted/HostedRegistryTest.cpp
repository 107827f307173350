#include "support/TestMachine.h"

namespace norvo {
namespace {

constexpr char kHeader[] = "Windows Registry Editor Version 5.00\r\n\r\n";

class HostedRegistryTest : public TestMachine {
 protected:
  void Registry(const std::string& bytes) {
    Put(Disk("registry.reg"), bytes);
    Restart();
  }
  std::string File() { return Get(Disk("registry.reg")); }

  std::string Show(Hive hive, StringView key, StringView name) {
    const std::optional<RegistryValue> value = Machine().Registry().Read(hive, key, name);
    if (!value) return "(none)";
    if (const auto* const text = std::get_if<String>(&*value)) return "text " + ToUtf8(*text);
    if (const auto* const number = std::get_if<std::int32_t>(&*value)) {
      return "number " + std::to_string(*number);
    }
    return "double " + std::to_string(std::get<double>(*value));
  }
  std::string User(StringView name) { return Show(Hive::CurrentUser, u"K", name); }
  bool Write(StringView name, const RegistryValue& value) {
    return Machine().Registry().Write(Hive::CurrentUser, u"K", name, value);
  }
};

TEST_F(HostedRegistryTest, ReadsEachTypeOfValue) {
  Registry(std::string(kHeader) +
           "[HKEY_CURRENT_USER\\K]\r\n@=\"default\"\r\n\"Path\"=\"C:\\\\a \\\"b\\\"\"\r\n"
           "\"Na\\\\me\"=\"x\"\r\n\"Number\"=dword:0000002a\r\n\"Minus\"=DWORD:FFFFFFFE\r\n"
           "\"Double\"=hex:00,00,00,00,00,00,f8,3f\r\n"
           "\"Split\"=hex:00,00,\\\r\n  00,00,00,00,\\\r\n  f8,3f\r\n\"Empty\"=\"\"\r\n");
  EXPECT_EQ(User(u""), "text default");
  EXPECT_EQ(User(u"PATH"), "text C:\\a \"b\"");
  EXPECT_EQ(User(u"na\\me"), "text x");
  EXPECT_EQ(User(u"number"), "number 42");
  EXPECT_EQ(User(u"Minus"), "number -2");
  EXPECT_EQ(User(u"Double"), "double 1.500000");
  EXPECT_EQ(User(u"Split"), "double 1.500000");
  EXPECT_EQ(User(u"Empty"), "text ");
  EXPECT_EQ(User(u"Missing"), "(none)");
}

TEST_F(HostedRegistryTest, OtherTypesAndBrokenValuesReadAsNothing) {
  Registry(std::string(kHeader) +
           "[HKCU\\K]\r\n\"Expand\"=hex(2):25,00,00,00\r\n\"Short\"=hex:01,02\r\n"
           "\"Long\"=hex:01,02,03,04,05,06,07,08,09\r\n\"Gone\"=-\r\n\"Bad\"=dword:xyz\r\n"
           "\"Wide\"=dword:123456789\r\n\"Open\"=\"no end\r\n\"Next\"=\"n\"\r\n\"NoValue\"\r\n"
           "\"None\"=dword:\r\n");
  for (const StringView name :
       {u"Expand", u"Short", u"Long", u"Gone", u"Bad", u"Wide", u"Open", u"NoValue", u"None"}) {
    EXPECT_EQ(User(name), "(none)") << ToUtf8(name);
  }
  EXPECT_EQ(User(u"Next"), "text n");
}

TEST_F(HostedRegistryTest, ATextWhereANumberIsWantedIsNothing) {
  Registry(std::string(kHeader) + "[HKCU\\K]\r\n\"Text\"=\"1\"\r\n\"Number\"=dword:1\r\n");
  RegistryKey key(Machine().Registry());
  ASSERT_TRUE(key.Open(u"K"));
  std::int32_t number = 7;
  String text = u"as it was";
  EXPECT_FALSE(key.Read(u"Text", number));
  EXPECT_FALSE(key.Read(u"Number", text));
  EXPECT_EQ(number, 7);
  EXPECT_EQ(text, u"as it was");
}

TEST_F(HostedRegistryTest, KeysExistWithThoseBelowThem) {
  Registry(std::string(kHeader) +
           "[HKLM\\Software\\A\\B]\r\n\r\n[-HKLM\\Deleted]\r\n\"x\"=\"y\"\r\n");
  norvo::Registry& registry = Machine().Registry();
  EXPECT_TRUE(registry.KeyExists(Hive::LocalMachine, u"SOFTWARE"));
  EXPECT_TRUE(registry.KeyExists(Hive::LocalMachine, u"software\\a\\"));
  EXPECT_TRUE(registry.KeyExists(Hive::LocalMachine, u"Software\\A\\b"));
  EXPECT_FALSE(registry.KeyExists(Hive::LocalMachine, u"Software\\A\\B\\C"));
  EXPECT_FALSE(registry.KeyExists(Hive::LocalMachine, u"Soft"));
  EXPECT_FALSE(registry.KeyExists(Hive::CurrentUser, u"Software"));
  EXPECT_FALSE(registry.KeyExists(Hive::LocalMachine, u"Deleted"));
}

TEST_F(HostedRegistryTest, TheClassesRootFallsBackToTheMachinesClasses) {
  Registry(std::string(kHeader) +
           "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Classes\\.m3u]\r\n@=\"machine\"\r\n\"Only\"=\"m\"\r\n"
           "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Classes\\.pls]\r\n@=\"pls\"\r\n"
           "[HKEY_CLASSES_ROOT\\.m3u]\r\n@=\"root\"\r\n");
  EXPECT_EQ(Show(Hive::ClassesRoot, u".M3U", u""), "text root");
  EXPECT_EQ(Show(Hive::ClassesRoot, u".m3u", u"only"), "text m");
  EXPECT_EQ(Show(Hive::ClassesRoot, u".pls", u""), "text pls");
  EXPECT_TRUE(Machine().Registry().KeyExists(Hive::ClassesRoot, u".pls"));
  EXPECT_FALSE(Machine().Registry().KeyExists(Hive::ClassesRoot, u".asx"));
}

TEST_F(HostedRegistryTest, SeveralSectionsAreOneKeyAndTheLastValueHolds) {
  Registry(std::string(kHeader) +
           "[HKCU\\K]\r\n\"a\"=\"1\"\r\n\"b\"=\"1\"\r\n[HKCU\\Z]\r\n"
           "[hkey_current_user\\k\\]\r\n\"A\"=\"2\"\r\n");
  EXPECT_EQ(User(u"a"), "text 2");
  EXPECT_EQ(User(u"b"), "text 1");
  ASSERT_TRUE(Write(u"a", String(u"3")));
  Restart();
  EXPECT_EQ(User(u"A"), "text 3");
}

TEST_F(HostedRegistryTest, ARewriteChangesNothingButTheValue) {
  const std::string before = std::string(kHeader) + "; a comment\r\n[HKCU\\K]\r\n\"a\"=\"1\"\r\n";
  const std::string after =
      "\"e\"=hex(2):25,00,\\\r\n  41,00\r\n\"m\"=hex(7):00,\\\r\n  "
      "00\r\n\"lines\"=\"one\r\n[HKCU\\No]\r\n"
      "two\"\r\nnobody knows "
      "this\r\n\r\n[-HKCU\\Old]\r\n\"x\"=-\r\n\r\n[HKEY_USERS\\S-1]\r\n\"u\"=\"u\"";
  Registry(before + "\"v\"=dword:00000001\r\n" + after);
  EXPECT_EQ(User(u"lines"), "text one\r\n[HKCU\\No]\r\ntwo");
  EXPECT_FALSE(Machine().Registry().KeyExists(Hive::CurrentUser, u"No"));
  ASSERT_TRUE(Write(u"V", 2));
  EXPECT_EQ(File(), before + "\"V\"=dword:00000002\r\n" + after);
}

TEST_F(HostedRegistryTest, ANewValueGoesToTheEndOfItsKey) {
  Registry(std::string(kHeader) + "[HKCU\\K]\n\"a\"=\"1\"\n\n[HKCU\\Z]\n\"z\"=\"1\"");
  ASSERT_TRUE(Write(u"b", String(u"C:\\\"x\"")));
  ASSERT_TRUE(Machine().Registry().Write(Hive::CurrentUser, u"Z\\", u"", 1.5));
  EXPECT_EQ(File(), std::string(kHeader) +
                        "[HKCU\\K]\n\"a\"=\"1\"\n\"b\"=\"C:\\\\\\\"x\\\"\"\r\n\n[HKCU\\Z]\n"
                        "\"z\"=\"1\"\r\n@=hex:00,00,00,00,00,00,f8,3f\r\n");
}

TEST_F(HostedRegistryTest, WhatIsWrittenIsReadBack) {
  ASSERT_TRUE(Machine().Registry().CreateKey(Hive::CurrentUser, u"K"));
  const String odd = u"\\\"[x]\r\n[HKCU\\Y]\n\x4E2D \xD83D\xDE00;";
  ASSERT_TRUE(Write(u"", String(u"default")));
  ASSERT_TRUE(Write(u"o\"d\\d", odd));
  ASSERT_TRUE(Write(u"min", std::int32_t{-2147483647 - 1}));
  ASSERT_TRUE(Write(u"double", -0.1));
  Restart();
  EXPECT_EQ(User(u""), "text default");
  EXPECT_EQ(User(u"O\"D\\D"), "text " + ToUtf8(odd));
  EXPECT_EQ(User(u"min"), "number -2147483648");
  EXPECT_EQ(User(u"double"), "double -0.100000");
  EXPECT_FALSE(Machine().Registry().KeyExists(Hive::CurrentUser, u"Y"));
}

TEST_F(HostedRegistryTest, AMissingFileIsAnEmptyRegistryAndIsCreatedByTheFirstKey) {
  EXPECT_FALSE(Machine().Registry().KeyExists(Hive::CurrentUser, u"K"));
  EXPECT_FALSE(Write(u"a", 1)) << "writing creates no key";
  EXPECT_FALSE(std::filesystem::exists(Disk("registry.reg")));
  ASSERT_TRUE(Machine().Registry().CreateKey(Hive::CurrentUser, u"K\\Sub"));
  EXPECT_EQ(File().substr(0, 4), std::string("\xFF\xFEW\0", 4));
  EXPECT_EQ(ToUtf8(DecodeFile(File(), Windows1252())),
            std::string(kHeader) + "[HKEY_CURRENT_USER\\K\\Sub]\r\n\r\n");
  EXPECT_TRUE(Write(u"a", 1)) << "the key above exists too";
  Restart();
  EXPECT_EQ(User(u"a"), "number 1");
}

TEST_F(HostedRegistryTest, AMissingFolderIsMadeByTheFirstKey) {
  HostedLayout layout;
  layout.registryFile = Disk("folder/registry.reg");
  HostedPlatform machine(std::move(layout));
  EXPECT_FALSE(machine.Registry().KeyExists(Hive::CurrentUser, u"K"));
  EXPECT_FALSE(std::filesystem::exists(Disk("folder")));
  EXPECT_TRUE(machine.Registry().CreateKey(Hive::CurrentUser, u"K"));
  EXPECT_NE(Get(Disk("folder/registry.reg")), "");
}

TEST_F(HostedRegistryTest, TheEncodingIsKept) {
  const String text = u"Windows Registry Editor Version 5.00\r\n\r\n[HKCU\\K]\r\n\"ä\"=\"ö\"\r\n";
  const String changed = text + u"\"n\"=dword:00000001\r\n";
  const FileEncoding encodings[] = {FileEncoding::Utf8, FileEncoding::Utf16LittleEndian,
                                    FileEncoding::Utf16BigEndian, FileEncoding::CodePage};
  for (const FileEncoding encoding : encodings) {
    Registry(EncodeFile(text, encoding, Windows1252()));
    EXPECT_EQ(User(u"Ä"), "text ö");
    ASSERT_TRUE(Write(u"n", 1));
    EXPECT_EQ(File(), EncodeFile(changed, encoding, Windows1252()));
  }
  Registry(ToUtf8(text));
  ASSERT_TRUE(Write(u"n", 1));
  EXPECT_EQ(File(), ToUtf8(changed)) << "UTF-8 without a mark stays without one";
}

TEST_F(HostedRegistryTest, TheOldFormIsEightBitText) {
  Registry("REGEDIT4\r\n\r\n[HKCU\\K]\r\n\"a\"=\"\xC3\xA4\"\r\n");
  EXPECT_EQ(User(u"a"), "text Ã¤");
  ASSERT_TRUE(Write(u"a", String(u"ä")));
  EXPECT_EQ(File(), "REGEDIT4\r\n\r\n[HKCU\\K]\r\n\"a\"=\"\xE4\"\r\n");
  ASSERT_TRUE(Write(u"a", String(u"\x4E2D"))) << "no byte stands for it";
  EXPECT_EQ(ToUtf8(DecodeFile(File(), Windows1252())),
            std::string(kHeader) + "[HKCU\\K]\r\n\"a\"=\"\u4E2D\"\r\n");
}

TEST_F(HostedRegistryTest, AFileThatIsNoRegistryIsLeftAlone) {
  Registry("hello\r\n[HKCU\\K]\r\n\"a\"=\"1\"\r\n");
  EXPECT_EQ(User(u"a"), "(none)");
  EXPECT_FALSE(Machine().Registry().CreateKey(Hive::CurrentUser, u"New"));
  EXPECT_EQ(File(), "hello\r\n[HKCU\\K]\r\n\"a\"=\"1\"\r\n");
  EXPECT_FALSE(warnings_.empty());
}

TEST_F(HostedRegistryTest, NamesThatTheFormCannotHoldAreRefused) {
  ASSERT_TRUE(Machine().Registry().CreateKey(Hive::CurrentUser, u"K"));
  const std::string before = File();
  EXPECT_FALSE(Write(u"a\nb", 1));
  EXPECT_FALSE(Machine().Registry().CreateKey(Hive::CurrentUser, u"a\r\n[HKCU\\b"));
  EXPECT_FALSE(Machine().Registry().CreateKey(Hive::CurrentUser, u"a\\\\b"));
  EXPECT_EQ(File(), before);
}

String Levels(int count) {
  String key = u"a";
  for (int i = 1; i < count; ++i) key += u"\\a";
  return key;
}

TEST_F(HostedRegistryTest, AKeyLiesAtMost512LevelsDeep) {
  const std::string deepest = ToUtf8(Levels(512));
  const std::string text = std::string(kHeader) + "[HKCU\\" + deepest + "\\]\r\n\"d\"=\"512\"\r\n" +
                           "[HKLM\\" + deepest + "\\b]\r\n\"d\"=\"513\"\r\n[HKCU\\K]\r\n";
  Registry(text);
  EXPECT_EQ(Show(Hive::CurrentUser, Levels(512), u"d"), "text 512");
  EXPECT_TRUE(Machine().Registry().KeyExists(Hive::CurrentUser, Levels(511)));
  EXPECT_EQ(Show(Hive::LocalMachine, Levels(512) + u"\\b", u"d"), "(none)");
  EXPECT_FALSE(Machine().Registry().KeyExists(Hive::LocalMachine, u"a"));
  EXPECT_FALSE(Machine().Registry().CreateKey(Hive::LocalMachine, Levels(513)));
  ASSERT_TRUE(Write(u"n", 1));
  EXPECT_EQ(File(), text + "\"n\"=dword:00000001\r\n") << "what is no key comes out as well";
  EXPECT_TRUE(Machine().Registry().CreateKey(Hive::LocalMachine, Levels(512)));
  EXPECT_TRUE(Machine().Registry().KeyExists(Hive::LocalMachine, Levels(512)));
}

TEST_F(HostedRegistryTest, AKeysNameHasAtMost255Characters) {
  const String most(255, u'n');
  const String more(256, u'n');
  const std::string text = std::string(kHeader) + "[HKCU\\K\\" + ToUtf8(most) +
                           "]\r\n\"d\"=\"255\"\r\n[HKCU\\" + ToUtf8(more) +
                           "\\K]\r\n\"d\"=\"256\"\r\n[HKCU\\K]\r\n";
  Registry(text);
  EXPECT_EQ(Show(Hive::CurrentUser, u"K\\" + most, u"d"), "text 255");
  EXPECT_EQ(Show(Hive::CurrentUser, more + u"\\K", u"d"), "(none)");
  EXPECT_FALSE(Machine().Registry().KeyExists(Hive::CurrentUser, more));
  EXPECT_FALSE(Machine().Registry().CreateKey(Hive::CurrentUser, u"K\\" + more));
  ASSERT_TRUE(Write(u"n", 1));
  EXPECT_EQ(File(), text + "\"n\"=dword:00000001\r\n") << "what is no key comes out as well";
  EXPECT_TRUE(Machine().Registry().CreateKey(Hive::LocalMachine, most));
}

TEST_F(HostedRegistryTest, AFileThatIsTooLargeRaisesOutOfMemoryAndIsLeftAlone) {
  Registry(std::string(kHeader) + "[HKCU\\K]\r\n");
  EXPECT_EQ(User(u"a"), "(none)");
  constexpr std::uintmax_t kMore = std::uintmax_t{512} * 1024 * 1024 + 1;
  std::filesystem::resize_file(Disk("registry.reg"), kMore);  // takes no room on the disk
  EXPECT_EQ(NumberRaisedBy([&] { Write(u"a", 1); }), 7);
  EXPECT_EQ(NumberRaisedBy([&] { Write(u"a", 1); }), 7)
      << "what was read before is not written over it";
  EXPECT_EQ(NumberRaisedBy([&] { User(u"a"); }), 7);
  EXPECT_EQ(std::filesystem::file_size(Disk("registry.reg")), kMore);
}

TEST_F(HostedRegistryTest, WhatSomebodyElseWroteMeanwhileIsNotLost) {
  Registry(std::string(kHeader) + "[HKCU\\K]\r\n");
  EXPECT_EQ(User(u"other"), "(none)");
  Put(Disk("registry.reg"), std::string(kHeader) + "[HKCU\\K]\r\n\"other\"=\"o\"\r\n");
  ASSERT_TRUE(Write(u"own", 1));
  Restart();
  EXPECT_EQ(User(u"other"), "text o");
  EXPECT_EQ(User(u"own"), "number 1");
}

TEST_F(HostedRegistryTest, AFailedWriteChangesNothing) {
  Registry(std::string(kHeader) + "[HKCU\\K]\r\n\"a\"=\"1\"\r\n");
  EXPECT_EQ(User(u"a"), "text 1");
  std::filesystem::remove(Disk("registry.reg"));
  std::filesystem::create_directory(Disk("registry.reg"));
  EXPECT_FALSE(Write(u"a", String(u"2")));
  EXPECT_TRUE(std::filesystem::is_directory(Disk("registry.reg")));
}

TEST_F(HostedRegistryTest, TruncationsOfAFileAreReadWithoutHarm) {
  const std::string whole = std::string(kHeader) +
                            "[HKCU\\K]\r\n\"a\"=\"x\\\\y\"\r\n@=hex:00,\\\r\n  01\r\n\"b\"=dword:1";
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    Registry(whole.substr(0, length));
    const bool there = Machine().Registry().KeyExists(Hive::CurrentUser, u"K");
    EXPECT_EQ(there, length >= std::string(kHeader).size() + 8) << length;
    if (there) {
      EXPECT_TRUE(Write(u"n", 1)) << length;
      Restart();
      EXPECT_EQ(User(u"n"), "number 1") << length;
    }
  }
}

TEST_F(HostedRegistryTest, AFolderThatBecomesALinkIsNotWrittenInto) {
  NEEDS_LINKS();
  MakeFolderLink(Disk(""), Outside("alias"));
  std::filesystem::create_directories(Outside("away"));
  HostedLayout layout;
  layout.registryFile = Outside("alias/C/Norvo/registry.reg");
  HostedPlatform machine(layout);
  EXPECT_TRUE(machine.Registry().CreateKey(Hive::CurrentUser, u"One")) << "a link was there before";
  EXPECT_TRUE(std::filesystem::exists(Disk("C/Norvo/registry.reg")));
  std::filesystem::remove_all(Disk("C/Norvo"));
  MakeFolderLink(Outside("away"), Disk("C/Norvo"));
  EXPECT_FALSE(machine.Registry().CreateKey(Hive::CurrentUser, u"Two"));
  EXPECT_TRUE(std::filesystem::is_empty(Outside("away")));
}

}  // namespace
}  // namespace norvo
