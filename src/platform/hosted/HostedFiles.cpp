#include "platform/hosted/HostedFiles.h"

#include "platform/files/FileError.h"
#include "platform/files/SystemCalls.h"

namespace norvo {
namespace {

/// Reads until the buffer is full or the file has ended. At the end that is expected no further
/// call is made: it would only say so.
std::size_t ReadFull(const SystemFile& file, std::uint64_t offset, std::span<char> buffer,
                     std::uint64_t expectedEnd, StringView path) {
  std::size_t done = 0;
  while (done < buffer.size()) {
    const FileResult<std::size_t> got = ReadSome(file, offset + done, buffer.subspan(done));
    // Whatever the reason, the disk has failed.
    if (!got) RaiseFileError(FileFailure::Kind::DiskFailed, Subject::File, path);
    if (*got == 0) break;
    done += *got;
    if (offset + done == expectedEnd) break;
  }
  return done;
}

std::uint64_t SizeOf(const SystemFile& file, StringView path) {
  const FileResult<FileRecord> record = LookUp(file);
  if (!record) RaiseFileError(record.Failure(), Subject::File, path);
  return record->size;
}

void RaiseIf(const FileFailure& failure, StringView path) {
  if (failure) RaiseFileError(failure, Subject::File, path);
}

}  // namespace

std::size_t HostedBinaryFile::ReadAt(std::uint64_t offset, std::span<char> buffer) {
  return ReadFull(file_, offset, buffer, expectedEnd_, path_);
}

std::uint64_t HostedBinaryFile::Size() {
  if (!size_) size_ = SizeOf(file_, path_);
  return *size_;
}

void HostedAppendFile::Append(std::string_view bytes) {
  RaiseIf(WriteAll(file_, bytes), path_);
}

HostedSharedFile::~HostedSharedFile() {
  UnlockFile(file_);
}

std::size_t HostedSharedFile::ReadAt(std::uint64_t offset, std::span<char> buffer) {
  return ReadFull(file_, offset, buffer, offset + buffer.size(), path_);
}

std::uint64_t HostedSharedFile::Size() {
  return SizeOf(file_, path_);
}

void HostedSharedFile::EndWith(std::uint64_t offset, std::string_view bytes) {
  if (offset < Size()) RaiseIf(CutFile(place_.drive->Root(), place_.path, offset), path_);
  RaiseIf(WriteAll(file_, bytes), path_);
}

}  // namespace norvo
