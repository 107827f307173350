// Registration as the system's tools do it. Only the user's own part of the registry is written;
// that of the machine is led elsewhere.

#include "clients/ClientTest.h"

namespace norvo::clients {
namespace {

constexpr wchar_t kClasses[] = L"Software\\Classes";
constexpr wchar_t kPretended[] = L"Software\\NorvoClientsTest";

bool HasKey(HKEY root, const std::wstring& path) {
  HKEY opened = nullptr;
  if (::RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS) return false;
  ::RegCloseKey(opened);
  return true;
}

std::wstring TextOf(const GUID& identifier) {
  wchar_t text[64] = {};
  ::StringFromGUID2(identifier, text, 64);
  return text;
}

class ServerRegistrationTest : public ::testing::Test {
 protected:
  ServerRegistrationTest() {
    ::RegDeleteTreeW(HKEY_CURRENT_USER, kPretended);
    ::RegCreateKeyExW(HKEY_CURRENT_USER, kPretended, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                      &machine_, nullptr);
    ::RegOverridePredefKey(HKEY_LOCAL_MACHINE, machine_);
  }
  ~ServerRegistrationTest() override {
    ::RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
    ::RegCloseKey(machine_);
    ::RegDeleteTreeW(HKEY_CURRENT_USER, kPretended);
    server.Install(false, L"user");
  }

  /// The keys of one class, the library and one interface are there: all of them, or none.
  static int CountKeys(HKEY root) {
    const std::wstring classes = std::wstring(kClasses) + L'\\';
    return HasKey(root, classes + L"NorvoPlayList.helperMan\\CLSID") +
           HasKey(root,
                  classes + L"CLSID\\" + TextOf(__uuidof(::helperMan)) + L"\\InprocServer32") +
           HasKey(root, classes + L"TypeLib\\" + TextOf(LIBID_NorvoPlayList) + L"\\1.0") +
           HasKey(root, classes + L"Interface\\" + TextOf(__uuidof(_helperMan)) + L"\\TypeLib");
  }

  ClientThread thread;
  Server server;

 private:
  HKEY machine_ = nullptr;
};

TEST_F(ServerRegistrationTest, TheUserAloneCanHaveTheLibrary) {
  EXPECT_EQ(CountKeys(HKEY_CURRENT_USER), 0);
  EXPECT_EQ(server.Install(true, L"USER"), S_OK);
  EXPECT_EQ(CountKeys(HKEY_CURRENT_USER), 4);
  EXPECT_EQ(CountKeys(HKEY_LOCAL_MACHINE), 0);
  EXPECT_EQ(server.Install(false, L"user"), S_OK);
  EXPECT_EQ(CountKeys(HKEY_CURRENT_USER), 0);
}

TEST_F(ServerRegistrationTest, WithoutAWordItIsForTheMachine) {
  for (const wchar_t* const whom : {static_cast<const wchar_t*>(nullptr), L"", L"machine"}) {
    EXPECT_EQ(server.Install(true, whom), S_OK);
    EXPECT_EQ(CountKeys(HKEY_LOCAL_MACHINE), 4);
    EXPECT_EQ(CountKeys(HKEY_CURRENT_USER), 0);
    EXPECT_EQ(server.Install(false, whom), S_OK);
    EXPECT_EQ(CountKeys(HKEY_LOCAL_MACHINE), 0);
  }
}

TEST_F(ServerRegistrationTest, TheMachineCanHaveTheLibrary) {
  EXPECT_EQ(server.Register(), S_OK);
  EXPECT_EQ(CountKeys(HKEY_LOCAL_MACHINE), 4);
  EXPECT_EQ(CountKeys(HKEY_CURRENT_USER), 0);
  EXPECT_EQ(server.Unregister(), S_OK);
  EXPECT_EQ(CountKeys(HKEY_LOCAL_MACHINE), 0);
  EXPECT_EQ(server.Unregister(), S_OK) << "once more does no harm";
}

/// Wine 8 looks for classes in the machine's part of the registry alone.
bool FindsClassesOfUser() {
  return ::GetProcAddress(::GetModuleHandleW(L"ntdll.dll"), "wine_get_version") == nullptr;
}

TEST(RegisteredLibraryTest, TheSystemFindsARegisteredLibrary) {
  const ClientThread thread;
  const Server server;
  const wchar_t* const whom = FindsClassesOfUser() ? L"user" : L"machine";
  CLSID type{};
  if (::CLSIDFromProgID(L"NorvoPlayList.Entry", &type) == S_OK) {
    GTEST_SKIP() << "the library is registered here for other uses";
  }
  ASSERT_EQ(server.Install(true, whom), S_OK);
  EXPECT_EQ(::CLSIDFromProgID(L"NorvoPlayList.Entry", &type), S_OK);
  EXPECT_EQ(type, __uuidof(::Entry));
  EXPECT_TRUE((Create<::Entry, _Entry>()));
  Held<ITypeLib> types;
  EXPECT_EQ(::LoadRegTypeLib(LIBID_NorvoPlayList, 1, 0, 0, types.Receive()), S_OK);
  EXPECT_EQ(server.CountObjects(), 0);
  EXPECT_EQ(server.Install(false, whom), S_OK);
  EXPECT_NE(::CLSIDFromProgID(L"NorvoPlayList.Entry", &type), S_OK);
}

}  // namespace
}  // namespace norvo::clients
