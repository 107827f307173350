#include "com/Registration.h"

#include <olectl.h>

#include <map>

#include "com/ComTest.h"
#include "com/Faces.h"
#include "com/NorvoPlayList.h"
#include "platform/windows/ModulePath.h"

namespace norvo::com {
namespace {

constexpr wchar_t kPretended[] = L"Software\\Norvo\\RegistrationTest";

/// Both roots of the registry lead to keys of the test's own while it runs.
class RegistrationTest : public ComTest {
 protected:
  using Values = std::map<std::wstring, std::wstring>;  // by key and name

  RegistrationTest() {
    ::RegDeleteTreeW(HKEY_CURRENT_USER, kPretended);
    user_ = Open(L"\\User");
    machine_ = Open(L"\\Machine");
    EXPECT_EQ(::RegOverridePredefKey(HKEY_LOCAL_MACHINE, machine_), ERROR_SUCCESS);
    EXPECT_EQ(::RegOverridePredefKey(HKEY_CURRENT_USER, user_), ERROR_SUCCESS);
  }
  ~RegistrationTest() override {
    ::RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    ::RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
    ::RegCloseKey(user_);
    ::RegCloseKey(machine_);
    ::RegDeleteTreeW(HKEY_CURRENT_USER, kPretended);
    // Goes only when no other product has put anything there.
    ::RegDeleteKeyW(HKEY_CURRENT_USER, L"Software\\Norvo");
  }

  Values OfUser() { return ValuesBelow(user_, L"Software\\Classes"); }
  Values OfMachine() { return ValuesBelow(machine_, L"Software\\Classes"); }

  static std::wstring TextOf(const GUID& identifier) {
    wchar_t text[64] = {};
    ::StringFromGUID2(identifier, text, 64);
    return text;
  }
  /// Nothing that lasts can be made below a key that does not last.
  void Refuse(const wchar_t* key) {
    HKEY volatileKey = nullptr;
    EXPECT_EQ(::RegCreateKeyExW(user_, key, 0, nullptr, REG_OPTION_VOLATILE, KEY_ALL_ACCESS,
                                nullptr, &volatileKey, nullptr),
              ERROR_SUCCESS);
    ::RegCloseKey(volatileKey);
  }
  bool UserHas(const wchar_t* common) {
    HKEY key = nullptr;
    const std::wstring path = std::wstring(L"Software\\Classes\\") + common;
    if (::RegOpenKeyExW(user_, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return false;
    ::RegCloseKey(key);
    return true;
  }
  void Make(const std::wstring& key) {
    HKEY made = nullptr;
    ::RegCreateKeyExW(user_, (L"Software\\Classes\\" + key).c_str(), 0, nullptr, 0, KEY_ALL_ACCESS,
                      nullptr, &made, nullptr);
    ::RegCloseKey(made);
  }
  static std::wstring Wide(StringView text) { return {text.begin(), text.end()}; }

  HKEY user_ = nullptr;

 private:
  static HKEY Open(const wchar_t* below) {
    HKEY opened = nullptr;
    EXPECT_EQ(::RegCreateKeyExW(HKEY_CURRENT_USER, (std::wstring(kPretended) + below).c_str(), 0,
                                nullptr, 0, KEY_ALL_ACCESS, nullptr, &opened, nullptr),
              ERROR_SUCCESS);
    return opened;
  }
  static void Collect(HKEY key, const std::wstring& path, Values& values) {
    wchar_t name[256];
    for (DWORD i = 0;; ++i) {
      DWORD length = 256;
      wchar_t text[1024] = {};
      DWORD size = sizeof(text) - sizeof(wchar_t);
      if (::RegEnumValueW(key, i, name, &length, nullptr, nullptr, reinterpret_cast<BYTE*>(text),
                          &size) != ERROR_SUCCESS) {
        break;
      }
      values[path + L'|' + name] = text;
    }
    for (DWORD i = 0;; ++i) {
      DWORD length = 256;
      if (::RegEnumKeyExW(key, i, name, &length, nullptr, nullptr, nullptr, nullptr) !=
          ERROR_SUCCESS) {
        break;
      }
      HKEY below = nullptr;
      ::RegOpenKeyExW(key, name, 0, KEY_READ, &below);
      Collect(below, path + L'\\' + name, values);
      ::RegCloseKey(below);
    }
  }
  static Values ValuesBelow(HKEY root, const wchar_t* path) {
    Values values;
    HKEY key = nullptr;
    if (::RegOpenKeyExW(root, path, 0, KEY_READ, &key) != ERROR_SUCCESS) return values;
    Collect(key, L"", values);
    ::RegCloseKey(key);
    return values;
  }

  HKEY machine_ = nullptr;
};

TEST_F(RegistrationTest, EveryClassIsFoundByNameAndByIdentifier) {
  ASSERT_EQ(Register(RegisteredFor::User), S_OK);
  Values values = OfUser();
  for (const PublicClass& each : PublicClasses()) {
    const std::wstring name = L"NorvoPlayList." + Wide(each.name);
    const std::wstring identifier = TextOf(each.identifier);
    const std::wstring key = L"\\CLSID\\" + identifier;
    EXPECT_EQ(values[L"\\" + name + L"|"], name);
    EXPECT_EQ(values[L"\\" + name + L"\\CLSID|"], identifier);
    EXPECT_EQ(values[key + L"|"], name);
    EXPECT_EQ(values[key + L"\\ProgID|"], name);
    EXPECT_EQ(values[key + L"\\InprocServer32|"], Wide(ModulePath()));
    EXPECT_EQ(values[key + L"\\InprocServer32|ThreadingModel"], L"Apartment");
    EXPECT_EQ(values[key + L"\\TypeLib|"], TextOf(LIBID_NorvoPlayList));
    EXPECT_EQ(values[key + L"\\Version|"], L"1.0");
    EXPECT_EQ(values.count(key + L"\\Programmable|"), 1U);
  }
}

TEST_F(RegistrationTest, TheTypeLibraryIsFound) {
  ASSERT_EQ(Register(RegisteredFor::User), S_OK);
  Values values = OfUser();
  const std::wstring key = L"\\TypeLib\\" + TextOf(LIBID_NorvoPlayList) + L"\\1.0";
  EXPECT_EQ(values[key + L"|"], L"Norvo Media Playlist Parser");
  EXPECT_EQ(values[key + L"\\FLAGS|"], L"0");
  EXPECT_EQ(values[key + (sizeof(void*) == 8 ? L"\\0\\win64|" : L"\\0\\win32|")],
            Wide(ModulePath()));
  EXPECT_EQ(values[key + L"\\HELPDIR|"] + L"\\",
            Wide(ModulePath().substr(0, ModulePath().rfind(u'\\') + 1)));
}

TEST_F(RegistrationTest, EveryInterfaceIsMarshalledByTheSystem) {
  ASSERT_EQ(Register(RegisteredFor::User), S_OK);
  Values values = OfUser();
  std::size_t interfaces = 0;
  for (const auto& [name, value] : values) interfaces += name.ends_with(L"\\ProxyStubClsid32|");
  EXPECT_EQ(interfaces, 11U) << "one for each class, and the events";
  for (const IID& identifier : {__uuidof(_Entry), __uuidof(__Entry), __uuidof(_helperMan)}) {
    const std::wstring key = L"\\Interface\\" + TextOf(identifier);
    EXPECT_EQ(values[key + L"\\ProxyStubClsid32|"], L"{00020424-0000-0000-C000-000000000046}");
    EXPECT_EQ(values[key + L"\\TypeLib|"], TextOf(LIBID_NorvoPlayList));
    EXPECT_EQ(values[key + L"\\TypeLib|Version"], L"1.0");
  }
}

TEST_F(RegistrationTest, TheUserAndTheMachineAreApart) {
  ASSERT_EQ(Register(RegisteredFor::User), S_OK);
  EXPECT_EQ(OfMachine(), Values());
  const Values registered = OfUser();
  ASSERT_EQ(Register(RegisteredFor::Machine), S_OK);
  EXPECT_EQ(OfMachine(), registered);
  ASSERT_EQ(Unregister(RegisteredFor::User), S_OK);
  EXPECT_EQ(OfUser(), Values());
  EXPECT_EQ(OfMachine(), registered);
}

TEST_F(RegistrationTest, RegisteringOnceMoreChangesNothing) {
  ASSERT_EQ(Register(RegisteredFor::User), S_OK);
  const Values registered = OfUser();
  ASSERT_EQ(Register(RegisteredFor::User), S_OK);
  EXPECT_EQ(OfUser(), registered);
}

TEST_F(RegistrationTest, OtherProductsKeepTheirs) {
  HKEY other = nullptr;
  ::RegCreateKeyExW(user_, L"Software\\Classes\\CLSID\\{other}L", 0, nullptr, 0, KEY_ALL_ACCESS,
                    nullptr, &other, nullptr);
  ::RegSetValueExW(other, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(L"xL"), 4);
  ::RegCloseKey(other);
  const Values before = OfUser();
  ASSERT_EQ(before.size(), 1U);
  ASSERT_EQ(Register(RegisteredFor::User), S_OK);
  ASSERT_EQ(Unregister(RegisteredFor::User), S_OK);
  EXPECT_EQ(OfUser(), before);
}

TEST_F(RegistrationTest, CommonKeysThatItHasMadeGoWithIt) {
  ASSERT_EQ(Register(RegisteredFor::User), S_OK);
  ASSERT_EQ(Register(RegisteredFor::User), S_OK);
  for (const wchar_t* const key : {L"CLSID", L"Interface", L"TypeLib"}) EXPECT_TRUE(UserHas(key));
  ASSERT_EQ(Unregister(RegisteredFor::User), S_OK);
  for (const wchar_t* const key : {L"CLSID", L"Interface", L"TypeLib"}) EXPECT_FALSE(UserHas(key));
}

TEST_F(RegistrationTest, CommonKeysThatWereThereOrAreInUseStay) {
  Make(L"TypeLib");
  ASSERT_EQ(Register(RegisteredFor::User), S_OK);
  Make(L"CLSID\\{another one's}");
  ASSERT_EQ(Unregister(RegisteredFor::User), S_OK);
  EXPECT_TRUE(UserHas(L"CLSID\\{another one's}"));
  EXPECT_FALSE(UserHas(L"Interface"));
  EXPECT_TRUE(UserHas(L"TypeLib"));
}

TEST_F(RegistrationTest, WhatTheLibraryOfTheOtherBitnessNeedsStays) {
  ASSERT_EQ(Register(RegisteredFor::User), S_OK);
  const std::wstring library = L"\\TypeLib\\" + TextOf(LIBID_NorvoPlayList);
  const std::wstring other =
      library + (sizeof(void*) == 8 ? L"\\1.0\\0\\win32" : L"\\1.0\\0\\win64");
  HKEY key = nullptr;
  ::RegCreateKeyExW(user_, (L"Software\\Classes" + other).c_str(), 0, nullptr, 0, KEY_ALL_ACCESS,
                    nullptr, &key, nullptr);
  ::RegSetValueExW(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(L"x"), 4);
  ::RegCloseKey(key);
  ASSERT_EQ(Unregister(RegisteredFor::User), S_OK);
  const Values left = OfUser();
  EXPECT_EQ(left.at(other + L"|"), L"x");
  EXPECT_EQ(left.at(library + L"\\1.0|"), L"Norvo Media Playlist Parser");
  EXPECT_EQ(left.at(L"\\NorvoPlayList.PlayList|"), L"NorvoPlayList.PlayList");
  for (const auto& [name, value] : left) {
    EXPECT_FALSE(name.starts_with(L"\\CLSID") || name.starts_with(L"\\Interface"));
    EXPECT_NE(value, Wide(ModulePath()));
  }
}

TEST_F(RegistrationTest, TakingBackWhatIsNotThereDoesNoHarm) {
  EXPECT_EQ(Unregister(RegisteredFor::User), S_OK);
  EXPECT_EQ(Unregister(RegisteredFor::Machine), S_OK);
}

TEST_F(RegistrationTest, AFailureLeavesNothingBehind) {
  Refuse(L"Software\\Classes\\Interface");  // what is written last
  EXPECT_EQ(Register(RegisteredFor::User), SELFREG_E_CLASS);
  EXPECT_EQ(OfUser(), Values());
  EXPECT_FALSE(UserHas(L"CLSID"));
}

}  // namespace
}  // namespace norvo::com
