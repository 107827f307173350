#include "platform/files/LastFolder.h"

#include "platform/files/FilesTest.h"

namespace norvo {
namespace {

class LastFolderTest : public FilesTest {
 protected:
  /// The one name in the folder that is given for a path.
  std::string Leads(const std::string& path) {
    const auto folder = folders_.Open(Root(), path);
    EXPECT_TRUE(folder) << path;
    for (const char* name : {"first", "second"}) {
      if (folder && OpenBeneath(**folder, name, OpenMode::Read)) return name;
    }
    return {};
  }

  LastFolder folders_;
};

TEST_F(LastFolderTest, IsTheOneThatIsAskedFor) {
  Put(At("a/b/first"), "");
  Put(At("second"), "");
  EXPECT_EQ(Leads("a/b"), "first");
  EXPECT_EQ(Leads(""), "second");
  EXPECT_EQ(Leads("a/b"), "first");
}

TEST_F(LastFolderTest, IsOpenedOnceAsLongAsNoOtherIsAskedFor) {
  Put(At("a/first"), "");
  Put(At("b/second"), "");
  const auto folder = folders_.Open(Root(), "a");
  EXPECT_EQ(*folders_.Open(Root(), "a"), *folder);
  EXPECT_NE(*folders_.Open(Root(), "b"), *folder);
  EXPECT_TRUE(OpenBeneath(**folder, "first", OpenMode::Read));
}

TEST_F(LastFolderTest, OfAnotherRootIsAnotherOne) {
  Put(At("a/first"), "");
  Put(Beside("a/second"), "");
  FileResult<SystemFile> other = OpenRoot(ToDiskPath(Beside("")));
  ASSERT_TRUE(other);
  EXPECT_EQ(Leads("a"), "first");
  const auto folder = folders_.Open(*other, "a");
  ASSERT_TRUE(folder);
  EXPECT_TRUE(OpenBeneath(**folder, "second", OpenMode::Read));
}

TEST_F(LastFolderTest, ThatIsMissingIsNotRemembered) {
  EXPECT_EQ(folders_.Open(Root(), "a").Failure().kind, Kind::NotFound);
  Put(At("a/first"), "");
  EXPECT_EQ(Leads("a"), "first");
}

}  // namespace
}  // namespace norvo
