#include "platform/files/RealFolder.h"

#include "platform/files/DiskPath.h"
#include "support/TestMachine.h"

namespace norvo {
namespace {

class RealFolderTest : public TestMachine {
 protected:
  std::string Real(const std::string& path) const { return RealAsFarAsThere(Outside(path)); }
};

TEST_F(RealFolderTest, WhatIsNotThereStandsInWhatIs) {
  Put(Outside("a/b/file"), "");
  const std::string base = RealAsFarAsThere(Outside("a"));
  EXPECT_EQ(Real("a/b"), base + "/b");
  EXPECT_EQ(Real("a/b/c/d"), base + "/b/c/d");
}

TEST_F(RealFolderTest, LinksOnTheWayAreResolved) {
  NEEDS_LINKS();
  Put(Outside("a/b/file"), "");
  MakeFolderLink("a/b", Outside("link"));
  EXPECT_EQ(Real("link"), Real("a/b"));
  EXPECT_EQ(Real("link/new/folder"), Real("a/b") + "/new/folder");
}

}  // namespace
}  // namespace norvo
