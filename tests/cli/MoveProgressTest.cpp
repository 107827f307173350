#include "cli/MoveProgress.h"

#include <gtest/gtest.h>

#include <sstream>

namespace norvo::cli {
namespace {

std::string Drawn(const WorkProgress& work) {
  std::ostringstream terminal;
  Progress bar(terminal, true);
  ShowProgress(work, bar);
  return terminal.str().substr(std::string("\r\x1B[K").size());
}

TEST(MoveProgress, WorkOfUnknownLengthCountsItsFolders) {
  EXPECT_EQ(Drawn({WorkPhase::TakingStock, 12, 0, 0, 0, u"C:\\Music"}),
            "taking stock, folder 12 C:\\Music");
  EXPECT_EQ(Drawn({WorkPhase::Scanning, 3, 0, 0, 0, u"C:\\"}),
            "looking for playlists, folder 3 C:\\");
}

TEST(MoveProgress, WorkOfKnownLengthHasABar) {
  EXPECT_EQ(Drawn({WorkPhase::Counting, 6, 10, 0, 0, u"Mix.m3u"}),
            "[##########..........] checking all 6 of 10 Mix.m3u");
  EXPECT_EQ(Drawn({WorkPhase::BringingSongs, 1, 2, 1e6, 2e6, u"x"}),
            "[##########..........] bringing songs 1.0 of 2.0 MB ");
}

}  // namespace
}  // namespace norvo::cli
