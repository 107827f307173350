#include "cli/Terminal.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>

namespace norvo::cli {
namespace {

/// A setting of the process as long as a test needs it.
class Environment {
 public:
  Environment(const char* name, const char* value) : name_(name) {
    const char* const before = std::getenv(name);
    had_ = before != nullptr;
    if (had_) before_ = before;
    ::setenv(name, value, 1);
  }
  ~Environment() { had_ ? ::setenv(name_, before_.c_str(), 1) : ::unsetenv(name_); }
  Environment(const Environment&) = delete;
  Environment& operator=(const Environment&) = delete;

 private:
  const char* name_;
  bool had_ = false;
  std::string before_;
};

std::size_t WidthWith(const char* columns) {
  const Environment environment("COLUMNS", columns);
  return LineWidth(std::ostringstream());
}

TEST(Terminal, WhatIsNoTerminalHasEightyColumnsUnlessOthersAreAskedFor) {
  EXPECT_EQ(WidthWith(""), 80u);
  EXPECT_EQ(WidthWith("200"), 200u);
  EXPECT_EQ(WidthWith("many"), 80u);
  EXPECT_EQ(WidthWith("120x"), 80u);
  EXPECT_EQ(WidthWith("-5"), 80u);
  EXPECT_EQ(WidthWith("0"), 80u);
  EXPECT_EQ(WidthWith("99999999999999999999999"), 80u);
}

TEST(Terminal, ALineIsNeverTooNarrowForWords) {
  EXPECT_EQ(WidthWith("3"), 30u);
}

TEST(Terminal, WhatIsNoTerminalTakesNoColour) {
  EXPECT_FALSE(IsTerminal(std::ostringstream()));
  EXPECT_FALSE(TakesColour(std::ostringstream()));
}

}  // namespace
}  // namespace norvo::cli
