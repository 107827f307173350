#include "move/SettingsMemory.h"

#include <gtest/gtest.h>

#include "support/MemoryPlatform.h"

namespace norvo {
namespace {

constexpr StringView kFile = u"C:\\Music\\List.ini";

class SettingsMemoryTest : public ::testing::Test {
 protected:
  std::shared_ptr<MemoryPlatform> machine = std::make_shared<MemoryPlatform>();
  SettingsMemory memory{machine};
};

TEST_F(SettingsMemoryTest, WhatWasWrittenIsReadFromMemoryUntilItIsForgotten) {
  memory.Settings().Write(kFile, "written");
  EXPECT_EQ(machine->Bytes(kFile), "written");
  machine->AddFile(kFile, "by another");
  EXPECT_EQ(memory.Settings().Read(u"c:\\music\\.\\LIST.ini"), "written");
  memory.ForgetWritten();
  EXPECT_EQ(memory.Settings().Read(kFile), "by another");
}

TEST_F(SettingsMemoryTest, NoMoreIsKeptThanOneMebibyte) {
  const std::string half(std::size_t{512} * 1024, 'x');
  for (const StringView path : {u"C:\\1.ini", u"C:\\2.ini", u"C:\\3.ini"}) {
    memory.Settings().Write(path, half);
    machine->AddFile(path, "by another");
  }
  EXPECT_EQ(memory.Settings().Read(u"C:\\1.ini"), half);
  EXPECT_EQ(memory.Settings().Read(u"C:\\2.ini"), half);
  EXPECT_EQ(memory.Settings().Read(u"C:\\3.ini"), "by another");
  // What is forgotten makes room.
  memory.ForgetWritten();
  memory.Settings().Write(u"C:\\3.ini", half);
  machine->AddFile(u"C:\\3.ini", "by another");
  EXPECT_EQ(memory.Settings().Read(u"C:\\3.ini"), half);
}

TEST_F(SettingsMemoryTest, WhatIsDeletedOrGrowsIsForgotten) {
  memory.Settings().Write(kFile, "written");
  memory.Files().OpenForAppending(kFile, false)->Append(" more");
  EXPECT_EQ(memory.Settings().Read(kFile), "written more");
  memory.Settings().Write(kFile, "written");
  memory.Files().RemoveFile(kFile, false);
  EXPECT_EQ(memory.Settings().Read(kFile), std::nullopt);
}

TEST_F(SettingsMemoryTest, AFileThatIsNotThereIsAskedForOnceWhileThatIsRemembered) {
  memory.RememberMissing();
  EXPECT_FALSE(memory.Files().FactsOf(kFile));
  machine->AddFile(kFile, "by another");
  EXPECT_FALSE(memory.Files().FactsOf(u"c:\\music\\list.ini"));
  EXPECT_TRUE(memory.Fresh().FactsOf(kFile));
  memory.Settings().Write(kFile, "written");
  EXPECT_TRUE(memory.Files().FactsOf(kFile));

  EXPECT_FALSE(memory.Files().FactsOf(u"C:\\Music\\Two.ini"));
  machine->AddFile(u"C:\\Music\\Two.ini", "by another");
  memory.ForgetMissing();
  EXPECT_TRUE(memory.Files().FactsOf(u"C:\\Music\\Two.ini"));
}

}  // namespace
}  // namespace norvo
