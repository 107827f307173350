#include "platform/files/FileBytes.h"

#include <algorithm>
#include <cstring>
#include <memory>

namespace norvo {
namespace {

// Small enough for two of them to stay in the processor's cache.
constexpr std::size_t kBuffer = std::size_t{128} * 1024;

/// Reads until the buffer is full or the file ends.
FileResult<std::size_t> ReadFully(const SystemFile& file, std::uint64_t offset,
                                  std::span<char> buffer) {
  std::size_t done = 0;
  while (done < buffer.size()) {
    const FileResult<std::size_t> got = ReadSome(file, offset + done, buffer.subspan(done));
    if (!got) return got.Failure();
    if (*got == 0) break;
    done += *got;
  }
  return done;
}

}  // namespace

FileResult<std::string> ReadWhole(const SystemFile& file, std::size_t most) {
  constexpr std::size_t kPiece = std::size_t{64} * 1024;
  const FileResult<FileRecord> record = LookUp(file);
  if (record && record->kind != FileRecord::Kind::File) {
    return FileFailure(FileFailure::Kind::NotAFile);
  }
  if (record && record->size > most) return FileFailure(FileFailure::Kind::TooLong);
  // One byte more than the size, so that the usual file ends within the first piece.
  std::size_t piece = record ? static_cast<std::size_t>(record->size) + 1 : kPiece;
  std::string bytes;
  for (;;) {
    const std::size_t had = bytes.size();
    bytes.resize(had + piece);
    const FileResult<std::size_t> got = ReadSome(file, had, std::span(bytes).subspan(had));
    if (!got) return got.Failure();
    bytes.resize(had + *got);
    if (*got == 0) return bytes;
    // It has grown, or its size says nothing.
    if (bytes.size() > most) return FileFailure(FileFailure::Kind::TooLong);
    const std::size_t room = bytes.capacity() - bytes.size();
    piece = room > 0 ? room : kPiece;
  }
}

FileResult<bool> SameBytes(const SystemFile& left, const SystemFile& right, std::uint64_t size,
                           const ByteSink& sink) {
  const std::unique_ptr<char[]> buffer = std::make_unique<char[]>(2 * kBuffer);
  for (std::uint64_t done = 0; done < size;) {
    const std::size_t piece =
        static_cast<std::size_t>(std::min<std::uint64_t>(kBuffer, size - done));
    const std::span<char> first(buffer.get(), piece);
    const std::span<char> second(buffer.get() + kBuffer, piece);
    const FileResult<std::size_t> ofLeft = ReadFully(left, done, first);
    if (!ofLeft) return ofLeft.Failure();
    const FileResult<std::size_t> ofRight = ReadFully(right, done, second);
    if (!ofRight) return ofRight.Failure();
    if (*ofLeft != piece || *ofRight != piece ||
        std::memcmp(first.data(), second.data(), piece) != 0) {
      return false;
    }
    done += piece;
    sink(piece);
  }
  return true;
}

}  // namespace norvo
