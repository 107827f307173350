#include "services/FolderWalk.h"

#include "support/LibraryTest.h"

namespace norvo {
namespace {

/// Notes what a walk tells, one line per call.
class Notes final : public FolderVisitor {
 public:
  bool Skips(StringView name) override { return EqualsIgnoreCase(name, skipped); }
  bool EnterFolder(StringView folder) override {
    lines.push_back("enter " + Utf8(folder));
    return !EqualsIgnoreCase(folder, refused);
  }
  void VisitFile(StringView folder, StringView name) override {
    lines.push_back("file " + Utf8(folder) + " | " + Utf8(name));
  }
  void CannotList(StringView folder, const RunTimeError& failure) override {
    if (raises) throw failure;
    lines.push_back("failed " + Utf8(folder) + " | " + std::to_string(failure.Number()));
  }

  Lines lines;
  String skipped;
  String refused;
  bool raises = false;
};

class FolderWalkTest : public LibraryTest {
 protected:
  const Lines& Walk(StringView root, std::span<const StringView> endings = {}) {
    notes.lines.clear();
    WalkFolders(platform->Files(), root, endings, notes);
    return notes.lines;
  }
  void AddFiles(const std::vector<StringView>& paths) {
    for (const StringView path : paths) platform->AddFile(path, "x");
  }

  Notes notes;
};

TEST_F(FolderWalkTest, FilesComeBeforeSubFoldersAndAFolderWithAllBelowBeforeTheNext) {
  AddFiles({u"C:\\r\\b\\y", u"C:\\r\\A\\deep\\z", u"C:\\r\\A\\x", u"C:\\r\\D", u"C:\\r\\c"});
  const Lines expected{"enter C:\\r\\",
                       "file C:\\r\\ | c",
                       "file C:\\r\\ | D",
                       "enter C:\\r\\A\\",
                       "file C:\\r\\A\\ | x",
                       "enter C:\\r\\A\\deep\\",
                       "file C:\\r\\A\\deep\\ | z",
                       "enter C:\\r\\b\\",
                       "file C:\\r\\b\\ | y"};
  EXPECT_EQ(Walk(u"C:\\r"), expected);
  EXPECT_EQ(Walk(u"C:\\r\\"), expected);
}

TEST_F(FolderWalkTest, OnlyFilesWithTheEndingsAreVisited) {
  AddFiles({u"C:\\r\\a.M3U", u"C:\\r\\b.pls", u"C:\\r\\c.mp3", u"C:\\r\\m3u"});
  constexpr StringView kEndings[] = {u".m3u", u".pls"};
  EXPECT_EQ(Walk(u"C:\\r", kEndings),
            Lines({"enter C:\\r\\", "file C:\\r\\ | a.M3U", "file C:\\r\\ | b.pls"}));
}

TEST_F(FolderWalkTest, ASkippedFolderIsNotEnteredUnlessTheWalkBeginsThere) {
  AddFiles({u"C:\\Skip\\Skip\\a", u"C:\\Skip\\b\\c"});
  notes.skipped = u"skip";
  EXPECT_EQ(Walk(u"C:\\Skip"),
            Lines({"enter C:\\Skip\\", "enter C:\\Skip\\b\\", "file C:\\Skip\\b\\ | c"}));
}

TEST_F(FolderWalkTest, ARefusedFolderIsNotListedNorAnythingBelow) {
  AddFiles({u"C:\\r\\a\\b\\c", u"C:\\r\\d"});
  notes.refused = u"C:\\r\\a\\";
  EXPECT_EQ(Walk(u"C:\\r"), Lines({"enter C:\\r\\", "file C:\\r\\ | d", "enter C:\\r\\a\\"}));
  EXPECT_EQ(platform->Calls(u"ListFolder"), 1u);
}

TEST_F(FolderWalkTest, AFolderThatCannotBeListedIsToldAndTheWalkGoesOn) {
  AddFiles({u"C:\\r\\a\\x", u"C:\\r\\b\\y"});
  platform->Files().Deny(u"C:\\r\\a");
  EXPECT_EQ(Walk(u"C:\\r"), Lines({"enter C:\\r\\", "enter C:\\r\\a\\", "failed C:\\r\\a\\ | 70",
                                   "enter C:\\r\\b\\", "file C:\\r\\b\\ | y"}));
}

TEST_F(FolderWalkTest, AShortageOfMemoryIsToldAsErrorSeven) {
  AddFiles({u"C:\\r\\x"});
  platform->Log().RunOutOfMemoryAt(1);
  EXPECT_EQ(Walk(u"C:\\r"), Lines({"enter C:\\r\\", "failed C:\\r\\ | 7"}));
}

TEST_F(FolderWalkTest, AVisitorThatRaisesEndsTheWalk) {
  AddFiles({u"C:\\r\\a\\x", u"C:\\r\\b\\y"});
  platform->Files().Deny(u"C:\\r\\a");
  notes.raises = true;
  EXPECT_THROW(Walk(u"C:\\r"), RunTimeError);
  EXPECT_EQ(notes.lines, Lines({"enter C:\\r\\", "enter C:\\r\\a\\"}));
}

}  // namespace
}  // namespace norvo
