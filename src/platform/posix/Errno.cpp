#include "platform/posix/Errno.h"

#include <cerrno>
#include <system_error>

#include "platform/files/SystemCalls.h"

namespace norvo {
namespace {

FileFailure::Kind KindOf(int code) {
  using Kind = FileFailure::Kind;
  switch (code) {
    case 0:
      return Kind::None;
    case ENOENT:
      return Kind::NotFound;
    case ENOTDIR:
      return Kind::NotAFolder;
    case EEXIST:
      return Kind::AlreadyExists;
    case ELOOP:
      return Kind::LinkInTheWay;
    case EACCES:
    case EPERM:
      return Kind::AccessDenied;
    case EROFS:
      return Kind::ReadOnlyDisk;
    case ENOSPC:
      return Kind::DiskFull;
    case EDQUOT:
      return Kind::QuotaReached;
    case EFBIG:
      return Kind::FileTooLarge;
    case ENAMETOOLONG:
      return Kind::NameTooLong;
    case EINVAL:
    case EILSEQ:
      return Kind::InvalidName;
    case EISDIR:
      return Kind::IsAFolder;
    case EIO:
      return Kind::DiskFailed;
    case EMFILE:
    case ENFILE:
      return Kind::TooManyOpenFiles;
    case ENOMEM:
      return Kind::OutOfMemory;
    default:
      return Kind::Other;
  }
}

}  // namespace

FileFailure FailureOf(int code) {
  return {KindOf(code), code};
}

FileFailure LastFailure() {
  return FailureOf(errno);
}

std::string SystemMessage(int code) {
  return std::generic_category().message(code);
}

}  // namespace norvo
