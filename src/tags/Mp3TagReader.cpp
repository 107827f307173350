#include "tags/Mp3TagReader.h"

#include <algorithm>
#include <utility>

#include "automation/Attempt.h"
#include "automation/Conversions.h"
#include "automation/RunTimeError.h"
#include "services/NVServices.h"
#include "tags/GenreTable.h"
#include "tags/TagBytes.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

constexpr std::size_t kTrailer = 128;      // bytes of the ID3v1 record at the file's end
constexpr std::uint64_t kFirstFrame = 10;  // behind the ID3v2 header, which is not read
constexpr std::size_t kFrameHeader = 10;   // id, size, flags
constexpr int kMostMisses = 2;             // the next thing that is no frame ends the walk

// A size that lies could fill the memory with what is no text. The lower three size bytes tell at
// most 32767, and a first one other than 0 is that of a frame of at least 2 MiB, in either spelling
// of sizes that tags have: no text comes near this. The walk itself goes by the size as it stands.
constexpr std::size_t kLongestText = 65536;

bool IsCapital(char byte) {
  return byte >= 'A' && byte <= 'Z';
}

/// Four capital letters, or three and a digit.
bool IsFrameId(std::string_view id) {
  const bool letters = std::all_of(id.begin(), id.begin() + 3, IsCapital);
  return letters && (IsCapital(id[3]) || (id[3] >= '0' && id[3] <= '9'));
}

/// The four characters of a frame's name as one number.
constexpr std::uint32_t NumberOf(std::string_view id) {
  std::uint32_t number = 0;
  for (const char each : id) number = number << 8 | static_cast<unsigned char>(each);
  return number;
}

/// Web address frames carry no encoding byte.
bool IsWebFrame(std::uint32_t id) {
  return id == NumberOf("WOAR") || id == NumberOf("WCOM");
}

std::int16_t InInt16(std::int32_t number) {
  if (!std::in_range<std::int16_t>(number)) throw RunTimeError(error::kOverflow);
  return static_cast<std::int16_t>(number);
}

/// The frame's size by its four size bytes. The weights are neither plain nor synchsafe, and the
/// lower three bytes are summed in 16 bits: both intended.
std::int32_t FrameSize(std::string_view bytes) {
  const auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
  const std::int16_t second = InInt16(byteAt(1) * 4096);
  const std::int16_t third = InInt16(byteAt(2) * 256);
  const std::int16_t low = InInt16(second + third + byteAt(3));
  return byteAt(0) * 65536 + low;
}

template <class Number, class Convert>
Number NumberOrZero(StringView text, Convert&& convert) {
  return AnswerOr(Number{0}, [&] { return text.empty() ? Number{0} : convert(text); });
}

}  // namespace

struct Mp3TagReader::FrameRow {
  constexpr FrameRow(std::string_view name, Text stored) : id(NumberOf(name)), text(stored) {}

  std::uint32_t id;
  Text text;
};

const Mp3TagReader::FrameRow* Mp3TagReader::FindFrame(std::uint32_t id) {
  static constexpr FrameRow kRows[] = {
      {"TIT2", kId3Title},  {"TPE1", kId3Artist},    {"TALB", kId3Album},      {"TCON", kId3Genre},
      {"TRCK", kId3Track},  {"TLEN", kId3Length},    {"TYER", kId3Year},       {"TMED", kId3Media},
      {"USLT", kId3Lyrics}, {"TCOP", kId3Copyright}, {"WOAR", kId3WebAddress},
  };
  const auto* const row = std::find_if(std::begin(kRows), std::end(kRows),
                                       [id](const FrameRow& each) { return each.id == id; });
  return row == std::end(kRows) ? nullptr : row;
}

void Mp3TagReader::Store(Text text, std::string_view bytes) {
  // Frames that replace earlier ones, again and again, shall not fill the memory either.
  if (units_.size() > 2 * kTextCount * kLongestText) ForgetReplaced();
  const std::size_t start = units_.size();
  component_.Machine().AnsiPage().AppendDecoded(units_, bytes);
  places_[text] = {start, units_.size() - start};
}

void Mp3TagReader::ForgetReplaced() {
  String units;
  for (Place& place : places_) {
    const std::size_t start = units.size();
    units.append(units_, place.start, place.length);
    place.start = start;
  }
  units_.swap(units);
}

void Mp3TagReader::Reset() {
  units_.clear();
  places_ = {};
  fileSize_ = 0;
  genre_ = 0;
  hasId3_ = hasTag_ = false;
}

bool Mp3TagReader::ReadFile(StringView fileName, Extent extent) {
  Reset();
  if (extent == Extent::Whole) {
    fileName_ = LastComponent(component_.Files().AbsolutePathName(fileName));
  }
  return Attempt([&] { ReadTags(fileName, extent); }) && (hasId3_ || hasTag_);
}

void Mp3TagReader::ReadTags(StringView path, Extent extent) {
  const std::unique_ptr<BinaryFile> file = component_.Files().OpenForReading(path);
  TagBytes bytes(*file);
  if (bytes.At(0, 3) == "ID3") {
    hasId3_ = true;
    WalkFrames(bytes);
    if (extent == Extent::FramesHideTrailer) return;
  }
  const std::uint64_t size = bytes.Size();
  fileSize_ = NarrowToInt32(static_cast<double>(size));
  if (size < kTrailer) throw RunTimeError(error::kInvalidArgument);  // no place for a trailer
  ReadTrailer(bytes);
}

void Mp3TagReader::WalkFrames(TagBytes& file) {
  std::uint64_t position = kFirstFrame;
  std::uint64_t lastLength = 0;
  for (int misses = 0; misses <= kMostMisses;) {
    const std::string_view header = file.At(position, kFrameHeader);
    if (!IsFrameId(header)) {
      // Counted over the whole walk, not in a row.
      ++misses;
      position += kFrameHeader + 1 + lastLength;
      continue;
    }
    const std::uint32_t id = NumberOf(header.substr(0, 4));
    const std::int32_t size = FrameSize(header.substr(4, 4));
    const std::size_t encodingByte = IsWebFrame(id) ? 0 : 1;
    if (size < static_cast<std::int32_t>(encodingByte)) throw RunTimeError(error::kInvalidArgument);
    lastLength = static_cast<std::size_t>(size) - encodingByte;
    position += kFrameHeader + encodingByte;
    if (const FrameRow* const row = FindFrame(id)) {
      const auto length =
          static_cast<std::size_t>(std::min<std::uint64_t>(lastLength, kLongestText));
      Store(row->text, file.At(position, length));
    }
    position += lastLength;
  }
}

void Mp3TagReader::ReadTrailer(TagBytes& file) {
  const std::string_view record = file.At(file.Size() - kTrailer, kTrailer);
  if (!record.starts_with("TAG")) return;
  hasTag_ = true;
  const auto store = [&](Text text, std::size_t offset, std::size_t length) {
    Store(text, record.substr(offset, length));
    const StringView clean = NVServices::StripNull(TextOf(text));
    places_[text] = {static_cast<std::size_t>(clean.data() - units_.data()), clean.size()};
  };
  store(kTitle, 3, 30);
  store(kArtist, 33, 30);
  store(kAlbum, 63, 30);
  store(kYear, 93, 4);
  store(kComment, 97, 30);
  genre_ = static_cast<std::uint8_t>(record[127]);
}

String Mp3TagReader::GenreString() const {
  return String(NVServices::StripNull(GenreName(genre_)));
}

std::int32_t Mp3TagReader::ID3Duration() const {
  return NumberOrZero<std::int32_t>(TextOf(kId3Length), [](StringView text) {
    return NarrowToInt32(Int32FromText(text) / 1000.0);
  });
}

std::int16_t Mp3TagReader::ID3TrackNumber() const {
  return NumberOrZero<std::int16_t>(TextOf(kId3Track), Int16FromText);
}

StringView Mp3TagReader::ID3EncodingStyle() const {
  const StringView media = TextOf(kId3Media);
  if (media == u"DIG") return u"Digital";
  return media == u"ANA" ? StringView(u"Analog") : StringView(u"Unknown");
}

}  // namespace norvo
