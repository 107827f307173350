#include "lists/TaggedSongs.h"

#include <algorithm>

namespace norvo::songs {
namespace {

using namespace std::string_literals;

std::string Units(std::u16string_view text, bool bigEndian) {
  std::string bytes;
  for (const char16_t unit : text) {
    bytes += bigEndian ? BigEndian(unit, 2) : LittleEndian(unit, 2);
  }
  return bytes;
}

/// Seven bits a byte, as the size of an ID3v2 tag.
std::string Synchsafe(std::size_t size) {
  std::string bytes;
  for (int shift = 21; shift >= 0; shift -= 7) bytes += static_cast<char>((size >> shift) & 0x7F);
  return bytes;
}

std::string Field(std::string_view text, std::size_t width) {
  std::string field(text.substr(0, width));
  field.resize(width, '\0');
  return field;
}

/// Also of FLAC, and of all that is in Ogg pages.
std::string VorbisComment(const Named& comments) {
  std::string bytes = LittleEndian(4, 4) + "test" + LittleEndian(comments.size(), 4);
  for (const auto& [name, text] : comments) {
    bytes += LittleEndian(name.size() + 1 + text.size(), 4) + name + "=" + text;
  }
  return bytes;
}

/// One page with one packet; `flags`: 2 begins the stream, 4 ends it.
std::string OggPage(int flags, std::uint64_t samples, int number, const std::string& packet) {
  const std::size_t whole = packet.size() / 255;
  return "OggS\0"s + static_cast<char>(flags) + LittleEndian(samples, 8) + LittleEndian(7, 4) +
         LittleEndian(static_cast<std::uint64_t>(number), 4) + LittleEndian(0, 4) +
         static_cast<char>(whole + 1) + std::string(whole, '\xFF') +
         static_cast<char>(packet.size() % 255) + packet;
}

std::string OggStream(const std::string& head, const std::string& comment, std::uint64_t samples) {
  return OggPage(2, 0, 0, head) + OggPage(0, 0, 1, comment) +
         OggPage(4, samples, 2, std::string(100, '\x55'));
}

std::string Atom(std::string_view name, const std::string& body) {
  return BigEndian(body.size() + 8, 4) + std::string(name) + body;
}

std::string ItemData(int type, const std::string& body) {
  return Atom("data", BigEndian(static_cast<std::uint64_t>(type), 4) + BigEndian(0, 4) + body);
}

std::string AsfObject(std::string_view guid, const std::string& body) {
  return std::string(guid) + LittleEndian(body.size() + 24, 8) + body;
}

std::string AsfText(std::u16string_view text) {
  return Units(text, false) + "\0\0"s;
}

std::string Chunks(const Named& chunks, bool bigEndian) {
  std::string bytes;
  for (const auto& [name, body] : chunks) {
    bytes += name + (bigEndian ? BigEndian(body.size(), 4) : LittleEndian(body.size(), 4)) + body;
    if (body.size() % 2 != 0) bytes += '\0';
  }
  return bytes;
}

}  // namespace

std::string BigEndian(std::uint64_t number, int bytes) {
  std::string text;
  for (int i = bytes - 1; i >= 0; --i) {
    text += i < 8 ? static_cast<char>((number >> (8 * i)) & 0xFF) : '\0';
  }
  return text;
}

std::string LittleEndian(std::uint64_t number, int bytes) {
  std::string text = BigEndian(number, bytes);
  std::reverse(text.begin(), text.end());
  return text;
}

std::string Latin1(std::string_view bytes) {
  return '\0' + std::string(bytes);
}

std::string Utf16(std::u16string_view text) {
  return "\1\xFF\xFE"s + Units(text, false);
}

std::string Utf16Big(std::u16string_view text) {
  return '\2' + Units(text, true);
}

std::string Utf8(std::string_view bytes) {
  return '\3' + std::string(bytes);
}

std::string Frame(int version, std::string_view id, std::string_view body, char flags) {
  const std::string start(id);
  if (version == 2) return start + BigEndian(body.size(), 3) + std::string(body);
  const std::string size = version == 4 ? Synchsafe(body.size()) : BigEndian(body.size(), 4);
  return start + size + '\0' + flags + std::string(body);
}

std::string Id3v2(int version, std::string_view frames) {
  return "ID3"s + static_cast<char>(version) + "\0\0"s + Synchsafe(frames.size()) +
         std::string(frames);
}

std::string Id3v2(int version, const Named& frames) {
  std::string bytes;
  for (const auto& [id, body] : frames) bytes += Frame(version, id, body);
  return Id3v2(version, bytes);
}

std::string Id3v1(std::string_view title, std::string_view artist, std::string_view album,
                  int track) {
  return "TAG" + Field(title, 30) + Field(artist, 30) + Field(album, 30) + "1999" +
         std::string(29, '\0') + static_cast<char>(track) + '\x11';
}

std::string ApeTag(const Named& items) {
  std::string bytes;
  for (const auto& [name, text] : items) {
    bytes += LittleEndian(text.size(), 4) + LittleEndian(0, 4) + name + '\0' + text;
  }
  return bytes + "APETAGEX" + LittleEndian(2000, 4) + LittleEndian(bytes.size() + 32, 4) +
         LittleEndian(items.size(), 4) + LittleEndian(0, 4) + LittleEndian(0, 8);
}

std::string MpegSound(int frames) {
  std::string sound;
  for (int i = 0; i < frames; ++i) sound += "\xFF\xFB\x90\x64" + std::string(413, '\x55');
  return sound;
}

std::string Flac(const Named& comments, int seconds) {
  const auto samples = static_cast<std::uint64_t>(44100 * seconds);
  const std::uint64_t format =
      std::uint64_t{44100} << 44 | std::uint64_t{1} << 41 | std::uint64_t{15} << 36 | samples;
  const std::string info = BigEndian(4096, 2) + BigEndian(4096, 2) + BigEndian(0, 6) +
                           BigEndian(format, 8) + std::string(16, '\0');
  const std::string comment = VorbisComment(comments);
  return "fLaC\0"s + BigEndian(info.size(), 3) + info + '\x84' + BigEndian(comment.size(), 3) +
         comment + "\xFF\xF8" + std::string(200, '\x55');
}

std::string OggVorbis(const Named& comments, int seconds) {
  const std::string head = "\1vorbis"s + LittleEndian(0, 4) + '\2' + LittleEndian(44100, 4) +
                           LittleEndian(0, 4) + LittleEndian(128000, 4) + LittleEndian(0, 4) +
                           "\xB8\1";
  return OggStream(head, "\3vorbis" + VorbisComment(comments) + '\1',
                   static_cast<std::uint64_t>(44100 * seconds));
}

std::string Opus(const Named& comments, int seconds) {
  const std::string head =
      "OpusHead\1\2"s + LittleEndian(0, 2) + LittleEndian(48000, 4) + LittleEndian(0, 2) + '\0';
  return OggStream(head, "OpusTags" + VorbisComment(comments),
                   static_cast<std::uint64_t>(48000 * seconds));
}

std::string Mp4(const Named& texts, int track, int seconds) {
  std::string items;
  for (const auto& [name, text] : texts) items += Atom(name, ItemData(1, text));
  items +=
      Atom("trkn", ItemData(0, BigEndian(0, 2) + BigEndian(static_cast<std::uint64_t>(track), 2) +
                                   BigEndian(12, 2) + BigEndian(0, 2)));
  const std::string handler = BigEndian(0, 8) + "mdirappl" + std::string(9, '\0');
  const std::string meta =
      Atom("meta", BigEndian(0, 4) + Atom("hdlr", handler) + Atom("ilst", items));
  const std::string length = BigEndian(0, 12) + BigEndian(1000, 4) +
                             BigEndian(static_cast<std::uint64_t>(1000 * seconds), 4) +
                             BigEndian(0, 4);
  const std::string sound = Atom("hdlr", BigEndian(0, 8) + "soun" + std::string(13, '\0'));
  const std::string trak = Atom("trak", Atom("mdia", Atom("mdhd", length) + sound));
  return Atom("ftyp", "M4A \0\0\0\0"s) + Atom("moov", trak + Atom("udta", meta)) +
         Atom("mdat", std::string(100, '\x55'));
}

std::string Asf(std::u16string_view title, std::u16string_view artist, std::u16string_view album,
                int track, int seconds) {
  constexpr std::string_view kHeader =
      "\x30\x26\xB2\x75\x8E\x66\xCF\x11\xA6\xD9\x00\xAA\x00\x62\xCE\x6C";
  static const std::string kLonger{
      "\x40\xA4\xD0\xD2\x07\xE3\xD2\x11\x97\xF0\x00\xA0\xC9\x5E\xA8\x50", 16};
  static const std::string kFile{"\xA1\xDC\xAB\x8C\x47\xA9\xCF\x11\x8E\xE4\x00\xC0\x0C\x20\x53\x65",
                                 16};
  static const std::string kStream{
      "\x91\x07\xDC\xB7\xB7\xA9\xCF\x11\x8E\xE6\x00\xC0\x0C\x20\x53\x65", 16};
  static const std::string kContent{
      "\x33\x26\xB2\x75\x8E\x66\xCF\x11\xA6\xD9\x00\xAA\x00\x62\xCE\x6C", 16};
  const std::string file = std::string(40, '\0') +
                           LittleEndian(static_cast<std::uint64_t>(seconds) * 10'000'000, 8) +
                           std::string(32, '\0');
  const std::string shown = AsfText(title);
  const std::string by = AsfText(artist);
  const std::string content =
      LittleEndian(shown.size(), 2) + LittleEndian(by.size(), 2) + LittleEndian(0, 6) + shown + by;
  const auto attribute = [](std::u16string_view name, int type, const std::string& value) {
    const std::string key = AsfText(name);
    return LittleEndian(key.size(), 2) + key + LittleEndian(static_cast<std::uint64_t>(type), 2) +
           LittleEndian(value.size(), 2) + value;
  };
  const std::string longer =
      LittleEndian(2, 2) + attribute(u"WM/AlbumTitle", 0, AsfText(album)) +
      attribute(u"WM/TrackNumber", 3, LittleEndian(static_cast<std::uint64_t>(track), 4));
  return AsfObject({kHeader.data(), 16}, LittleEndian(4, 4) + "\1\2" + AsfObject(kFile, file) +
                                             AsfObject(kStream, std::string(70, '\0')) +
                                             AsfObject(kContent, content) +
                                             AsfObject(kLonger, longer));
}

std::string Wav(const Named& chunks, int seconds) {
  const std::string format = LittleEndian(1, 2) + LittleEndian(1, 2) + LittleEndian(1000, 4) +
                             LittleEndian(1000, 4) + LittleEndian(1, 2) + LittleEndian(8, 2);
  const std::string body =
      "WAVE" + Chunks({{"fmt ", format}}, false) + Chunks(chunks, false) +
      Chunks({{"data", std::string(static_cast<std::size_t>(1000 * seconds), '\x55')}}, false);
  return "RIFF" + LittleEndian(body.size(), 4) + body;
}

std::string Aiff(const Named& chunks, int seconds) {
  // 1000 a second, as an 80-bit number.
  const std::string rate = "\x40\x08\xFA\x00\x00\x00\x00\x00\x00\x00"s;
  const auto samples = static_cast<std::uint64_t>(1000 * seconds);
  const std::string common = BigEndian(1, 2) + BigEndian(samples, 4) + BigEndian(8, 2) + rate;
  const std::string sound = std::string(8 + samples, '\0');
  const std::string body =
      "AIFF" + Chunks({{"COMM", common}, {"SSND", sound}}, true) + Chunks(chunks, true);
  return "FORM" + BigEndian(body.size(), 4) + body;
}

std::string InfoList(const Named& texts) {
  return "INFO" + Chunks(texts, false);
}

std::string Module(std::string_view title) {
  return Field(title, 20) + std::string(31 * 30, '\0') + "\1\0"s + std::string(128, '\0') + "M.K." +
         std::string(1024, '\0');
}

}  // namespace norvo::songs
