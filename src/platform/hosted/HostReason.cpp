#include "platform/hosted/HostReason.h"

#include <cerrno>
#include <system_error>

#include "text/Encoding.h"

namespace norvo {

String HostReason(int code) {
  switch (code) {
    case ENOENT:
      return u"there is no such drive, folder or file";
    case ENOTDIR:
    case EEXIST:
    case ELOOP:
      return u"something else stands where it or its folder should";
    case EACCES:
    case EPERM:
      return u"permission denied";
    case EROFS:
      return u"the disk is read-only";
    case ENOSPC:
      return u"the disk is full";
    case EDQUOT:
      return u"the user's share of the disk is full";
    case EFBIG:
      return u"the file is larger than the disk or the system allows";
    case ENAMETOOLONG:
      return u"the name is too long";
    case EINVAL:
    case EILSEQ:
    case EISDIR:
      return u"the name cannot be a file's";
    case EIO:
      return u"the disk failed";
    case EMFILE:
    case ENFILE:
      return u"too many files are open";
    default:
      return FromUtf8Lossy(std::generic_category().message(code));
  }
}

}  // namespace norvo
