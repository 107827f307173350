#include "services/TextStream.h"

#include <algorithm>
#include <exception>
#include <memory>
#include <utility>

#include "text/Number.h"

namespace norvo {
namespace {

// The first piece is enough for the few lines that tell a playlist's kind.
constexpr std::size_t kFirstPiece = 4096;
constexpr std::size_t kWrittenPiece = 64 * 1024;
constexpr std::size_t kLargestPiece = 256 * 1024;
constexpr std::size_t kMegabyte = std::size_t{1024} * 1024;

/// Appends up to so many bytes of the file, and tells how many there were. They come by way of room
/// that nothing was written into: most pieces are larger than what is left of a file.
std::size_t AppendPiece(BinaryFile& file, std::uint64_t offset, std::size_t most,
                        std::string& bytes) {
  const auto room = std::make_unique_for_overwrite<char[]>(most);
  const std::size_t got = file.ReadAt(offset, {room.get(), most});
  bytes.append(room.get(), got);
  return got;
}

}  // namespace

TextStream::TextStream(FileSystem& files, StringView path, const CodePage& codePage)
    : file_(files.OpenForReading(path)), codePage_(codePage) {}

bool TextStream::ReadMore() {
  if (exhausted_ || !file_) return false;
  buffer_.erase(0, position_);
  position_ = 0;
  const std::size_t piece =
      std::clamp<std::size_t>(static_cast<std::size_t>(offset_) * 4, kFirstPiece, kLargestPiece);
  const std::size_t got = AppendPiece(*file_, offset_, piece, buffer_);
  offset_ += got;
  if (offset_ > kLargestPlaylist) throw TooLarge(kLargestPlaylist);
  exhausted_ = got < piece;
  return got > 0;
}

void TextStream::Start() {
  if (started_) return;
  started_ = true;
  ReadMore();
  encoding_ = DetectEncoding(buffer_);
  switch (encoding_) {
    case FileEncoding::CodePage:
      break;
    case FileEncoding::Utf8:
      position_ = 3;
      break;
    case FileEncoding::Utf16LittleEndian:
    case FileEncoding::Utf16BigEndian:
      position_ = 2;
      break;
  }
}

std::size_t TextStream::UnitSize() const {
  return encoding_ == FileEncoding::Utf16LittleEndian || encoding_ == FileEncoding::Utf16BigEndian
             ? 2
             : 1;
}

bool TextStream::AtEnd() {
  Start();
  // Half a UTF-16 unit at the end is no character.
  while (buffer_.size() - position_ < UnitSize()) {
    if (!ReadMore()) return true;
  }
  return false;
}

String TextStream::Decode(std::string_view bytes) const {
  if (encoding_ == FileEncoding::CodePage) return codePage_.Decode(bytes);
  if (encoding_ == FileEncoding::Utf8) return FromUtf8Lossy(bytes);
  return DecodeUtf16(bytes, encoding_ == FileEncoding::Utf16BigEndian);
}

String TextStream::ReadAll() {
  if (AtEnd()) throw RunTimeError(error::kInputPastEnd);
  while (ReadMore()) {
  }
  String text = Decode(std::string_view(buffer_).substr(position_));
  std::string().swap(buffer_);  // all of it is in the text, and takes no room beside it
  position_ = 0;
  return text;
}

/// Position of the first byte of a line feed at or after `from`, npos when the buffer holds none.
std::size_t TextStream::FindLineFeed(std::size_t from) const {
  if (UnitSize() == 1) return buffer_.find('\n', from);
  const bool bigEndian = encoding_ == FileEncoding::Utf16BigEndian;
  for (std::size_t i = from; i + 1 < buffer_.size(); i += 2) {
    if (buffer_[i + (bigEndian ? 1u : 0u)] == '\n' && buffer_[i + (bigEndian ? 0u : 1u)] == '\0') {
      return i;
    }
  }
  return std::string::npos;
}

String TextStream::ReadLine() {
  if (AtEnd()) throw RunTimeError(error::kInputPastEnd);
  std::size_t searched = 0;  // units without a line feed; counted from position_, which may move
  std::size_t end = FindLineFeed(position_);
  while (end == std::string::npos) {
    searched = (buffer_.size() - position_) / UnitSize() * UnitSize();
    if (!ReadMore()) break;
    end = FindLineFeed(position_ + searched);
  }
  const bool ended = end != std::string::npos;
  if (!ended) end = buffer_.size();
  String line = Decode(std::string_view(buffer_).substr(position_, end - position_));
  position_ = ended ? end + UnitSize() : end;
  if (ended && !line.empty() && line.back() == u'\r') line.pop_back();
  return line;
}

void TextStream::Close() {
  file_.reset();
}

TextWriter::TextWriter(FileSystem& files, StringView path, bool create, const CodePage& codePage)
    : file_(files.OpenForAppending(path, create)), codePage_(codePage) {}

TextWriter::~TextWriter() {
  try {
    Close();
  } catch (const std::exception&) {
    // The last holder has let go; nobody is left to be told.
  }
}

void TextWriter::WriteLine(StringView text) {
  gathered_ += codePage_.Encode(text);
  gathered_ += "\r\n";
  if (gathered_.size() >= kWrittenPiece) Flush();
}

void TextWriter::Flush() {
  if (gathered_.empty()) return;
  const std::string piece = std::exchange(gathered_, {});  // what cannot be written is not kept
  file_->Append(piece);
}

void TextWriter::Close() {
  if (!file_) return;
  try {
    Flush();
  } catch (...) {
    file_.reset();
    throw;
  }
  file_.reset();
}

RunTimeError TooLarge(std::uint64_t most, StringView path) {
  const auto megabytes = static_cast<std::int64_t>(most / kMegabyte);
  const String named = path.empty() ? String() : u": " + String(path);
  return RunTimeError(error::kOutOfMemory,
                      u"File larger than " + FormatInteger(megabytes) + u" MB" + named);
}

std::string ReadWholeFile(BinaryFile& file, StringView path, std::uint64_t most) {
  std::string bytes;
  for (std::size_t piece = kFirstPiece;;) {
    const std::size_t got = AppendPiece(file, bytes.size(), piece, bytes);
    if (bytes.size() > most) throw TooLarge(most, path);
    if (got < piece) return bytes;
    // Whenever it outgrows its room a text is in memory twice; a large one shall not.
    const bool isLarge = bytes.capacity() < kMegabyte && bytes.size() >= kMegabyte / 2;
    if (isLarge) {
      bytes.reserve(static_cast<std::size_t>(std::min(file.Size(), most)) + kLargestPiece);
    }
    piece = std::min(piece * 4, kLargestPiece);
  }
}

std::optional<std::string> ReadFileIfThere(FileSystem& files, StringView path) {
  try {
    return ReadWholeFile(*files.OpenForReading(path), path);
  } catch (const RunTimeError& failure) {
    const bool missing =
        failure.Number() == error::kFileNotFound || failure.Number() == error::kPathNotFound;
    if (!missing) throw;
    return std::nullopt;
  }
}

}  // namespace norvo
