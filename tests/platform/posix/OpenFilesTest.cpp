#include <fcntl.h>
#include <sys/stat.h>

#include "platform/files/FilesTest.h"
#include "platform/posix/Descriptor.h"

namespace norvo {
namespace {

using OpenFilesTest = FilesTest;

TEST_F(OpenFilesTest, APipeIsNeverWaitedFor) {
  ASSERT_EQ(::mkfifo(At("pipe").c_str(), 0666), 0);
  EXPECT_EQ(LookUp(Root(), "pipe")->kind, FileRecord::Kind::Other);
  EXPECT_EQ(LookUp(Open("pipe"))->kind, FileRecord::Kind::Other);
  EXPECT_NE(WhyNotOpen("pipe", OpenMode::Append), Kind::None) << "nobody reads it";
  EXPECT_TRUE(OpenSystemPath(At("pipe").string()));
}

TEST_F(OpenFilesTest, NoProgramThatIsStartedInheritsAnOpenFile) {
  Put(At("a"), "x");
  const auto closesItself = [](const SystemFile& file) {
    return (::fcntl(DescriptorOf(file), F_GETFD) & FD_CLOEXEC) != 0;
  };
  EXPECT_TRUE(closesItself(Root()));
  EXPECT_TRUE(closesItself(Open("a")));
  EXPECT_TRUE(closesItself(*OpenSystemPath(At("a").string())));
  EXPECT_TRUE(closesItself(*CreateNew(Root(), "b", 0600)));
}

TEST_F(OpenFilesTest, AFileIsClosedWithItsOwner) {
  Put(At("a"), "x");
  int descriptor = -1;
  {
    SystemFile first = Open("a");
    descriptor = DescriptorOf(first);
    const SystemFile second = std::move(first);
    EXPECT_FALSE(first.IsOpen());
    EXPECT_EQ(DescriptorOf(second), descriptor);
    EXPECT_NE(::fcntl(descriptor, F_GETFD), -1);
  }
  EXPECT_EQ(::fcntl(descriptor, F_GETFD), -1);
}

TEST_F(OpenFilesTest, TheProcessMayHaveSomeFilesOpen) {
  EXPECT_GE(MostOpenFiles(), 16u);
}

TEST_F(OpenFilesTest, NamesNeedNotBeUtf8) {
  const std::string name = "\xFF\xFE";
  Put(At(name), "x");
  EXPECT_EQ(NamesIn(""), "F" + name + " ");
  EXPECT_EQ(LookUpSystemPath(ToDiskPath(ToSystemPath(ToDiskPath(At(name)))))->size, 1u);
}

}  // namespace
}  // namespace norvo
