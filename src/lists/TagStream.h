#pragma once

#include <taglib/tiostream.h>

#include <array>
#include <optional>

#include "lists/AsfAttributeCounts.h"
#include "services/FileSystem.h"

namespace norvo {

/// A file of the machine as the tag library reads it: neighbouring requests cost one read, nothing
/// is written, and a file that lies costs no more than the limits below. Past them, and once the
/// disk fails, the file seems to end. Raises nothing but a lack of memory.
class TagStream final : public TagLib::IOStream {
 public:
  /// The largest picture that a FLAC file can hold, with the tag around it; nobody needs a longer
  /// block.
  static constexpr std::size_t kLongestBlock = std::size_t{17} << 20;
  /// All blocks together.
  static constexpr std::size_t kMostBytes = 2 * kLongestBlock;
  /// An ordinary file takes some dozens. The atoms of an MP4 file are read by a call in a call, one
  /// for each request; so many fit on the stack of every system.
  static constexpr std::size_t kMostRequests = 4096;

  explicit TagStream(BinaryFile& file);

  /// Where the chunk's size stands that follows the name of a RIFF file's ID3v2 tag, of the first
  /// one that was read. Such a chunk is shown under the name "JUNK", since the tag library would
  /// read its frames without the caller's frame factory.
  std::optional<long> Id3Chunk() const { return id3Chunk_; }

  TagLib::FileName name() const override { return ""; }
  TagLib::ByteVector readBlock(unsigned long length) override;
  void writeBlock(const TagLib::ByteVector&) override {}
  void insert(const TagLib::ByteVector&, unsigned long, unsigned long) override {}
  void removeBlock(unsigned long, unsigned long) override {}
  bool readOnly() const override { return true; }
  bool isOpen() const override { return true; }
  /// A place before the start, to which only a wrong size leads, is the end.
  void seek(long offset, Position from) override;
  long tell() const override { return at_; }
  long length() override { return size_; }
  void truncate(long) override {}

 private:
  // The start of an ordinary song holds its tag and its first frames.
  static constexpr std::size_t kWindow = 4096;

  std::size_t Allowed(unsigned long length) const;
  bool Read(std::uint64_t offset, std::span<char> bytes);
  bool MoveWindow(long offset);
  bool Fill(std::span<char> bytes);
  void HideId3Chunk(TagLib::ByteVector& name);

  BinaryFile& file_;
  long size_ = 0;
  long at_ = 0;
  std::size_t requests_ = 0;
  std::size_t bytes_ = 0;
  bool failed_ = false;
  std::array<char, kWindow> window_{};
  long windowAt_ = -1;
  std::optional<long> id3Chunk_;
  AsfAttributeCounts asfCounts_;
};

}  // namespace norvo
