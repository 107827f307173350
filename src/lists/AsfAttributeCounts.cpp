#include "lists/AsfAttributeCounts.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace norvo {
namespace {

using namespace std::string_view_literals;

// The extended content description, the metadata and the metadata library.
constexpr std::array kLists = {
    "\x40\xA4\xD0\xD2\x07\xE3\xD2\x11\x97\xF0\x00\xA0\xC9\x5E\xA8\x50"sv,
    "\xEA\xCB\xF8\xC5\xAF\x5B\x77\x48\x84\x67\xAA\x8C\x44\xFA\x4C\xCA"sv,
    "\x94\x1C\x23\x44\x98\x94\xD1\x49\xA1\x41\x1D\x13\x4E\x45\x70\x54"sv};

// The lengths of a name and a value, and a type.
constexpr std::uint64_t kShortestAttribute = 6;

bool IsList(std::string_view identifier) {
  return std::find(kLists.begin(), kLists.end(), identifier) != kLists.end();
}

unsigned CountIn(std::span<const char> block) {
  return static_cast<unsigned char>(block[0]) + 256U * static_cast<unsigned char>(block[1]);
}

void LessenTo(std::uint64_t most, std::span<char> block) {
  const auto count = static_cast<unsigned>(std::min<std::uint64_t>(CountIn(block), most));
  block[0] = static_cast<char>(count & 0xFFU);
  block[1] = static_cast<char>(count >> 8U);
}

}  // namespace

void AsfAttributeCounts::Mend(std::span<char> block, std::uint64_t left) {
  if (IsList({block.data(), block.size()})) {
    next_ = Next::Size;
  } else if (next_ == Next::Size && block.size() == 8) {
    next_ = Next::Count;
  } else {
    if (next_ == Next::Count && block.size() == 2) LessenTo(left / kShortestAttribute, block);
    next_ = Next::Identifier;
  }
}

}  // namespace norvo
