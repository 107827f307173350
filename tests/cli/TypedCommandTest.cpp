#include "cli/TypedCommand.h"

#include <gtest/gtest.h>

namespace norvo::cli {
namespace {

TEST(TypedCommand, StandsInAMessageAsItIsTypedOnWindows) {
  const struct {
    std::vector<std::string> words;
    const char* shown;
  } rows[] = {
      {{"migrate", "--from", "E:\\Move"}, "norvo-playlists migrate --from E:\\Move"},
      {{"migrate", "--from", "E:\\"}, "norvo-playlists migrate --from E:\\"},
      {{"migrate", "--from", "E:\\Old PC"}, "norvo-playlists migrate --from \"E:\\Old PC\""},
      {{"migrate", "--from", "E:\\Old PC\\"}, "norvo-playlists migrate --from \"E:\\Old PC\\\\\""},
      {{"migrate", "--from", "Rock&Pop"}, "norvo-playlists migrate --from \"Rock&Pop\""},
      {{"show", ""}, "norvo-playlists show \"\""},
  };
  for (const auto& row : rows) {
    KnowCommand(row.words);
    EXPECT_EQ(WithCommand("Run this: {command}, then go on."),
              "Run this: " + std::string(row.shown) + ", then go on.");
  }
}

TEST(TypedCommand, AMessageWithoutItStaysAsItIs) {
  EXPECT_EQ(WithCommand("Connect the disk."), "Connect the disk.");
}

}  // namespace
}  // namespace norvo::cli
