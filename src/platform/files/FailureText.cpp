#include "platform/files/FailureText.h"

#include <system_error>

#include "platform/files/SystemCalls.h"
#include "text/Encoding.h"

namespace norvo {

String FailureText(FileFailure failure) {
  using Kind = FileFailure::Kind;
  switch (failure.kind) {
    case Kind::NotFound:
      return u"there is no such drive, folder or file";
    case Kind::NotAFolder:
    case Kind::AlreadyExists:
    case Kind::LinkInTheWay:
      return u"something else stands where it or its folder should";
    case Kind::AccessDenied:
      return u"permission denied";
    case Kind::InUse:
      return u"another program has it open";
    case Kind::ReadOnlyDisk:
      return u"the disk is read-only";
    case Kind::DiskFull:
      return u"the disk is full";
    case Kind::QuotaReached:
      return u"the user's share of the disk is full";
    case Kind::FileTooLarge:
      return u"the file is larger than the disk or the system allows";
    case Kind::NameTooLong:
      return u"the name is too long";
    case Kind::InvalidName:
    case Kind::IsAFolder:
      return u"the name cannot be a file's";
    case Kind::NotAFile:
      return u"it is no file";
    case Kind::BytesElsewhere:
      return u"its bytes are not on this disk, as those of a file that a cloud keeps";
    case Kind::TooLong:
      return u"it is too large for such a file";
    case Kind::DiskFailed:
      return u"the disk failed";
    case Kind::TooManyOpenFiles:
      return u"too many files are open";
    case Kind::OutOfMemory:
      return FromUtf8Lossy(std::make_error_code(std::errc::not_enough_memory).message());
    case Kind::None:
    case Kind::SourceChanged:
    case Kind::Other:
      break;
  }
  return FromUtf8Lossy(SystemMessage(failure.code));
}

}  // namespace norvo
