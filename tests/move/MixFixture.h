#pragma once

#include "move/MoveFixture.h"

namespace norvo {

/// On the old machine is one playlist of two songs.
class MixTest : public MoveTest {
 protected:
  void SetUp() override {
    MoveTest::SetUp();
    AddSong(kOne);
    AddSong(kTwo);
    WriteOld(kMix, M3u({kOne, kTwo}));
  }
};

}  // namespace norvo
