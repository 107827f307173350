#include "cli/NearestWord.h"

#include <gtest/gtest.h>

namespace norvo::cli {
namespace {

const std::vector<std::string> kKnown = {"--machine", "--log", "--json", "--quiet", "--to"};

struct WordRow {
  const char* word;
  const char* nearest;
};

TEST(NearestWord, IsTheOneWithTheFewestWrongLetters) {
  const WordRow rows[] = {{"--machne", "--machine"},    // one left out
                          {"--machiine", "--machine"},  // one too many
                          {"--mashine", "--machine"},   // one changed
                          {"--JSON", "--json"},         // case alone
                          {"--qiuet", "--quiet"},       // two exchanged
                          {"--log", "--log"}};
  for (const WordRow& row : rows) EXPECT_EQ(NearestWord(row.word, kKnown), row.nearest) << row.word;
}

TEST(NearestWord, IsTheOneThatAWordIsTheStartOf) {
  EXPECT_EQ(NearestWord("--mach", kKnown), "--machine");
  EXPECT_EQ(NearestWord("--q", kKnown), "--quiet");
}

TEST(NearestWord, OfEquallyNearOnesTheFirstCounts) {
  EXPECT_EQ(NearestWord("--jog", {"--log", "--jag"}), "--log");
}

TEST(NearestWord, IsNoneWhereMoreThanHalfOfTheLettersAreWrong) {
  EXPECT_EQ(NearestWord("--abcd", {"--abxy"}), "--abxy");
  EXPECT_EQ(NearestWord("--abcd", {"--axyz"}), "");
  EXPECT_EQ(NearestWord("--xy", kKnown), "");
}

TEST(NearestWord, OfNoWordThereIsNone) {
  for (const char* const word : {"", "-", "--"}) EXPECT_EQ(NearestWord(word, kKnown), "") << word;
  EXPECT_EQ(NearestWord("--log", {}), "");
  EXPECT_EQ(NearestWord(std::string(41, 'a'), {std::string(41, 'b') + 'a'}), "");
  EXPECT_EQ(NearestWord(std::string(40, 'a'), {std::string(41, 'a')}), std::string(41, 'a'));
  EXPECT_EQ(NearestWord(std::string(41, 'a'), {std::string(41, 'a')}), "");
}

}  // namespace
}  // namespace norvo::cli
