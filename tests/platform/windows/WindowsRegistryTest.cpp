#include "platform/windows/WindowsRegistry.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <limits>

#include "platform/windows/UniqueHandle.h"
#include "platform/windows/WideText.h"
#include "support/TextPrinting.h"

namespace norvo {
namespace {

/// A key of the current user that is gone after the test.
class WindowsRegistryTest : public ::testing::Test {
 protected:
  WindowsRegistryTest() {
    ::RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Norvo\\Test");
    HKEY created = nullptr;
    ::RegCreateKeyExW(HKEY_CURRENT_USER, L"Software\\Norvo\\Test", 0, nullptr, 0, KEY_ALL_ACCESS,
                      nullptr, &created, nullptr);
    key_ = RegistryHandle(created);
  }
  ~WindowsRegistryTest() override {
    key_.Close();
    ::RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Norvo\\Test");
    // Goes only when no other product has put anything there.
    ::RegDeleteKeyW(HKEY_CURRENT_USER, L"Software\\Norvo");
  }

  void Put(const wchar_t* name, DWORD type, const std::string& bytes) {
    ASSERT_EQ(
        ::RegSetValueExW(key_.Get(), name, 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                         static_cast<DWORD>(bytes.size())),
        ERROR_SUCCESS);
  }
  /// Type and bytes of a value as they stand in the registry.
  std::pair<DWORD, std::string> Get(const wchar_t* name) {
    DWORD type = REG_NONE;
    BYTE bytes[100] = {};
    DWORD size = sizeof(bytes);
    ::RegQueryValueExW(key_.Get(), name, nullptr, &type, bytes, &size);
    return {type, std::string(bytes, bytes + size)};
  }
  static std::string Bytes(StringView text) {
    return {reinterpret_cast<const char*>(text.data()), text.size() * 2};
  }

  std::optional<RegistryValue> Read(StringView name) {
    return registry_.Read(Hive::CurrentUser, kKey, name);
  }
  bool Write(StringView name, const RegistryValue& value) {
    return registry_.Write(Hive::CurrentUser, kKey, name, value);
  }

  static constexpr StringView kKey = u"Software\\Norvo\\Test";
  WindowsRegistry registry_;
  RegistryHandle key_;
};

TEST_F(WindowsRegistryTest, KeysAreFoundInAnySpelling) {
  EXPECT_TRUE(registry_.KeyExists(Hive::CurrentUser, kKey));
  EXPECT_TRUE(registry_.KeyExists(Hive::CurrentUser, u"SOFTWARE\\norvo\\test\\"));
  EXPECT_TRUE(registry_.KeyExists(Hive::CurrentUser, u""));
  EXPECT_FALSE(registry_.KeyExists(Hive::CurrentUser, u"Software\\Norvo\\Test\\None"));
  EXPECT_FALSE(registry_.KeyExists(Hive::CurrentUser, StringView(u"Software\0\\x", 11)));
}

TEST_F(WindowsRegistryTest, EveryHiveIsItsOwn) {
  EXPECT_FALSE(registry_.KeyExists(Hive::LocalMachine, kKey));
  EXPECT_FALSE(registry_.KeyExists(Hive::ClassesRoot, kKey));
  constexpr StringView kOfMachine = u"Software\\Microsoft\\Windows\\CurrentVersion\\App Paths";
  EXPECT_TRUE(registry_.KeyExists(Hive::LocalMachine, kOfMachine));
  EXPECT_FALSE(registry_.KeyExists(Hive::ClassesRoot, kOfMachine));
  EXPECT_TRUE(registry_.KeyExists(Hive::ClassesRoot, u"CLSID"));
  EXPECT_FALSE(registry_.KeyExists(Hive::LocalMachine, u"CLSID"));
  EXPECT_FALSE(registry_.KeyExists(Hive::CurrentUser, u"CLSID"));
}

TEST_F(WindowsRegistryTest, ATextEndsAtItsNul) {
  Put(L"text", REG_SZ, Bytes(StringView(u"Größe 音\0rest\0", 13)));
  Put(L"open", REG_SZ, Bytes(u"no end"));
  Put(L"odd", REG_SZ, Bytes(u"odd") + "x");
  Put(L"empty", REG_SZ, "");
  EXPECT_EQ(Read(u"TEXT"), RegistryValue(String(u"Größe 音")));
  EXPECT_EQ(Read(u"open"), RegistryValue(String(u"no end")));
  EXPECT_EQ(Read(u"odd"), RegistryValue(String(u"odd")));
  EXPECT_EQ(Read(u"empty"), RegistryValue(String()));
}

TEST_F(WindowsRegistryTest, AnExpandableTextIsReadAsItStands) {
  Put(L"path", REG_EXPAND_SZ, Bytes(StringView(u"%SystemRoot%\\x\0", 15)));
  EXPECT_EQ(Read(u"path"), RegistryValue(String(u"%SystemRoot%\\x")));
}

TEST_F(WindowsRegistryTest, LongTextsAreReadWhole) {
  const String text(20000, u'x');
  Put(L"long", REG_SZ, Bytes(text + u'\0'));
  EXPECT_EQ(Read(u"long"), RegistryValue(text));
}

TEST_F(WindowsRegistryTest, NumbersAreReadBySize) {
  Put(L"number", REG_DWORD, std::string("\xFE\xFF\xFF\xFF", 4));
  Put(L"double", REG_BINARY, std::string("\0\0\0\0\0\0\xF8\x3F", 8));
  Put(L"short", REG_BINARY, std::string("\0\0\0\0", 4));
  Put(L"long", REG_BINARY, std::string(9, '\0'));
  EXPECT_EQ(Read(u"number"), RegistryValue(std::int32_t{-2}));
  EXPECT_EQ(Read(u"double"), RegistryValue(1.5));
  EXPECT_EQ(Read(u"short"), std::nullopt);
  EXPECT_EQ(Read(u"long"), std::nullopt);
}

TEST_F(WindowsRegistryTest, OtherTypesAndMissingValuesAreNothing) {
  Put(L"several", REG_MULTI_SZ, Bytes(StringView(u"a\0b\0\0", 5)));
  Put(L"large", REG_QWORD, std::string(8, '\1'));
  EXPECT_EQ(Read(u"several"), std::nullopt);
  EXPECT_EQ(Read(u"large"), std::nullopt);
  EXPECT_EQ(Read(u"none"), std::nullopt);
  EXPECT_EQ(Read(u""), std::nullopt);
  EXPECT_EQ(registry_.Read(Hive::CurrentUser, u"Software\\Norvo\\Test\\None", u"several"),
            std::nullopt);
  Put(L"a", REG_SZ, Bytes(u"x"));
  EXPECT_EQ(Read(StringView(u"a\0b", 3)), std::nullopt) << "not the value \"a\"";
}

TEST_F(WindowsRegistryTest, ValuesAreWrittenInTheirTypes) {
  EXPECT_TRUE(Write(u"text", String(u"ä")));
  EXPECT_TRUE(Write(u"cut", String(u"a\0b", 3)));
  EXPECT_TRUE(Write(u"number", std::numeric_limits<std::int32_t>::min()));
  EXPECT_TRUE(Write(u"double", 1.5));
  EXPECT_TRUE(Write(u"", String(u"default")));
  EXPECT_EQ(Get(L"text"), std::make_pair(DWORD{REG_SZ}, Bytes(StringView(u"ä\0", 2))));
  EXPECT_EQ(Get(L"cut"), std::make_pair(DWORD{REG_SZ}, Bytes(StringView(u"a\0", 2))));
  EXPECT_EQ(Get(L"number"), std::make_pair(DWORD{REG_DWORD}, std::string("\0\0\0\x80", 4)));
  EXPECT_EQ(Get(L"double"),
            std::make_pair(DWORD{REG_BINARY}, std::string("\0\0\0\0\0\0\xF8\x3F", 8)));
  EXPECT_EQ(Read(u""), RegistryValue(String(u"default")));
}

TEST_F(WindowsRegistryTest, OnlyAKeyThatExistsIsWrittenInto) {
  EXPECT_FALSE(
      registry_.Write(Hive::CurrentUser, u"Software\\Norvo\\Test\\New", u"a", std::int32_t{1}));
  EXPECT_FALSE(registry_.KeyExists(Hive::CurrentUser, u"Software\\Norvo\\Test\\New"));
  EXPECT_FALSE(Write(StringView(u"a\0b", 3), std::int32_t{1}));
  EXPECT_EQ(Read(u"a"), std::nullopt);
  EXPECT_TRUE(registry_.Write(Hive::CurrentUser, u"SOFTWARE\\NORVO\\TEST\\", u"a", 2.5));
  EXPECT_EQ(Read(u"a"), RegistryValue(2.5));
}

TEST_F(WindowsRegistryTest, AKeyIsCreatedWithThoseAboveIt) {
  EXPECT_TRUE(registry_.CreateKey(Hive::CurrentUser, u"Software\\Norvo\\Test\\a\\b\\"));
  EXPECT_TRUE(registry_.KeyExists(Hive::CurrentUser, u"Software\\Norvo\\Test\\A\\B"));
  EXPECT_TRUE(registry_.CreateKey(Hive::CurrentUser, u"Software\\Norvo\\Test\\a\\b"));
  EXPECT_FALSE(
      registry_.CreateKey(Hive::CurrentUser, StringView(u"Software\\Norvo\\Test\\c\0d", 23)));
  EXPECT_FALSE(registry_.KeyExists(Hive::CurrentUser, u"Software\\Norvo\\Test\\c"));
}

}  // namespace
}  // namespace norvo
