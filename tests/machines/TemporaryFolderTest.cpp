#include "machines/TemporaryFolder.h"

#include <cstdlib>

#include "machines/MachineFoldersTest.h"

namespace norvo {
namespace {

/// Sets the folder of temporary ones for as long as it lives.
class TemporaryPlace {
 public:
  explicit TemporaryPlace(const fs::path& path) {
    if (const char* const before = std::getenv("TMPDIR")) before_ = before;
    ::setenv("TMPDIR", path.c_str(), 1);
  }
  ~TemporaryPlace() {
    before_.empty() ? ::unsetenv("TMPDIR") : ::setenv("TMPDIR", before_.c_str(), 1);
  }
  TemporaryPlace(const TemporaryPlace&) = delete;
  TemporaryPlace& operator=(const TemporaryPlace&) = delete;

 private:
  std::string before_;
};

class TemporaryFolderTest : public MachineFoldersTest {};

TEST_F(TemporaryFolderTest, IsOfItsOwnerAloneAndGoesWithAllThatItHolds) {
  fs::create_directories(At("tmp"));
  const TemporaryPlace place(At("tmp"));
  fs::path path;
  {
    const TemporaryFolder one;
    const TemporaryFolder two;
    path = one.Path();
    EXPECT_NE(path, two.Path());
    EXPECT_EQ(path.parent_path(), At("tmp"));
    EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_all);
    Put(path / "C" / "a.txt", "x");
    EXPECT_EQ(Tree(At("tmp")).size(), 4u);
  }
  EXPECT_TRUE(fs::is_empty(At("tmp")));
}

TEST_F(TemporaryFolderTest, WhereNoneCanBeMadeThePlaceIsNamed) {
  if (!fs::exists("/proc/self")) GTEST_SKIP() << "no folder that takes none";
  const TemporaryPlace place("/proc/self");
  ExpectError(ErrorOf([] { TemporaryFolder folder; }), MoveFault::NoTemporaryFolder, "/proc/self");
}

}  // namespace
}  // namespace norvo
