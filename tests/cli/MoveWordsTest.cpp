#include "cli/MoveWords.h"

#include <gtest/gtest.h>

namespace norvo::cli {
namespace {

std::string TextOf(PlaceFailure failure, StringView systemReason) {
  MovedSong song;
  song.fault = MovedSong::Fault::NotBrought;
  song.failure = failure;
  song.systemReason = String(systemReason);
  return ReasonText(song);
}

TEST(MoveWords, ASongThatWasNotBroughtSaysWhatFailedAndWhatTheSystemSaid) {
  EXPECT_EQ(TextOf(PlaceFailure::SourceMissing, {}), "the source is not there");
  EXPECT_EQ(TextOf(PlaceFailure::SourceNoFile, {}), "the source is no file");
  EXPECT_EQ(TextOf(PlaceFailure::SourceUnreadable, u"permission denied"),
            "the source cannot be read: permission denied");
  EXPECT_EQ(TextOf(PlaceFailure::SourceChanged, {}), "the source changed while it was read");
  EXPECT_EQ(TextOf(PlaceFailure::TargetUnwritable, u"the disk is full"),
            "the target cannot be written: the disk is full");
  EXPECT_EQ(TextOf(PlaceFailure::FolderThere, {}), "a folder of that name is there already");
  EXPECT_EQ(TextOf(PlaceFailure::OtherFileThere, {}), "another file of that name is there already");
  EXPECT_EQ(TextOf(PlaceFailure::NotComparable, u"the disk failed"),
            "a file of that name is there already and cannot be compared: the disk failed");
  EXPECT_EQ(TextOf(PlaceFailure::NotCopied, u"the disk is full"),
            "the file cannot be copied: the disk is full");
}

TEST(MoveWords, ASongThatWasBroughtNeedsNone) {
  EXPECT_EQ(ReasonText(MovedSong()), "");
}

}  // namespace
}  // namespace norvo::cli
