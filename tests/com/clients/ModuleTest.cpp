// When the library may go, and that it goes.

#include "clients/ClientTest.h"

namespace norvo::clients {
namespace {

using ModuleTest = ClientTest;

bool IsLoaded() {
  return ::GetModuleHandleW(L"NorvoPlayList.dll") != nullptr;
}

TEST_F(ModuleTest, TheLibraryStaysWhileThereAreObjects) {
  auto first = Create<::Entry, _Entry>();
  auto second = Create<::PlayList, _PlayList>();
  EXPECT_EQ(server.CountObjects(), 2);
  EXPECT_EQ(server.CanUnloadNow(), S_FALSE);
  first = {};
  EXPECT_EQ(server.CanUnloadNow(), S_FALSE);
  Held<_Entries> entries;
  second->get_PlayListEntries(entries.Receive());
  second = {};
  EXPECT_EQ(server.CountObjects(), 1) << "the entries live on";
  EXPECT_EQ(server.CanUnloadNow(), S_FALSE);
  entries = {};
  EXPECT_EQ(server.CountObjects(), 0);
  EXPECT_EQ(server.CanUnloadNow(), S_OK);
}

TEST_F(ModuleTest, AFactoryKeepsTheLibraryToo) {
  Held<IClassFactory> factory;
  ASSERT_EQ(server.GetClassObject(__uuidof(::Entry), IID_IClassFactory, factory.ReceiveAny()),
            S_OK);
  EXPECT_EQ(server.CanUnloadNow(), S_FALSE);
}

TEST_F(ModuleTest, ALockKeepsTheLibraryWithoutAnyObject) {
  Held<IClassFactory> factory;
  ASSERT_EQ(server.GetClassObject(__uuidof(::Entry), IID_IClassFactory, factory.ReceiveAny()),
            S_OK);
  EXPECT_EQ(factory->LockServer(TRUE), S_OK);
  factory = {};
  EXPECT_EQ(server.CountObjects(), 0);
  EXPECT_EQ(server.CanUnloadNow(), S_FALSE);
  server.GetClassObject(__uuidof(::Entry), IID_IClassFactory, factory.ReceiveAny());
  EXPECT_EQ(factory->LockServer(FALSE), S_OK);
}

TEST_F(ModuleTest, TheLibraryWorksOnAfterItWasReadyToGo) {
  for (int round = 0; round < 3; ++round) {
    EXPECT_EQ(server.CanUnloadNow(), S_OK);
    const auto entry = Create<::Entry, _Entry>();
    Text genre;
    EXPECT_EQ(entry->put_Genre(Text(L"Rock").Get()), S_OK);
    EXPECT_EQ(entry->get_Genre(genre.Receive()), S_OK);
    EXPECT_EQ(genre.All(), L"Rock");
  }
}

TEST_F(ModuleTest, OtherClassesAreNotAvailable) {
  Held<IUnknown> none;
  EXPECT_EQ(server.GetClassObject(IID_IDispatch, IID_IClassFactory, none.ReceiveAny()),
            CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(server.GetClassObject(__uuidof(::Entry), IID_IDispatch, none.ReceiveAny()),
            E_NOINTERFACE);
}

TEST(UnloadTest, TheSystemUnloadsTheLibraryWhenNobodyNeedsIt) {
  const ClientThread thread;
  const SideBySide sideBySide;
  ASSERT_FALSE(IsLoaded());
  auto entry = Create<::Entry, _Entry>();
  ASSERT_TRUE(IsLoaded());
  ::CoFreeUnusedLibrariesEx(0, 0);
  ASSERT_TRUE(IsLoaded());
  long format = 0;
  EXPECT_EQ(entry->put_NativeFormat(3), S_OK);
  EXPECT_EQ(entry->get_NativeFormat(&format), S_OK);
  EXPECT_EQ(format, 3);
  entry = {};
  ::CoFreeUnusedLibrariesEx(0, 0);  // notes that it may go
  ::CoFreeUnusedLibrariesEx(0, 0);
  EXPECT_FALSE(IsLoaded());
}

}  // namespace
}  // namespace norvo::clients
