#include "cli/Progress.h"

#include <gtest/gtest.h>

#include <sstream>

#include "cli/TerminalText.h"

namespace norvo::cli {
namespace {

const std::string kClear = "\r\x1B[K";

/// What a terminal is sent by one call; no terminal is there, so it counts as 80 cells wide.
template <class Work>
std::string Drawn(Work&& work, bool on = true) {
  std::ostringstream terminal;
  Progress progress(terminal, on);
  work(progress);
  return terminal.str();
}

TEST(ProgressTest, BytesAreToldInMegabytes) {
  const std::string line =
      Drawn([](Progress& bar) { bar.Bytes("copying", 1'250'000, 2'500'000, u"C:\\One.mp3"); });
  EXPECT_EQ(line, kClear + "[##########..........] copying 1.2 of 2.5 MB C:\\One.mp3");
}

TEST(ProgressTest, NoTimeIsToldAtFirst) {
  const std::string line = Drawn([](Progress& bar) {
    bar.Bytes("copying", 1e6, 4e9, u"");
    bar.Bytes("copying", 2e6, 4e9, u"");
  });
  EXPECT_EQ(line.find("left"), std::string::npos) << line;
}

TEST(ProgressTest, TheRestTakesAsLongAsTheSameShareHasTaken) {
  struct Row {
    double done;
    double total;
    double elapsed;
    const char* text;
  };
  const Row rows[] = {{0, 100, 10, ""},  // nothing to judge by
                      {-1, 100, 10, ""},
                      {50, 100, 0.9, ""},  // too early
                      {50, 100, 1, ", 0:01 left"},
                      {10, 100, 1.5, ", 0:13 left"},
                      {50, 100, 65, ", 1:05 left"},
                      {1, 3601, 0.9999, ""},
                      {1, 3600, 1, ", 59:59 left"},
                      {1, 3601, 1, ", 1:00:00 left"},
                      {1, 3662, 1, ", 1:01:01 left"},
                      {1, 360000, 1, ", 99:59:59 left"},
                      {1, 1e18, 1e6, ", 99:59:59 left"},
                      {100, 100, 5, ", 0:00 left"},
                      {300, 100, 5, ", 0:00 left"}};  // it has grown meanwhile
  for (const Row& row : rows) {
    EXPECT_EQ(TimeLeft(row.done, row.total, row.elapsed), row.text)
        << row.done << " of " << row.total << " in " << row.elapsed;
  }
}

TEST(ProgressTest, TheBarNeverLeavesItsFrame) {
  EXPECT_EQ(Drawn([](Progress& bar) { bar.Bytes("copying", 0, 1e6, u""); }),
            kClear + "[....................] copying 0.0 of 1.0 MB ");
  EXPECT_EQ(Drawn([](Progress& bar) { bar.Bytes("copying", 1e6, 1e6, u""); }),
            kClear + "[####################] copying 1.0 of 1.0 MB ");
  // A file may grow while it is copied.
  EXPECT_EQ(Drawn([](Progress& bar) { bar.Bytes("copying", 3e6, 1e6, u""); }),
            kClear + "[####################] copying 3.0 of 1.0 MB ");
}

TEST(ProgressTest, NothingToDoDrawsNothing) {
  EXPECT_EQ(Drawn([](Progress& bar) { bar.Bytes("copying", 0, 0, u"x"); }), "");
  EXPECT_EQ(Drawn([](Progress& bar) { bar.Advance("reading", 1, 0, u"x"); }), "");
}

TEST(ProgressTest, OffItDrawsNothing) {
  const auto all = [](Progress& bar) {
    bar.Count("folders", 1, u"x");
    bar.Advance("reading", 1, 2, u"x");
    bar.Bytes("copying", 1, 2, u"x");
    bar.Clear();
  };
  EXPECT_EQ(Drawn(all, false), "");
  EXPECT_EQ(Drawn([&](Progress& bar) {
              bar.TurnOff();
              all(bar);
            }),
            "");
}

TEST(ProgressTest, ASecondLineWithinATenthOfASecondWaits) {
  std::ostringstream terminal;
  Progress progress(terminal, true);
  // Far more calls than there are tenths of a second in their time.
  for (int i = 1; i <= 1000; ++i) progress.Bytes("copying", i, 1000, u"x");
  const std::string drawn = terminal.str();
  std::size_t lines = 0;
  for (std::size_t at = drawn.find(kClear); at != std::string::npos;
       at = drawn.find(kClear, at + 1)) {
    ++lines;
  }
  EXPECT_LT(lines, 500u);
}

TEST(ProgressTest, OfALongPathTheEndIsShown) {
  const std::string line =
      Drawn([](Progress& bar) { bar.Bytes("copying", 0, 1e6, String(200, u'x') + u"\\One.mp3"); });
  EXPECT_EQ(DisplayWidth(line.substr(kClear.size())), 79u) << line;
  EXPECT_TRUE(line.ends_with("xx\\One.mp3")) << line;
}

TEST(ProgressTest, TheLineIsTakenAwayOnce) {
  std::ostringstream terminal;
  {
    Progress progress(terminal, true);
    progress.Bytes("copying", 0, 1e6, u"x");
    terminal.str("");
    progress.Clear();
    EXPECT_EQ(terminal.str(), kClear);
    progress.Clear();
  }
  EXPECT_EQ(terminal.str(), kClear);
}

}  // namespace
}  // namespace norvo::cli
