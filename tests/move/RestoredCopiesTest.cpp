#include "move/RestoredCopies.h"

#include <gtest/gtest.h>

#include "library/Library.h"
#include "support/MemoryPlatform.h"

namespace norvo {
namespace {

const String kArea = u"C:\\Data\\";
const String kMix = u"C:\\Lists\\Mix.m3u";

class RestoredCopiesTest : public ::testing::Test {
 protected:
  RestoredCopies Read() { return RestoredCopies(*library, kArea); }

  std::shared_ptr<MemoryPlatform> machine = std::make_shared<MemoryPlatform>();
  std::unique_ptr<Component> library = OpenLibrary(machine);
};

TEST_F(RestoredCopiesTest, WithoutAFileThereAreNone) {
  machine->AddFile(kMix, "one");
  EXPECT_FALSE(Read().Has(kMix));
}

TEST_F(RestoredCopiesTest, AListIsKnownUntilItIsChanged) {
  machine->AddFile(kMix, "one");
  Read().Add({kMix});
  EXPECT_TRUE(Read().Has(u"c:\\lists\\MIX.M3U"));
  machine->AddFile(kMix, "two");
  EXPECT_FALSE(Read().Has(kMix));
  Read().Add({kMix});
  EXPECT_TRUE(Read().Has(kMix));
}

TEST_F(RestoredCopiesTest, EarlierOnesStayKnown) {
  const String other = u"C:\\Lists\\\u65e5.m3u";
  machine->AddFile(kMix, "one");
  machine->AddFile(other, "two");
  Read().Add({kMix});
  Read().Add({other});
  EXPECT_TRUE(Read().Has(kMix));
  EXPECT_TRUE(Read().Has(other));
}

TEST_F(RestoredCopiesTest, WhatIsGoneOrCannotBeReadIsNone) {
  machine->AddFile(kMix, "one");
  Read().Add({kMix, u"C:\\Lists\\Gone.m3u"});
  EXPECT_FALSE(Read().Has(u"C:\\Lists\\Gone.m3u"));
  machine->Files().RemoveFile(kMix);
  EXPECT_FALSE(Read().Has(kMix));
}

TEST_F(RestoredCopiesTest, ALineWithoutAPrintIsNone) {
  machine->AddFile(kArea + u"RestoredCopies.txt", "\tC:\\Gone.m3u\r\ntorn");
  EXPECT_FALSE(Read().Has(u"C:\\Gone.m3u"));
}

}  // namespace
}  // namespace norvo
