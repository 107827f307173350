#include "cli/NextSteps.h"

#include <gtest/gtest.h>

#include <sstream>

#include "cli/MachineWords.h"
#include "cli/TypedCommand.h"

namespace norvo::cli {
namespace {

std::string SaidOf(const MoveResult& move) {
  std::ostringstream out, err;
  Console console(out, err, false);
  SayNextSteps(move, {}, console);
  return out.str();
}

MoveResult Denied() {
  MoveResult move;
  WorkWarning warning;
  warning.warning.kind = WarningKind::FolderNotListed;
  warning.warning.reason = u"Permission denied: C:\\Users\\Ann";
  move.warnings.push_back(warning);
  return move;
}

class NextSteps : public ::testing::Test {
 protected:
  NextSteps() {
    ChooseWords(kFolderWords, kThisPcWords);
    KnowCommand({"migrate", "--from", "E:\\"});
  }
  ~NextSteps() override { ChooseWords(kFolderWords, kFolderWords); }

  const std::string kStep =
      "Next: for what the system has denied, run this as an administrator: norvo-playlists migrate "
      "--from E:\\\n";
};

TEST_F(NextSteps, OnThisPcAFolderThatIsDeniedNamesTheCommandForAnAdministrator) {
  EXPECT_EQ(SaidOf(Denied()), kStep);
  ChooseWords(kThisPcWords, kFolderWords);
  EXPECT_EQ(SaidOf(Denied()), kStep);
}

TEST_F(NextSteps, ASongThatIsDeniedDoesSoToo) {
  MoveResult move;
  move.songs.emplace_back();
  move.songs[0].state = MovedSong::State::LeftOut;
  move.songs[0].systemReason = u"permission denied";
  EXPECT_EQ(SaidOf(move), kStep);
  move.songs[0].systemReason = u"another program has it open";
  EXPECT_EQ(SaidOf(move), "");
}

TEST_F(NextSteps, WhereNothingIsDeniedOrBothMachinesAreFoldersNothingIsSaid) {
  EXPECT_EQ(SaidOf({}), "");
  ChooseWords(kFolderWords, kFolderWords);
  EXPECT_EQ(SaidOf(Denied()), "");
}

}  // namespace
}  // namespace norvo::cli
