#include "automation/RunTimeError.h"

#include <utility>

#include "text/Encoding.h"

namespace norvo {

StringView DescriptionOf(std::int32_t number) {
  switch (number) {
    case error::kInvalidArgument:
      return u"Invalid procedure call or argument";
    case error::kOverflow:
      return u"Overflow";
    case error::kOutOfMemory:
      return u"Out of memory";
    case error::kSubscriptOutOfRange:
      return u"Subscript out of range";
    case error::kTypeMismatch:
      return u"Type mismatch";
    case error::kFileNotFound:
      return u"File not found";
    case error::kDeviceInputOutput:
      return u"Device I/O error";
    case error::kDiskFull:
      return u"Disk full";
    case error::kInputPastEnd:
      return u"Input past end of file";
    case error::kPermissionDenied:
      return u"Permission denied";
    case error::kPathFileAccess:
      return u"Path/File access error";
    case error::kPathNotFound:
      return u"Path not found";
    case error::kObjectNotSet:
      return u"Object variable or With block variable not set";
    case error::kInvalidPattern:
      return u"Invalid pattern string";
    case error::kInvalidNull:
      return u"Invalid use of Null";
    case error::kCannotCreateObject:
      return u"ActiveX component can't create object";
    case error::kNoSuchMember:
      return u"Object doesn't support this property or method";
    case error::kWrongArguments:
      return u"Wrong number of arguments or invalid property assignment";
    default:
      return u"Application-defined or object-defined error";
  }
}

RunTimeError::RunTimeError(std::int32_t number)
    : RunTimeError(number, String(DescriptionOf(number))) {}

RunTimeError::RunTimeError(std::int32_t number, String description)
    : number_(number), description_(std::move(description)), what_(ToUtf8(description_)) {}

}  // namespace norvo
