// Every thread of a client has the library for itself.

#include <thread>

#include "clients/ClientTest.h"

namespace norvo::clients {
namespace {

using ThreadsTest = ClientTest;

/// An event that one thread waits for and another sets.
class Signal {
 public:
  Signal() : handle_(::CreateEventW(nullptr, TRUE, FALSE, nullptr)) {}
  ~Signal() { ::CloseHandle(handle_); }
  Signal(const Signal&) = delete;
  Signal& operator=(const Signal&) = delete;

  void Set() { ::SetEvent(handle_); }
  void Wait() { ::WaitForSingleObject(handle_, INFINITE); }

 private:
  HANDLE handle_;
};

/// Makes a collection with objects in it, and looks at all of them.
void WorkWithCollections() {
  for (long number = 1; number <= 50; ++number) {
    const auto entries = Create<::Entries, _Entries>();
    EXPECT_EQ(entries->put_CollectionType(number), S_OK);
    for (int i = 0; i < 20; ++i) {
      const auto entry = Create<::M3UEntry, _M3UEntry>();
      long type = number;
      EXPECT_EQ(entry->put_Entry_EntryType(&type), S_OK);
      EXPECT_EQ(entries->Add(entry.Get()), S_OK);
      long index = i + 1;
      Held<IDispatch> item;
      EXPECT_EQ(entries->Item(&index, item.Receive()), S_OK);
      EXPECT_TRUE(IsSame(item, entry));
    }
  }
}

TEST_F(ThreadsTest, TwoThreadsWorkSideBySide) {
  Signal start;
  const auto work = [&start] {
    const ClientThread own;
    const SideBySide found;
    start.Wait();
    WorkWithCollections();
  };
  std::thread first(work), second(work);
  start.Set();
  first.join();
  second.join();
}

TEST_F(ThreadsTest, ObjectsOfTwoThreadsAreCountedTogether) {
  Signal made, end;
  std::thread other([&] {
    const ClientThread own;
    const SideBySide found;
    const auto entry = Create<::Entry, _Entry>();
    made.Set();
    end.Wait();
  });
  {
    const auto entry = Create<::Entry, _Entry>();
    made.Wait();
    EXPECT_EQ(server.CountObjects(), 2);
  }
  EXPECT_EQ(server.CountObjects(), 1);
  EXPECT_EQ(server.CanUnloadNow(), S_FALSE) << "the other thread has one";
  end.Set();
  other.join();
}

TEST_F(ThreadsTest, AThreadMayEndWithoutAWord) {
  for (int i = 0; i < 5; ++i) {
    std::thread([] {
      const ClientThread own;
      const SideBySide found;
      EXPECT_TRUE((Create<::PlayLists, _PlayLists>()));
    }).join();
    EXPECT_EQ(server.CountObjects(), 0);
    EXPECT_TRUE((Create<::Entry, _Entry>())) << "lets go of what the thread has left";
  }
}

TEST_F(ThreadsTest, AnObjectOutlivesTheThreadThatMadeIt) {
  Held<_Entry> entry;
  std::thread([&] { entry = server.Make<::Entry, _Entry>(); }).join();
  ASSERT_TRUE(entry);
  EXPECT_EQ(server.CountObjects(), 1);
  long format = 0;
  EXPECT_EQ(entry->put_NativeFormat(3), S_OK);
  EXPECT_EQ(entry->get_NativeFormat(&format), S_OK);
  EXPECT_EQ(format, 3);
}

}  // namespace
}  // namespace norvo::clients
