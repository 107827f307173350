#include "platform/hosted/HostedFiles.h"

#include "platform/files/FileError.h"
#include "platform/files/SystemCalls.h"

namespace norvo {

std::size_t HostedBinaryFile::ReadAt(std::uint64_t offset, std::span<char> buffer) {
  std::size_t done = 0;
  while (done < buffer.size()) {
    const FileResult<std::size_t> got = ReadSome(file_, offset + done, buffer.subspan(done));
    // Whatever the reason, the disk has failed.
    if (!got) RaiseFileError(FileFailure::Kind::DiskFailed, Subject::File, path_);
    if (*got == 0) break;
    done += *got;
    // The known end is reached: a further call would only say so.
    if (offset + done == expectedEnd_) break;
  }
  return done;
}

std::uint64_t HostedBinaryFile::Size() {
  if (!size_) {
    const FileResult<FileRecord> record = LookUp(file_);
    if (!record) RaiseFileError(record.Failure(), Subject::File, path_);
    size_ = record->size;
  }
  return *size_;
}

void HostedAppendFile::Append(std::string_view bytes) {
  if (const FileFailure failure = WriteAll(file_, bytes)) {
    RaiseFileError(failure, Subject::File, path_);
  }
}

}  // namespace norvo
