#include "controller/ScanRules.h"

#include "support/TextPrinting.h"

namespace norvo {
namespace {

TEST(ScanRulesTest, TheFoldersThatNoScanEntersAreToldByPatterns) {
  struct {
    StringView name;
    bool skipped;
  } constexpr rows[] = {
      {u"System Volume Information", true},
      {u"SYSTEM volume INFORMATION 2", true},
      {u"My System Volume Information", false},
      {u"System Volume", false},
      {u"Recycle", true},
      {u"RECYCLER", true},
      {u"$Recycle.Bin", true},
      {u"my recycled things", true},
      {u"Recycl", false},
      {u"Temporary Internet Files", true},
      {u"Old TEMPORARY internet files 5", true},
      {u"Temporary Internet File", false},
      {u"Temporary  Internet Files", false},
      {u"Music", false},
      {u"", false},
  };
  for (const auto& row : rows) EXPECT_EQ(IsSkippedFolder(row.name), row.skipped) << Utf8(row.name);
}

TEST(ScanRulesTest, PatternsAreSplitAtCommasAlone) {
  struct {
    StringView list;
    Lines patterns;
  } const rows[] = {
      {u"*.asx,*.m3u,*.pls", {"*.asx", "*.m3u", "*.pls"}},
      {u"*.mp3", {"*.mp3"}},
      {u"", {""}},
      {u",", {"", ""}},
      {u"a,,b,", {"a", "", "b", ""}},
      {u"*.mp3, *.wav;*.wma", {"*.mp3", " *.wav;*.wma"}},
  };
  for (const auto& row : rows) {
    Lines patterns;
    for (const StringView pattern : SplitPatterns(row.list)) patterns.push_back(Utf8(pattern));
    EXPECT_EQ(patterns, row.patterns) << Utf8(row.list);
  }
}

TEST(ScanRulesTest, ANameMatchesWhenOneOfThePatternsDoesWhateverTheCase) {
  constexpr StringView kPatterns[] = {u"*.m3u", u"a?c", u"[0-9]*"};
  struct {
    StringView name;
    bool matches;
  } constexpr rows[] = {{u"MIX.M3U", true}, {u"ABC", true}, {u"7up", true}, {u"mix.m3u8", false},
                        {u"abcd", false},   {u"", false},   {u"up7", false}};
  for (const auto& row : rows) {
    EXPECT_EQ(MatchesAny(row.name, kPatterns), row.matches) << Utf8(row.name);
  }
  EXPECT_FALSE(MatchesAny(u"a", {}));
  constexpr StringView kEmpty[] = {u""};
  EXPECT_FALSE(MatchesAny(u"a", kEmpty));
  EXPECT_TRUE(MatchesAny(u"", kEmpty));
}

}  // namespace
}  // namespace norvo
