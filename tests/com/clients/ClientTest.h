#pragma once

#include <gtest/gtest.h>

#include <objbase.h>

#include "clients/Server.h"
#include "clients/Values.h"
#include "com/NorvoPlayList.h"

namespace norvo::clients {

/// A thread of a client program: it has entered the system's object world, single-threaded.
class ClientThread {
 public:
  ClientThread() { ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
  ~ClientThread() { ::CoUninitialize(); }
  ClientThread(const ClientThread&) = delete;
  ClientThread& operator=(const ClientThread&) = delete;
};

/// Creates a class through the system, wherever it finds the library.
template <class Class, class Interface>
Held<Interface> Create() {
  Held<Interface> made;
  const HRESULT status = ::CoCreateInstance(__uuidof(Class), nullptr, CLSCTX_INPROC_SERVER,
                                            __uuidof(Interface), made.ReceiveAny());
  EXPECT_EQ(status, S_OK);
  return made;
}

/// A client of the library that is not registered. No test may leave an object behind, and the
/// library must be ready to go whenever there is none.
class ClientTest : public ::testing::Test {
 protected:
  ClientTest() {
    EXPECT_TRUE(server.IsLoaded());
    EXPECT_TRUE(sideBySide.IsActive());
    EXPECT_EQ(server.CanUnloadNow(), S_OK);
  }
  ~ClientTest() override {
    EXPECT_EQ(server.CountObjects(), 0);
    EXPECT_EQ(server.CanUnloadNow(), S_OK);
  }

  ClientThread thread;
  Server server;
  SideBySide sideBySide;
};

}  // namespace norvo::clients
