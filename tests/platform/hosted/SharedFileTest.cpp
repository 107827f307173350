#include "services/SharedFile.h"

#include <algorithm>
#include <chrono>
#include <future>
#include <thread>

#include "platform/hosted/HostedFileSystem.h"
#include "support/TestMachine.h"
#include "text/Number.h"

namespace norvo {
namespace {

constexpr StringView kRoot = u"C:\\Root";

class HostedSharedFileTest : public TestMachine {
 protected:
  SharedFiles& Shared() { return Machine().HostedFiles(); }
};

TEST_F(HostedSharedFileTest, AFileIsMadeWithItsFolders) {
  const std::unique_ptr<SharedFile> file = Shared().OpenShared(u"C:\\a\\b\\list.txt");
  EXPECT_EQ(file->Size(), 0u);
  file->EndWith(0, "one");
  EXPECT_EQ(Get(Disk("C/a/b/list.txt")), "one");
}

TEST_F(HostedSharedFileTest, AFileThatIsThereIsReadAndEndsAnew) {
  Put(Disk("C/List.txt"), "0123456789");
  const std::unique_ptr<SharedFile> file = Shared().OpenShared(u"C:\\list.txt");
  std::string read(20, '\0');
  EXPECT_EQ(file->Size(), 10u);
  EXPECT_EQ(file->ReadAt(4, read), 6u);
  EXPECT_EQ(read.substr(0, 6), "456789");
  file->EndWith(10, "ab");
  EXPECT_EQ(Get(Disk("C/List.txt")), "0123456789ab");
  file->EndWith(3, "xy");
  EXPECT_EQ(file->Size(), 5u);
  EXPECT_EQ(Get(Disk("C/List.txt")), "012xy");
}

TEST_F(HostedSharedFileTest, AFileIsMadeOnlyWhereNoneHasThatNameInAnotherCase) {
  Put(Disk("C/List.txt"), "one");
  Shared().OpenShared(u"C:\\LIST.TXT");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(Disk("C")), {}), 1);
}

TEST_F(HostedSharedFileTest, WhatIsNoFileRaises) {
  std::filesystem::create_directory(Disk("C/folder"));
  EXPECT_EQ(NumberRaisedBy([&] { Shared().OpenShared(u"C:\\folder"); }), 75);
  EXPECT_EQ(NumberRaisedBy([&] { Shared().OpenShared(u"Q:\\a\\list.txt"); }), 76);
}

TEST_F(HostedSharedFileTest, OneWaitsForTheOther) {
  std::unique_ptr<SharedFile> first = Shared().OpenShared(u"C:\\list.txt");
  const std::future<void> second = std::async(std::launch::async, [this] {
    HostedPlatform machine(Disk(""));
    machine.HostedFiles().OpenShared(u"C:\\list.txt")->EndWith(3, "two");
  });
  EXPECT_EQ(second.wait_for(std::chrono::milliseconds(100)), std::future_status::timeout);
  first->EndWith(0, "one");
  first.reset();
  second.wait();
  EXPECT_EQ(Get(Disk("C/list.txt")), "onetwo");
}

/// Adds ten records of its own and ten that both have, in two writes.
void AddRecords(const std::filesystem::path& folder, StringView own) {
  HostedPlatform machine(folder);
  MigrationList& list = machine.Migration();
  list.EnsureGroup(u"Group", kRoot);
  for (std::int32_t i = 0; i < 10; ++i) {
    list.Add({String(own) + FormatInteger(i), u"x", u"Cat"});
    list.Add({u"both" + FormatInteger(i), u"x", u"Cat"});
    if (i == 4) list.Flush();
  }
  list.Flush();
}

TEST_F(HostedSharedFileTest, TwoThatBeginOneMediaListLeaveEachRecordOnce) {
  for (int round = 0; round < 30; ++round) {
    std::filesystem::remove_all(Disk("C/Root"));
    std::thread first(AddRecords, Disk(""), u"a"), second(AddRecords, Disk(""), u"b");
    first.join();
    second.join();
    const std::string bytes = Get(Disk("C/Root/KVs/MediaList.txt"));
    EXPECT_EQ(std::count(bytes.begin(), bytes.end(), '\n'), 30) << bytes;
    EXPECT_EQ(bytes.rfind("\xEF\xBB\xBF"), 0u) << "one mark, at the beginning";
  }
}

}  // namespace
}  // namespace norvo
