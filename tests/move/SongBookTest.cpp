#include "move/SongBook.h"

#include <gtest/gtest.h>

#include "move/StreamPlacer.h"
#include "support/MemoryPlatform.h"
#include "support/RaisedErrors.h"
#include "support/TextPrinting.h"

namespace norvo {
namespace {

class SongBookTest : public ::testing::Test {
 protected:
  SongBookTest() { machine.AddFile(u"C:\\Music\\One.mp3", "12345"); }

  MemoryPlatform machine;
  StreamPlacer placer{machine.Files(), machine.Files()};
  std::vector<MovedSong> songs;
  TextPool texts;
  SongIdentities identities{placer, texts};
  SongBook book{machine.Files(), identities, songs};
};

TEST_F(SongBookTest, AFileHasOneNumberHoweverItsPathIsSpelled) {
  EXPECT_EQ(book.NumberOf(u"C:\\Music\\One.mp3"), 0u);
  EXPECT_EQ(book.NumberOf(u"c:\\music\\.\\ONE.mp3"), 0u);
  EXPECT_EQ(book.NumberOf(u"C:\\Music\\Two.mp3", 7), 1u);
  ASSERT_EQ(songs.size(), 2u);
  EXPECT_TEXT(songs[0].source, u"C:\\Music\\One.mp3");
  EXPECT_EQ(songs[0].size, 5);
  EXPECT_EQ(songs[1].size, 7);
}

TEST_F(SongBookTest, AFailureLeavesNoNumberWithoutASong) {
  machine.FailOn(u"AbsolutePathName", 1, error::kDeviceInputOutput);
  EXPECT_EQ(NumberRaisedBy([&] { return book.NumberOf(u"C:\\Music\\One.mp3"); }),
            error::kDeviceInputOutput);
  EXPECT_EQ(songs.size(), 0u);
  EXPECT_EQ(book.NumberOf(u"C:\\Music\\One.mp3"), 0u);
  EXPECT_EQ(songs.size(), 1u);
}

TEST_F(SongBookTest, ASongThatCannotBeLookedUpHasNoSize) {
  machine.FailOn(u"FactsOf", 1, error::kDeviceInputOutput);
  EXPECT_EQ(book.NumberOf(u"C:\\Music\\One.mp3"), 0u);
  ASSERT_EQ(songs.size(), 1u);
  EXPECT_EQ(songs[0].size, 0);
}

}  // namespace
}  // namespace norvo
