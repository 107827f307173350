#include "platform/files/NewFile.h"

#include "platform/files/FilesTest.h"
#include "platform/files/TemporaryFile.h"

namespace norvo {
namespace {

class NewFileTest : public FilesTest {
 protected:
  NewFile Make(const std::string& path, const std::string& bytes) {
    FileResult<NewFile> made = NewFile::At(Root(), path, 0666, folders_);
    EXPECT_TRUE(made);
    if (!made) return {};
    EXPECT_FALSE(WriteAll(made->File(), bytes));
    return std::move(*made);
  }

  LastFolder folders_;
  LastFolder now_;  // when it is put in place
};

TEST_F(NewFileTest, HasItsNameOnlyWhenItIsPutInPlace) {
  std::filesystem::create_directory(At("in"));
  NewFile file = Make("in/a", "bytes");
  EXPECT_FALSE(std::filesystem::exists(At("in/a")));
  EXPECT_FALSE(file.PutInPlace(now_));
  EXPECT_FALSE(file.File().IsOpen());
  EXPECT_EQ(Get(At("in/a")), "bytes");
  EXPECT_EQ(NamesIn("in"), "Fa ");
}

TEST_F(NewFileTest, IsGoneWithItsOwner) {
  { const NewFile file = Make("a", "x"); }
  NewFile replaced = Make("b", "x");
  replaced = Make("c", "x");
  EXPECT_FALSE(replaced.PutInPlace(now_));
  EXPECT_EQ(NamesIn(""), "Fc ");
}

TEST_F(NewFileTest, NeverReplacesAnything) {
  NewFile file = Make("a", "new");
  Put(At("a"), "old");
  EXPECT_EQ(file.PutInPlace(now_).kind, Kind::AlreadyExists);
  EXPECT_EQ(Get(At("a")), "old");
  EXPECT_EQ(NamesIn(""), "Fa ");
}

TEST_F(NewFileTest, IsNotMadeWithoutItsFolder) {
  EXPECT_EQ(NewFile::At(Root(), "missing/a", 0666, folders_).Failure().kind, Kind::NotFound);
}

TEST_F(NewFileTest, IsNotPutIntoAFolderThatBecameALink) {
  NEEDS_LINKS();
  std::filesystem::create_directory(At("in"));
  NewFile file = Make("in/a", "x");
  std::filesystem::rename(At("in"), At("was"));
  MakeFolderLink(Beside(""), At("in"));
  EXPECT_TRUE(file.PutInPlace(now_));
  EXPECT_FALSE(std::filesystem::exists(Beside("a")));
}

}  // namespace
}  // namespace norvo
