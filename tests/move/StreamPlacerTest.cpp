#include "move/StreamPlacer.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "automation/RunTimeError.h"
#include "support/MemoryPlatform.h"
#include "support/TextPrinting.h"

namespace norvo {
namespace {

constexpr std::size_t kPiece = std::size_t{256} * 1024;

/// Keeps what it is told.
class Notes final : public PlaceListener {
 public:
  void OnBytes(std::uint64_t more) override {
    bytes += more;
    if (onBytes) onBytes();
  }
  void OnPlaced(std::size_t job, const PlaceOutcome& outcome) override {
    jobs.push_back(job);
    outcomes.push_back(outcome);
  }

  std::uint64_t bytes = 0;
  std::vector<std::size_t> jobs;
  std::vector<PlaceOutcome> outcomes;
  std::function<void()> onBytes;
};

class StreamPlacerTest : public ::testing::Test {
 protected:
  static constexpr StringView kSource = u"C:\\Music\\One.mp3";
  static constexpr StringView kTarget = u"C:\\My Documents\\Songs\\One.mp3";

  PlaceOutcome Place(PlaceMode mode = PlaceMode::Copy) {
    const PlaceJob job{String(kSource), String(kTarget)};
    placer.PlaceAll({&job, 1}, mode, notes);
    return notes.outcomes.back();
  }
  void ExpectFailure(PlaceFailure failure, const std::string& detail = {}) {
    const PlaceOutcome outcome = Place();
    EXPECT_EQ(outcome.result, PlaceResult::Failed);
    EXPECT_EQ(outcome.failure, failure);
    EXPECT_EQ(Utf8(outcome.detail), detail);
  }

  MemoryPlatform from;
  MemoryPlatform to;
  StreamPlacer placer{from.Files(), to.Files()};
  Notes notes;
};

TEST_F(StreamPlacerTest, CopiesFilesOfAnySizeAndCreatesTheirFolders) {
  for (const std::size_t size : {std::size_t{0}, std::size_t{1}, kPiece - 1, kPiece, kPiece + 1,
                                 2 * kPiece, 3 * kPiece - 7}) {
    std::string bytes(size, 'x');
    if (size > 0) bytes.back() = 'y';
    from.AddFile(kSource, bytes);
    if (to.HasFile(kTarget)) to.Files().RemoveFile(kTarget);
    notes = {};
    EXPECT_EQ(Place().result, PlaceResult::Copied) << size;
    EXPECT_TRUE(to.Bytes(kTarget) == bytes) << size;
    EXPECT_EQ(notes.bytes, size);
  }
}

TEST_F(StreamPlacerTest, ToldToLinkItCopies) {
  from.AddFile(kSource, "one");
  EXPECT_EQ(Place(PlaceMode::Link).result, PlaceResult::Copied);
  EXPECT_EQ(to.Bytes(kTarget), "one");
}

TEST_F(StreamPlacerTest, EachJobIsToldOnceAndNoneKeepsTheOthers) {
  from.AddFile(u"C:\\a.mp3", "a");
  from.AddFile(u"C:\\c.mp3", "c");
  const std::vector<PlaceJob> jobs = {
      {u"C:\\a.mp3", u"C:\\a.mp3"}, {u"C:\\b.mp3", u"C:\\b.mp3"}, {u"C:\\c.mp3", u"C:\\c.mp3"}};
  placer.PlaceAll(jobs, PlaceMode::Copy, notes);
  EXPECT_EQ(notes.jobs, (std::vector<std::size_t>{0, 1, 2}));
  EXPECT_EQ(notes.outcomes[1].failure, PlaceFailure::SourceMissing);
  EXPECT_EQ(to.Bytes(u"C:\\c.mp3"), "c");
}

TEST_F(StreamPlacerTest, WhatIsThereIsNeverReplaced) {
  from.AddFile(kSource, "one");
  to.AddFile(kTarget, "one");
  EXPECT_EQ(Place().result, PlaceResult::AlreadyThere);
  for (const char* const other : {"two", "on", "ones", ""}) {
    to.AddFile(kTarget, other);
    ExpectFailure(PlaceFailure::OtherFileThere);
    EXPECT_EQ(to.Bytes(kTarget), other);
  }
  to.Files().RemoveFile(kTarget);
  to.AddFolder(kTarget);
  ExpectFailure(PlaceFailure::FolderThere);
}

TEST_F(StreamPlacerTest, WhatCannotBeReadIsToldWithTheReason) {
  from.AddFolder(kSource);
  ExpectFailure(PlaceFailure::SourceMissing);
  from.AddFile(kSource, "one");
  from.Files().Deny(kSource);
  ExpectFailure(PlaceFailure::SourceUnreadable, "Permission denied");
  EXPECT_TRUE(to.Files().AllFiles().empty());
}

TEST_F(StreamPlacerTest, OfAFileThatCannotBeCopiedWholeNothingIsLeft) {
  from.AddFile(kSource, std::string(2 * kPiece, 'x'));
  for (std::size_t call = 1; call <= 3; ++call) {
    to.FailOn(u"Append", call, error::kDiskFull);
    ExpectFailure(PlaceFailure::NotCopied, "Disk full");
    EXPECT_FALSE(to.HasFile(kTarget)) << call;
    from.FailOn(u"ReadAt", call, error::kDeviceInputOutput);
    ExpectFailure(PlaceFailure::NotCopied, "Device I/O error");
    EXPECT_FALSE(to.HasFile(kTarget)) << call;
  }
  EXPECT_EQ(Place().result, PlaceResult::Copied);
}

TEST_F(StreamPlacerTest, OfAFileThatTheListenerEndsNothingIsLeft) {
  struct Ended {};
  from.AddFile(kSource, std::string(2 * kPiece, 'x'));
  notes.onBytes = [] { throw Ended(); };
  EXPECT_THROW(Place(), Ended);
  EXPECT_FALSE(to.HasFile(kTarget));
  EXPECT_TRUE(notes.outcomes.empty());
}

TEST_F(StreamPlacerTest, FilesAreTheSameWhenTheirBytesAre) {
  from.AddFile(kSource, std::string(kPiece, 'x') + "y");
  to.AddFile(kTarget, std::string(kPiece, 'x') + "y");
  EXPECT_EQ(placer.Compare(kSource, kTarget), Comparison::Same);
  to.AddFile(kTarget, std::string(kPiece, 'x') + "z");
  EXPECT_EQ(placer.Compare(kSource, kTarget), Comparison::Other);
  to.AddFile(kTarget, std::string(kPiece, 'x'));
  EXPECT_EQ(placer.Compare(kSource, kTarget), Comparison::Other);
}

TEST_F(StreamPlacerTest, AFileThatCannotBeReadIsLikeNoOtherOrNobodyKnows) {
  from.AddFile(kSource, "x");
  to.AddFile(kTarget, "x");
  EXPECT_EQ(placer.Compare(kSource, u"C:\\none.mp3"), Comparison::Unknown);
  EXPECT_EQ(placer.Compare(u"C:\\none.mp3", kTarget), Comparison::Other);
  to.Files().Deny(kTarget);
  EXPECT_EQ(placer.Compare(kSource, kTarget), Comparison::Unknown);
  Place();
  ASSERT_EQ(notes.outcomes.size(), 1U);
  EXPECT_EQ(notes.outcomes[0].failure, PlaceFailure::NotComparable);
  from.Files().Deny(kSource);
  EXPECT_EQ(placer.Compare(kSource, kTarget), Comparison::Other);
}

TEST_F(StreamPlacerTest, AFolderBlocksAName) {
  to.AddFolder(kTarget);
  EXPECT_TRUE(placer.IsBlocked(kTarget));
  EXPECT_FALSE(placer.IsBlocked(u"C:\\My Documents\\Songs\\Two.mp3"));
}

TEST_F(StreamPlacerTest, AFileIsTheSameHoweverItsPathIsSpelled) {
  EXPECT_EQ(placer.IdentityOf(u"C:\\Music\\One.mp3"), placer.IdentityOf(u"c:/MUSIC/x/../one.MP3"));
  EXPECT_NE(placer.IdentityOf(u"C:\\Music\\One.mp3"), placer.IdentityOf(u"D:\\Music\\One.mp3"));
}

}  // namespace
}  // namespace norvo
