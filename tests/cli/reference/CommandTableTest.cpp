#include "cli/reference/CommandTable.h"

#include <gtest/gtest.h>

#include <CLI/CLI.hpp>

namespace norvo::cli {
namespace {

class CommandTableTest : public ::testing::Test {
 protected:
  CommandTableTest() : app_("About.", "norvo-playlists") {
    command_ = app_.add_subcommand("show", "Show");
    command_->footer("Behind.");
  }
  /// Of the only option beside the help's.
  OptionRow Row() const { return CommandTableOf(app_).commands.at(0).options.at(1); }

  CLI::App app_;
  CLI::App* command_ = nullptr;
  std::string value_;
  bool flag_ = false;
};

TEST_F(CommandTableTest, HasTheCommandsWithTheirTexts) {
  const CommandTable table = CommandTableOf(app_);
  EXPECT_EQ(table.program.text, "About.");
  ASSERT_EQ(table.commands.size(), 1u);
  EXPECT_EQ(table.commands[0].name, "show");
  EXPECT_EQ(table.commands[0].text, "Show");
  EXPECT_EQ(table.commands[0].help, "Behind.");
  EXPECT_EQ(NamesOf(table.commands[0].options), (std::vector<std::string>{"-h", "--help"}));
}

TEST_F(CommandTableTest, AFlagTakesNoValue) {
  command_->add_flag("--log", flag_, "Log");
  EXPECT_FALSE(Row().TakesValue());
  EXPECT_EQ(Row().text, "Log");
  EXPECT_FALSE(Row().isRequired);
  EXPECT_FALSE(Row().isRepeatable);
}

TEST_F(CommandTableTest, AFolderIsOfferedForOne) {
  command_->add_option("--machine", value_)->type_name("DIR")->required();
  EXPECT_EQ(Row().value, "DIR");
  EXPECT_EQ(Row().offer, Offer::Folders);
  EXPECT_TRUE(Row().isRequired);
}

TEST_F(CommandTableTest, ChoicesAreOffered) {
  command_->add_option("--role", value_)
      ->type_name("ROLE")
      ->check(CLI::IsMember({"source", "destination"}));
  EXPECT_EQ(Row().value, "ROLE");
  EXPECT_EQ(Row().offer, Offer::Choices);
  EXPECT_EQ(Row().choices, (std::vector<std::string>{"source", "destination"}));
}

TEST_F(CommandTableTest, APathOfAnotherMachineIsNotOffered) {
  command_->add_option("--documents", value_)->type_name("PATH");
  EXPECT_EQ(Row().offer, Offer::Nothing);
}

TEST_F(CommandTableTest, AnOptionThatMayComeAgainIsToldAsSuch) {
  std::vector<std::string> values;
  command_->add_option("--drive", values)->type_name("LETTER=DIR")->allow_extra_args(false);
  EXPECT_TRUE(Row().isRepeatable);
}

TEST_F(CommandTableTest, APlainWordIsAFile) {
  command_->add_option("PATH", value_)->required();
  const CommandRow row = CommandTableOf(app_).commands.at(0);
  ASSERT_EQ(row.words.size(), 1u);
  EXPECT_EQ(row.words[0].names, std::vector<std::string>{"PATH"});
  EXPECT_EQ(row.words[0].offer, Offer::Files);
}

TEST_F(CommandTableTest, OptionsThatDoNotGoTogetherAreNamed) {
  CLI::Option* const copy = command_->add_flag("--copy", flag_);
  copy->excludes(command_->add_flag("--link", flag_));
  EXPECT_EQ(Row().excludes, std::vector<std::string>{"--link"});
}

}  // namespace
}  // namespace norvo::cli
