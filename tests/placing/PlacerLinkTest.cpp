#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "PlacerTest.h"

namespace norvo {
namespace {

class PlacerLinkTest : public PlacerTest {};

TEST_F(PlacerLinkTest, ALinkIsASecondNameOfTheFile) {
  Put(Disk("C/a.mp3"), "12345");
  PlaceNotes notes(1);
  const std::vector<PlaceJob> jobs = {{u"C:\\A.mp3", u"C:\\Songs\\b.mp3"}};
  Place(jobs, notes, PlaceMode::Link);
  EXPECT_EQ(notes.lines, Lines{"linked"});
  EXPECT_EQ(notes.bytes, 5u);
  EXPECT_EQ(StatOf(New("C/Songs/b.mp3")).st_ino, StatOf(Disk("C/a.mp3")).st_ino);
  PlaceNotes again(1);
  Place(jobs, again, PlaceMode::Link);
  EXPECT_EQ(again.lines, Lines{"already there"});
  EXPECT_EQ(again.bytes, 5u);
}

TEST_F(PlacerLinkTest, ALinkOfALinkIsANameOfTheFileItself) {
  Put(Disk("C/real/a.mp3"), "12345");
  std::filesystem::create_symlink("real/a.mp3", Disk("C/alias.mp3"));
  EXPECT_EQ(PlaceOne(u"C:\\alias.mp3", u"C:\\a.mp3", PlaceMode::Link), "linked");
  EXPECT_EQ(StatOf(New("C/a.mp3")).st_ino, StatOf(Disk("C/real/a.mp3")).st_ino);
}

TEST_F(PlacerLinkTest, AFileOnAnotherDiskIsCopiedInsteadOfLinked) {
  const std::filesystem::path memory = "/dev/shm";
  struct stat there = {};
  if (::stat(memory.c_str(), &there) != 0 || there.st_dev == StatOf(Disk("")).st_dev ||
      ::access(memory.c_str(), W_OK) != 0) {
    GTEST_SKIP() << "there is no second disk to write to";
  }
  std::string pattern = (memory / "norvo-placer-XXXXXX").string();
  ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
  const std::string bytes = Noise(2 * kMegabyte + 3);
  Put(Disk("C/a.mp3"), bytes);
  Put(New("machine.ini"), "[Drives]\nC=fixed\nD=fixed," + pattern + "\n");
  EXPECT_EQ(PlaceOne(u"C:\\a.mp3", u"D:\\a.mp3", PlaceMode::Link), "copied");
  EXPECT_EQ(Get(pattern + "/a.mp3"), bytes);
  EXPECT_EQ(NamesIn(pattern), Names{"a.mp3"});
  std::filesystem::remove_all(pattern);
}

}  // namespace
}  // namespace norvo
