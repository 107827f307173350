#include "overlay/PackedBytes.h"

#include <cstdint>
#include <vector>

namespace norvo {
namespace {

// The text is told in pairs: so many bytes as they are, and then so many that stand so far before.
// Each number is in groups of seven bits, the lowest first, the last one without the eighth bit.

constexpr std::size_t kLeastMatch = 6;  // what is shorter takes no less room as a match
constexpr std::size_t kSlotBits = 15;   // of the table of what stands where

void AppendNumber(std::string& packed, std::size_t number) {
  for (; number >= 0x80; number >>= 7U) packed.push_back(static_cast<char>(0x80U | number));
  packed.push_back(static_cast<char>(number));
}

std::size_t TakeNumber(std::string_view& packed) {
  std::size_t number = 0;
  for (unsigned shift = 0;; shift += 7) {
    const auto byte = static_cast<unsigned char>(packed.front());
    packed.remove_prefix(1);
    number |= static_cast<std::size_t>(byte & 0x7FU) << shift;
    if (byte < 0x80) return number;
  }
}

/// Of the first `kLeastMatch` bytes.
std::size_t SlotOf(std::string_view bytes) {
  std::uint64_t word = 0;
  for (std::size_t i = 0; i < kLeastMatch; ++i) {
    word = word << 8U | static_cast<unsigned char>(bytes[i]);
  }
  return static_cast<std::size_t>((word * 0x9E3779B97F4A7C15U) >> (64 - kSlotBits));
}

std::size_t CommonLength(std::string_view left, std::string_view right) {
  std::size_t length = 0;
  while (length < right.size() && left[length] == right[length]) ++length;
  return length;
}

}  // namespace

PackedBytes::PackedBytes(std::string_view bytes) : size_(bytes.size()) {
  std::vector<std::size_t> last(std::size_t{1} << kSlotBits);  // where it was met, counted from 1
  std::size_t told = 0;
  std::size_t at = 0;
  while (bytes.size() - at >= kLeastMatch) {
    std::size_t& known = last[SlotOf(bytes.substr(at))];
    const std::size_t before = known;
    known = at + 1;
    const std::size_t length =
        before == 0 ? 0 : CommonLength(bytes.substr(before - 1), bytes.substr(at));
    if (length < kLeastMatch) {
      ++at;
      continue;
    }
    AppendNumber(packed_, at - told);
    packed_.append(bytes.substr(told, at - told));
    AppendNumber(packed_, length);
    AppendNumber(packed_, at - (before - 1));
    told = at += length;
  }
  AppendNumber(packed_, size_ - told);
  packed_.append(bytes.substr(told));
  packed_.shrink_to_fit();
}

std::string PackedBytes::Bytes() const {
  std::string bytes;
  bytes.reserve(size_);
  std::string_view rest = packed_;
  while (bytes.size() < size_) {
    const std::size_t plain = TakeNumber(rest);
    bytes.append(rest.substr(0, plain));
    rest.remove_prefix(plain);
    if (bytes.size() == size_) break;
    std::size_t length = TakeNumber(rest);
    // A match may reach into what it tells itself.
    for (std::size_t from = bytes.size() - TakeNumber(rest); length > 0; --length) {
      bytes.push_back(bytes[from++]);
    }
  }
  return bytes;
}

}  // namespace norvo
