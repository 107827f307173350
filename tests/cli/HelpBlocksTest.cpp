#include "cli/HelpBlocks.h"

#include <gtest/gtest.h>

namespace norvo::cli {
namespace {

TEST(HelpBlocksTest, LinesOfAParagraphAreOneTextWhereverTheyAreBroken) {
  const auto blocks = HelpBlocks("One\ntwo.\n\nThree.");
  ASSERT_EQ(blocks.size(), 2u);
  EXPECT_EQ(blocks[0].text, "One two.");
  EXPECT_EQ(blocks[1].text, "Three.");
  EXPECT_TRUE(blocks[1].startsParagraph);
}

TEST(HelpBlocksTest, ALineThatBeginsWithABlankStaysAsItIs) {
  const auto blocks = HelpBlocks("Examples:\n  run  this\n  and that\nbehind\n\n  alone");
  ASSERT_EQ(blocks.size(), 5u);
  EXPECT_FALSE(blocks[0].isLiteral);
  EXPECT_TRUE(blocks[1].isLiteral);
  EXPECT_EQ(blocks[1].text, "  run  this");
  EXPECT_FALSE(blocks[1].startsParagraph);
  EXPECT_EQ(blocks[2].text, "  and that");
  EXPECT_FALSE(blocks[3].isLiteral);
  EXPECT_FALSE(blocks[3].startsParagraph);
  EXPECT_TRUE(blocks[4].startsParagraph);
}

TEST(HelpBlocksTest, NothingHasNoBlocks) {
  EXPECT_TRUE(HelpBlocks("").empty());
  EXPECT_TRUE(HelpBlocks("\n\n").empty());
}

}  // namespace
}  // namespace norvo::cli
