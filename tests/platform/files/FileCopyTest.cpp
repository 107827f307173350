#include "platform/files/FileCopy.h"

#include "platform/files/FilesTest.h"

namespace norvo {
namespace {

class FileCopyTest : public FilesTest {
 protected:
  FileFailure Copy(const FileRecord& record) {
    const FileResult<SystemFile> target = CreateNew(Root(), "copy", 0666);
    EXPECT_TRUE(target);
    told_ = 0;
    const SystemFile source = Open("a");
    KeepAccessTime(source);
    return CopyWhole(source, record, *target, [this](std::uint64_t more) { told_ += more; });
  }

  std::uint64_t told_ = 0;
};

TEST_F(FileCopyTest, BytesAreTheSame) {
  const std::string bytes(3 * 1024 * 1024 + 17, 'x');
  Put(At("a"), bytes);
  EXPECT_FALSE(Copy(*LookUp(Root(), "a")));
  EXPECT_EQ(Get(At("copy")), bytes);
  EXPECT_EQ(told_, bytes.size());
}

TEST_F(FileCopyTest, ASourceThatIsAnotherByNowIsTold) {
  Put(At("a"), "12345");
  const FileRecord asItIs = *LookUp(Root(), "a");
  FileRecord record = asItIs;
  record.size = 6;
  EXPECT_EQ(Copy(record).kind, Kind::SourceChanged) << "it ended early";
  EXPECT_FALSE(RemoveFile(Root(), "copy"));
  record.size = 4;
  EXPECT_EQ(Copy(record).kind, Kind::SourceChanged) << "it grew";
  EXPECT_FALSE(RemoveFile(Root(), "copy"));
  record = asItIs;
  --record.modified.seconds;
  EXPECT_EQ(Copy(record).kind, Kind::SourceChanged) << "it was written to";
}

TEST_F(FileCopyTest, SpaceThatIsThereCanBeClaimedAndChangesNoSize) {
  Put(At("a"), "x");
  const FileResult<SystemFile> file = OpenBeneath(Root(), "a", OpenMode::Append);
  EXPECT_FALSE(ClaimSpace(*file, 100000));
  EXPECT_FALSE(ClaimSpace(*file, 0));
  EXPECT_EQ(LookUp(*file)->size, 1u);
}

}  // namespace
}  // namespace norvo
