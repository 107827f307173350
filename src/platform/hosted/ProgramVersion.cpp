#include "platform/hosted/ProgramVersion.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "text/Number.h"

namespace norvo {
namespace {

// The fixed part of the version resource begins with this mark (0xFEEF04BD); its version words
// stand in the third and fourth 32-bit word.
constexpr std::string_view kMark = "\xBD\x04\xEF\xFE";
constexpr std::size_t kVersionOffset = 8;
constexpr std::size_t kPartLength = 16;

constexpr std::size_t kPiece = 256 * 1024;
// A program larger than this is a package; its version is not worth the reading.
constexpr std::uint64_t kMostOfProgram = 64 * 1024 * 1024;

std::uint32_t WordAt(std::string_view bytes, std::size_t at) {
  std::uint32_t word = 0;
  for (std::size_t i = 4; i-- > 0;) word = word << 8 | static_cast<unsigned char>(bytes[at + i]);
  return word;
}

bool IsProgram(BinaryFile& file) {
  constexpr std::size_t kHeader = 64;
  constexpr std::size_t kSignatureAt = 60;
  std::array<char, kHeader> header{};
  const std::string_view bytes(header.data(), file.ReadAt(0, header));
  if (bytes.size() < kHeader || !bytes.starts_with("MZ")) return false;
  std::array<char, 4> signature{};
  const std::size_t got = file.ReadAt(WordAt(bytes, kSignatureAt), signature);
  return std::string_view(signature.data(), got) == std::string_view("PE\0\0", 4);
}

String VersionText(std::uint32_t high, std::uint32_t low) {
  String text;
  for (const std::uint32_t number : {high >> 16, high & 0xFFFF, low >> 16, low & 0xFFFF}) {
    if (!text.empty()) text.push_back(u'.');
    text += FormatInteger(number);
  }
  return text;
}

}  // namespace

String ProgramVersion(BinaryFile& file) {
  if (!IsProgram(file)) return {};
  std::string window;  // the end of the piece before, then the piece
  for (std::uint64_t offset = 0; offset < kMostOfProgram;) {
    const std::size_t kept = window.size();
    window.resize(kept + kPiece);
    const std::size_t got = file.ReadAt(offset, std::span(window).subspan(kept));
    window.resize(kept + got);
    const std::size_t mark = window.find(kMark);
    if (mark != std::string::npos && mark + kPartLength <= window.size()) {
      const std::size_t version = mark + kVersionOffset;
      return VersionText(WordAt(window, version), WordAt(window, version + 4));
    }
    if (got < kPiece) break;
    offset += got;
    window.erase(0, window.size() - (kPartLength - 1));
  }
  return {};
}

}  // namespace norvo
