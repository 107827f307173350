#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace norvo {

using SizeBytes = std::array<unsigned char, 4>;

/// The size bytes that the reader's weights (65536, 4096, 256, 1) turn into `size`. Of a multiple
/// of 65536 at most 32767 bytes can be added.
inline SizeBytes SizeBytesOf(std::size_t size) {
  const std::size_t low = size % 65536;
  return {static_cast<unsigned char>(size / 65536), static_cast<unsigned char>(low / 4096),
          static_cast<unsigned char>(low % 4096 / 256), static_cast<unsigned char>(low % 256)};
}

/// Id, size and two flag bytes.
inline std::string FrameHeader(std::string_view id, const SizeBytes& size) {
  std::string bytes(id);
  for (const unsigned char byte : size) bytes.push_back(static_cast<char>(byte));
  return bytes + std::string(2, '\0');
}

/// A frame with everything behind its header.
inline std::string Frame(std::string_view id, std::string_view content) {
  return FrameHeader(id, SizeBytesOf(content.size())) + std::string(content);
}

/// A frame of an encoding byte 0 and a text.
inline std::string TextFrame(std::string_view id, std::string_view text) {
  return Frame(id, std::string(1, '\0') + std::string(text));
}

/// A tag header, the frames, and room for the three looks that end the walk over them.
inline std::string Id3(const std::string& frames, std::size_t padding = 1024) {
  return std::string("ID3\x03\0\0\0\0\0\0", 10) + frames + std::string(padding, '\0');
}

/// The 128 bytes at a file's end; texts are cut to their fields and padded with NULs.
struct Trailer {
  std::string title;
  std::string artist;
  std::string album;
  std::string year;
  std::string comment;
  unsigned char genre = 0;

  std::string Bytes() const {
    std::string bytes = "TAG";
    for (const auto& [text, length] : {std::pair<const std::string&, std::size_t>{title, 30},
                                       {artist, 30},
                                       {album, 30},
                                       {year, 4},
                                       {comment, 30}}) {
      std::string field = text;
      field.resize(length, '\0');
      bytes += field;
    }
    return bytes + static_cast<char>(genre);
  }
};

}  // namespace norvo
