#include <gtest/gtest.h>

#include <memory>

#include "overlay/OverlayPlatform.h"
#include "support/MemoryPlatform.h"

namespace norvo {
namespace {

/// What an overlay remembers of the machine below, which so need not be asked twice.
class OverlayMemoryTest : public ::testing::Test {
 protected:
  void SetUp() override {
    machine->AddFile(u"C:\\Music\\One.mp3", "one");
    overlay.Remember();
    calls.Clear();
  }

  bool IsThere(StringView path) { return overlay.Files().FactsOf(path).has_value(); }

  std::shared_ptr<MemoryPlatform> machine = std::make_shared<MemoryPlatform>();
  CallLog& calls = machine->Log();
  OverlayPlatform overlay{machine};
};

TEST_F(OverlayMemoryTest, InAFolderThatIsNotThereNothingIsAskedForOnceThatIsKnown) {
  EXPECT_FALSE(IsThere(u"C:\\Old\\Ann\\Hits\\One.mp3"));
  calls.Clear();
  EXPECT_FALSE(IsThere(u"C:\\Old\\Ann\\Hits\\Two.mp3"));
  EXPECT_FALSE(IsThere(u"c:\\OLD\\Bob\\Songs\\One.mp3"));
  EXPECT_FALSE(overlay.Files().FolderExists(u"C:\\Old\\Bob"));
  EXPECT_EQ(calls.Total(), 0u);

  machine->AddFile(u"C:\\Old\\Bob\\Songs\\One.mp3", "one");
  overlay.Forget();
  EXPECT_TRUE(IsThere(u"C:\\Old\\Bob\\Songs\\One.mp3"));
}

TEST_F(OverlayMemoryTest, InAFolderThatIsThereEachFileIsAskedForOnce) {
  EXPECT_FALSE(IsThere(u"C:\\Music\\Two.mp3"));
  EXPECT_TRUE(IsThere(u"C:\\Music\\One.mp3"));
  calls.Clear();
  EXPECT_FALSE(IsThere(u"C:\\Music\\Two.mp3"));
  EXPECT_TRUE(IsThere(u"C:\\MUSIC\\one.mp3"));
  EXPECT_EQ(calls.Total(), 0u);
}

TEST_F(OverlayMemoryTest, AFolderThatIsOverlookedForAMomentIsThere) {
  for (std::size_t k = 1; k <= 3; ++k) {
    overlay.Forget();
    calls.OverlookAt(k);
    EXPECT_FALSE(IsThere(u"C:\\Music\\Two.mp3")) << k;
    calls.StopFailing();
    EXPECT_TRUE(overlay.Files().FolderExists(u"C:\\Music")) << k;
    EXPECT_TRUE(IsThere(u"C:\\Music\\One.mp3")) << k;
  }
}

TEST_F(OverlayMemoryTest, AFileThatIsOverlookedForAMomentIsThere) {
  calls.OverlookAt(1);
  EXPECT_TRUE(IsThere(u"C:\\Music\\One.mp3"));
}

TEST_F(OverlayMemoryTest, WhatIsWrittenOrPretendedInSuchAFolderIsThere) {
  EXPECT_FALSE(IsThere(u"C:\\New\\Ann\\One.mp3"));
  overlay.Pretend(u"C:\\New\\Ann\\One.mp3", {u"One.mp3", 3, 0, 0});
  EXPECT_TRUE(IsThere(u"C:\\New\\Ann\\One.mp3"));
  overlay.Settings().Write(u"C:\\New\\List.ini", "bytes");
  EXPECT_TRUE(IsThere(u"C:\\New\\List.ini"));
  EXPECT_TRUE(overlay.Files().FolderExists(u"C:\\New"));
}

TEST_F(OverlayMemoryTest, WithoutTheWishAllIsAskedForAnew) {
  OverlayPlatform other{machine};
  EXPECT_FALSE(other.Files().FileExists(u"C:\\Old\\One.mp3"));
  machine->AddFile(u"C:\\Old\\One.mp3", "one");
  EXPECT_TRUE(other.Files().FileExists(u"C:\\Old\\One.mp3"));
}

}  // namespace
}  // namespace norvo
