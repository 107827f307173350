#include "lists/AsfAttributeCounts.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>

#include "lists/TaggedSongs.h"

namespace norvo {
namespace {

using songs::LittleEndian;

const std::string kDescription{"\x40\xA4\xD0\xD2\x07\xE3\xD2\x11\x97\xF0\x00\xA0\xC9\x5E\xA8\x50",
                               16};
const std::string kMetadata{"\xEA\xCB\xF8\xC5\xAF[wH\x84g\xAA\x8C\x44\xFAL\xCA", 16};
const std::string kMetadataLibrary{"\x94\x1C#D\x98\x94\xD1I\xA1\x41\x1D\x13NEpT", 16};
const std::string kCodecs{"\x40\x52\xD1\x86\x1D\x31\xD0\x11\xA3\xA4\x00\xA0\xC9\x03\x48\xF6", 16};
const std::string kSize = LittleEndian(60'000, 8);

/// The last of these blocks as it is shown, when so many bytes of the file follow each.
std::string LastOf(std::initializer_list<std::string> blocks, std::uint64_t left) {
  AsfAttributeCounts counts;
  std::string last;
  for (const std::string& block : blocks) {
    last = block;
    counts.Mend(last, left);
  }
  return last;
}

TEST(AsfAttributeCounts, NoListClaimsMoreThanTheRestOfTheFileHasRoomFor) {
  const std::string most = LittleEndian(65535, 2);
  for (const std::string& list : {kDescription, kMetadata, kMetadataLibrary}) {
    EXPECT_EQ(LastOf({list, kSize, most}, 6'000), LittleEndian(1'000, 2));
    EXPECT_EQ(LastOf({list, kSize, most}, 11), LittleEndian(1, 2));
    EXPECT_EQ(LastOf({list, kSize, most}, 5), LittleEndian(0, 2));
    EXPECT_EQ(LastOf({list, kSize, most}, 1 << 30), most);
  }
}

TEST(AsfAttributeCounts, ACountThatFitsStays) {
  EXPECT_EQ(LastOf({kDescription, kSize, LittleEndian(300, 2)}, 1'800), LittleEndian(300, 2));
  EXPECT_EQ(LastOf({kDescription, kSize, LittleEndian(300, 2)}, 1'799), LittleEndian(299, 2));
}

TEST(AsfAttributeCounts, WhatIsNoCountOfAttributesStays) {
  const std::string most = LittleEndian(65535, 2);
  EXPECT_EQ(LastOf({kCodecs, kSize, most}, 0), most);
  EXPECT_EQ(LastOf({kDescription, most}, 0), most);
  EXPECT_EQ(LastOf({kDescription, kSize, kSize, most}, 0), most);
  EXPECT_EQ(LastOf({kDescription, kSize, LittleEndian(65535, 4)}, 0), LittleEndian(65535, 4));
  EXPECT_EQ(LastOf({kDescription, kSize, most, most}, 0), most);
  EXPECT_EQ(LastOf({kDescription, kSize, ""}, 0), "");
}

}  // namespace
}  // namespace norvo
