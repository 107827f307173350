#include "move/RestoredCopies.h"

#include <gtest/gtest.h>

#include "automation/RunTimeError.h"
#include "library/Library.h"
#include "move/MemoryMove.h"
#include "support/MemoryPlatform.h"

namespace norvo {
namespace {

const String kArea = u"C:\\Data\\";
const String kMix = u"C:\\Lists\\Mix.m3u";

class RestoredCopiesTest : public ::testing::Test {
 protected:
  RestoredCopies Read() { return RestoredCopies(*library, kArea); }
  void Note(const std::vector<String>& paths) {
    std::vector<MadeList> lists;
    for (const String& path : paths) lists.push_back(AsItIs(*library, path));
    Read().Add(lists);
  }

  std::shared_ptr<MemoryPlatform> machine = std::make_shared<MemoryPlatform>();
  std::unique_ptr<Component> library = OpenLibrary(machine);
};

TEST_F(RestoredCopiesTest, WithoutAFileThereAreNone) {
  machine->AddFile(kMix, "one");
  EXPECT_FALSE(Read().Has(kMix));
}

TEST_F(RestoredCopiesTest, AListIsKnownUntilItIsChanged) {
  machine->AddFile(kMix, "one");
  Note({kMix});
  EXPECT_TRUE(Read().Has(u"c:\\lists\\MIX.M3U"));
  machine->AddFile(kMix, "two");
  EXPECT_FALSE(Read().Has(kMix));
  Note({kMix});
  EXPECT_TRUE(Read().Has(kMix));
}

TEST_F(RestoredCopiesTest, EarlierOnesStayKnown) {
  const String other = u"C:\\Lists\\\u65e5.m3u";
  machine->AddFile(kMix, "one");
  machine->AddFile(other, "two");
  Note({kMix});
  Note({other});
  EXPECT_TRUE(Read().Has(kMix));
  EXPECT_TRUE(Read().Has(other));
}

TEST_F(RestoredCopiesTest, WhatIsGoneOrCannotBeReadIsNone) {
  machine->AddFile(kMix, "one");
  Note({kMix, u"C:\\Lists\\Gone.m3u"});
  EXPECT_FALSE(Read().Has(u"C:\\Lists\\Gone.m3u"));
  machine->Files().RemoveFile(kMix);
  EXPECT_FALSE(Read().Has(kMix));
}

TEST_F(RestoredCopiesTest, AListIsNotedAsItWasMadeWhateverBecameOfIt) {
  machine->AddFile(kMix, "one");
  const std::vector<MadeList> made{AsItIs(*library, kMix)};
  machine->AddFile(kMix, "two");
  Read().Add(made);
  EXPECT_FALSE(Read().Has(kMix));
  machine->AddFile(kMix, "one");
  EXPECT_TRUE(Read().Has(kMix));
}

TEST_F(RestoredCopiesTest, WhatIsKnownIsNotWrittenAgain) {
  machine->AddFile(kMix, "one");
  Note({kMix});
  machine->Log().Clear();
  Note({kMix});
  EXPECT_EQ(WritesOf(*machine), Lines());
}

TEST_F(RestoredCopiesTest, APathThatWasMadeAnewIsKnownBothWays) {
  machine->AddFile(kMix, "one");
  const MadeList first = AsItIs(*library, kMix);
  machine->AddFile(kMix, "two");
  const MadeList second = AsItIs(*library, kMix);
  Read().Add(std::vector{second, first});
  EXPECT_TRUE(Read().Has(kMix));
  machine->AddFile(kMix, "one");
  EXPECT_TRUE(Read().Has(kMix));
  machine->Log().Clear();
  Read().Add(std::vector{first, second});
  EXPECT_EQ(WritesOf(*machine), Lines());
}

TEST_F(RestoredCopiesTest, ThatTheyCannotBeNotedIsWarnedOf) {
  machine->AddFile(kMix, "one");
  machine->FailOn(u"Settings.Write", 1, error::kDiskFull);
  std::vector<WorkWarning> warnings;
  WorkObserver nobody;
  WorkReport report(nobody, warnings);
  const std::vector<MadeList> made{AsItIs(*library, kMix)};
  NoteCopies(*library, kArea, made, MachineSide::New, report);
  EXPECT_EQ(LinesOf(warnings),
            (Lines{"new: CopiesNotNoted C:\\Data\\RestoredCopies.txt, detail Disk full"}));
  NoteCopies(*library, kArea, made, MachineSide::New, report);
  EXPECT_EQ(warnings.size(), 1u);
  EXPECT_TRUE(Read().Has(kMix));
}

TEST_F(RestoredCopiesTest, ALineWithoutAPrintIsNone) {
  machine->AddFile(kArea + u"RestoredCopies.txt", "\tC:\\Gone.m3u\r\ntorn");
  EXPECT_FALSE(Read().Has(u"C:\\Gone.m3u"));
}

}  // namespace
}  // namespace norvo
