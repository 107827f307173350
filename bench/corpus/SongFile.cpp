#include "SongFile.h"

#include <cstddef>
#include <stdexcept>
#include <string_view>

namespace norvo::bench {
namespace {

constexpr std::size_t kFileSize = 8192;
constexpr std::size_t kPaddingSize = 1024;
constexpr std::size_t kTrailerSize = 128;
constexpr std::size_t kLargestFrame = 120;
constexpr std::size_t kFrameHeaderSize = 4;
constexpr std::string_view kAudioFrameHeader("\xFF\xFB\x90\x64", kFrameHeaderSize);
constexpr std::size_t kAudioFrameSize = 417;
constexpr char kAudioFiller = '\x55';
constexpr char kGenreByte = 17;

std::string MakeTextFrame(std::string_view id, std::string_view text) {
  const std::size_t size = text.size() + 1;
  if (size >= kLargestFrame) throw std::length_error("tag text too long");
  std::string frame(id);
  frame.append(3, '\0');
  frame += static_cast<char>(size);
  frame.append(2, '\0');  // flags
  frame += '\0';          // text encoding
  frame += text;
  return frame;
}

std::string MakeTextFrames(const Song& song) {
  return MakeTextFrame("TIT2", song.title) + MakeTextFrame("TPE1", song.artist) +
         MakeTextFrame("TALB", song.album) + MakeTextFrame("TCON", song.genre) +
         MakeTextFrame("TYER", std::to_string(song.year)) +
         MakeTextFrame("TRCK", std::to_string(song.track)) +
         MakeTextFrame("TLEN", std::to_string(song.seconds * 1000));
}

/** The tag size: four bytes of seven bits each. */
std::string MakeTagSize(std::size_t size) {
  std::string bytes;
  for (int shift = 21; shift >= 0; shift -= 7) bytes += static_cast<char>((size >> shift) & 0x7F);
  return bytes;
}

std::string MakeTag(const Song& song) {
  std::string frames = MakeTextFrames(song);
  frames.append(kPaddingSize, '\0');
  return std::string("ID3\x03\0\0", 6) + MakeTagSize(frames.size()) + frames;
}

void AppendField(std::string& trailer, std::string_view text, std::size_t width) {
  const std::string_view part = text.substr(0, width);
  trailer += part;
  trailer.append(width - part.size(), '\0');
}

std::string MakeTrailer(const Song& song) {
  std::string trailer = "TAG";
  AppendField(trailer, song.title, 30);
  AppendField(trailer, song.artist, 30);
  AppendField(trailer, song.album, 30);
  AppendField(trailer, std::to_string(song.year), 4);
  AppendField(trailer, "", 30);
  trailer += kGenreByte;
  return trailer;
}

void AppendAudio(std::string& file, std::size_t end) {
  while (file.size() < end) {
    file += kAudioFrameHeader;
    file.append(kAudioFrameSize - kAudioFrameHeader.size(), kAudioFiller);
  }
  file.resize(end);
}

}  // namespace

std::string MakeSongFile(const Song& song) {
  std::string file = MakeTag(song);
  AppendAudio(file, kFileSize - kTrailerSize);
  return file + MakeTrailer(song);
}

}  // namespace norvo::bench
