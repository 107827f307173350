#include "move/PlaceFailureText.h"

#include <gtest/gtest.h>

#include "support/TextPrinting.h"

namespace norvo {
namespace {

TEST(PlaceFailureText, TellsWhatFailedAndWhatTheSystemSaid) {
  const auto text = [](PlaceFailure failure, StringView detail) {
    return Utf8(PlaceFailureText({PlaceResult::Failed, failure, String(detail)}));
  };
  EXPECT_EQ(text(PlaceFailure::SourceMissing, {}), "the source is not there");
  EXPECT_EQ(text(PlaceFailure::SourceNoFile, {}), "the source is no file");
  EXPECT_EQ(text(PlaceFailure::SourceUnreadable, u"permission denied"),
            "the source cannot be read: permission denied");
  EXPECT_EQ(text(PlaceFailure::SourceChanged, {}), "the source changed while it was read");
  EXPECT_EQ(text(PlaceFailure::TargetUnwritable, u"the disk is full"),
            "the target cannot be written: the disk is full");
  EXPECT_EQ(text(PlaceFailure::FolderThere, {}), "a folder of that name is there already");
  EXPECT_EQ(text(PlaceFailure::OtherFileThere, {}), "another file of that name is there already");
  EXPECT_EQ(text(PlaceFailure::NotComparable, u"the disk failed"),
            "a file of that name is there already and cannot be compared: the disk failed");
  EXPECT_EQ(text(PlaceFailure::NotCopied, u"the disk is full"),
            "the file cannot be copied: the disk is full");
}

TEST(PlaceFailureText, IsEmptyForWhatDidNotFail) {
  EXPECT_EQ(Utf8(PlaceFailureText({PlaceResult::Copied, PlaceFailure::None, {}})), "");
}

}  // namespace
}  // namespace norvo
