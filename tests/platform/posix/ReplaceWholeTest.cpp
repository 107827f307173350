#include "platform/files/ReplaceWhole.h"

#include "platform/files/FilesTest.h"

namespace norvo {
namespace {

using ReplaceOnPosixTest = FilesTest;

TEST_F(ReplaceOnPosixTest, PermissionsAreHandedOn) {
  Put(At("a.ini"), "old");
  std::filesystem::permissions(At("a.ini"), std::filesystem::perms(0640));
  EXPECT_FALSE(ReplaceWhole(Root(), "a.ini", "new"));
  EXPECT_EQ(LookUp(Root(), "a.ini")->permissions, 0640u);
}

}  // namespace
}  // namespace norvo
