#include "platform/files/FileError.h"

namespace norvo {

std::int32_t ErrorNumber(FileFailure::Kind kind, Subject subject) {
  using Kind = FileFailure::Kind;
  switch (kind) {
    case Kind::NotFound:
      return subject == Subject::File ? error::kFileNotFound : error::kPathNotFound;
    case Kind::NotAFolder:
      return error::kPathNotFound;
    case Kind::AccessDenied:
    case Kind::InUse:
    case Kind::ReadOnlyDisk:
      return error::kPermissionDenied;
    case Kind::DiskFull:
    case Kind::QuotaReached:
      return error::kDiskFull;
    case Kind::DiskFailed:
      return error::kDeviceInputOutput;
    case Kind::OutOfMemory:
    case Kind::TooLong:
      return error::kOutOfMemory;
    default:
      return error::kPathFileAccess;
  }
}

FileError::FileError(FileFailure failure, Subject subject, StringView path)
    : RunTimeError(
          ErrorNumber(failure.kind, subject),
          String(DescriptionOf(ErrorNumber(failure.kind, subject))).append(u": ").append(path)),
      failure_(failure) {}

void RaiseFileError(FileFailure failure, Subject subject, StringView path) {
  throw FileError(failure, subject, path);
}

}  // namespace norvo
