#include <fcntl.h>
#include <sys/stat.h>

#include "support/TestMachine.h"

namespace norvo {
namespace {

using ResolverOnPosixTest = TestMachine;

TEST_F(ResolverOnPosixTest, ExactSpellingWinsOverCaseVariants) {
  Put(Disk("C/m/SONG.mp3"), "1");
  Put(Disk("C/m/Song.mp3"), "22");
  Put(Disk("C/m/song.mp3"), "333");
  EXPECT_EQ(NameOf(u"C:\\m\\song.mp3"), "song.mp3");
  EXPECT_EQ(NameOf(u"C:\\m\\Song.mp3"), "Song.mp3");
  EXPECT_EQ(NameOf(u"C:\\m\\sOnG.mp3"), "SONG.mp3") << "the first in byte order";
}

TEST_F(ResolverOnPosixTest, NamesThatNoPathCanExpressAreOpenedByNone) {
  Put(Disk("C") / "bad\xFFname.mp3", "x");
  Put(Disk("C") / "back\\slash.mp3", "x");
  EXPECT_EQ(NameOf(u"C:\\bad\xFFFDname.mp3"), "(none)");
  EXPECT_EQ(NameOf(u"C:\\back\\slash.mp3"), "(none)");
}

TEST_F(ResolverOnPosixTest, APipeIsNoFileAndIsNeverWaitedFor) {
  ASSERT_EQ(::mkfifo(Disk("C/pipe.m3u").c_str(), 0666), 0);
  EXPECT_EQ(NameOf(u"C:\\pipe.m3u"), "(none)");
  EXPECT_EQ(NumberRaisedBy([&] { Files().OpenForReading(u"C:\\pipe.m3u"); }), 53);
  EXPECT_NE(NumberRaisedBy([&] { Files().OpenForAppending(u"C:\\pipe.m3u", true); }), 0);
  EXPECT_TRUE(Files().ListFolder(u"C:\\", {}).empty());
}

TEST_F(ResolverOnPosixTest, CreationIsNeverLaterThanTheLastWrite) {
  Put(Disk("C/a.mp3"), "x");
  const timespec times[2] = {{1000000000, 0}, {1000000000, 999}};
  ASSERT_EQ(::utimensat(AT_FDCWD, Disk("C/a.mp3").c_str(), times, 0), 0);
  EXPECT_EQ(Files().FactsOf(u"C:\\a.mp3")->created, 1000000000);
  const timespec later[2] = {{4000000000, 0}, {4000000000, 0}};
  ASSERT_EQ(::utimensat(AT_FDCWD, Disk("C/a.mp3").c_str(), later, 0), 0);
  EXPECT_LT(Files().FactsOf(u"C:\\a.mp3")->created, 4000000000);
}

}  // namespace
}  // namespace norvo
