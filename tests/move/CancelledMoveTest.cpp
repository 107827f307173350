#include <gtest/gtest.h>

#include <set>

#include "move/WatchedWork.h"

namespace norvo {
namespace {

MemoryMove SampleMachines() {
  MemoryMove machines;
  machines.AddMix();
  machines.AddWeb();
  machines.from->AddFile(u"C:\\Music\\Two.mp3", std::string(600 * 1024, '2'));
  return machines;
}

/// Does something with a move that is ended at its first question, at its second, and so on, until
/// it comes to its end.
template <class Check>
void ForEachCancelledMove(const MoveOptions& options, Check&& check) {
  bool cancelled = true;
  std::size_t n = 0;
  while (cancelled) {
    const MemoryMove machines = SampleMachines();
    WatchedWork heard(++n);
    const MoveResult move = machines.Run(heard, options);
    cancelled = heard.WasCancelled();
    EXPECT_EQ(move.cancelled, cancelled) << n;
    check(machines, move, n);
  }
  EXPECT_GT(n, 15u);
}

const std::string kArea = "C:\\My Documents\\Norvo Media\\KVs\\";
// They grow with each playlist.
const std::set<std::string> kGrowing = {kArea + "Restored.txt", kArea + "RestoredCopies.txt"};

/// What the new machine holds is a part of what it holds in the end: nothing torn, nothing else.
void ExpectPartOf(const Contents& whole, const Contents& part, std::size_t n) {
  for (const auto& [path, bytes] : part) {
    if (kGrowing.contains(path)) continue;
    ASSERT_TRUE(whole.contains(path)) << n << ' ' << path;
    EXPECT_TRUE(whole.at(path) == bytes) << n << ' ' << path;
  }
}

TEST(CancelledMove, AtAnyMomentNothingIsTornAndTheNextMoveCompletesIt) {
  const MemoryMove sound = SampleMachines();
  const MoveResult expected = sound.Run();
  const Contents all = ContentsOf(*sound.to);
  ForEachCancelledMove({}, [&](const MemoryMove& machines, const MoveResult&, std::size_t n) {
    ExpectPartOf(all, ContentsOf(*machines.to), n);
    const MoveResult again = machines.Run();
    EXPECT_FALSE(again.cancelled) << n;
    EXPECT_TRUE(again.IsWhole()) << n;
    EXPECT_EQ(again.verification.found, expected.verification.found) << n;
    EXPECT_EQ(ContentsOf(*machines.to), all) << n;
  });
}

TEST(CancelledMove, IsNotWholeAndHasNoWarningOfItsOwn) {
  ForEachCancelledMove({}, [](const MemoryMove&, const MoveResult& move, std::size_t n) {
    EXPECT_EQ(LinesOf(move.warnings), Lines()) << n;
    EXPECT_EQ(move.IsWhole(), !move.cancelled) << n;
    EXPECT_EQ(CountOf(move, MovedPlaylist::State::LeftOut), 0u) << n;
  });
}

TEST(CancelledMove, OfADryRunLeavesTheNewMachineAsItIs) {
  MoveOptions options;
  options.dryRun = true;
  ForEachCancelledMove(options, [](const MemoryMove& machines, const MoveResult&, std::size_t n) {
    EXPECT_EQ(WritesOf(*machines.to), Lines()) << n;
  });
}

TEST(CancelledMove, OfASecondMoveLeavesWhatTheFirstHasMade) {
  const MemoryMove sound = SampleMachines();
  sound.Run();
  const Contents all = ContentsOf(*sound.to);
  bool cancelled = true;
  for (std::size_t n = 1; cancelled; ++n) {
    WatchedWork heard(n);
    cancelled = sound.Run(heard).cancelled;
    EXPECT_EQ(ContentsOf(*sound.to), all) << n;
  }
}

}  // namespace
}  // namespace norvo
