#pragma once

#include <cstdint>
#include <exception>
#include <new>
#include <stdexcept>
#include <string>

#include "text/Text.h"

namespace norvo {

/// Numbers of the run-time errors that the library raises.
namespace error {
inline constexpr std::int32_t kInvalidArgument = 5;  ///< or any failure without a number of its own
inline constexpr std::int32_t kOverflow = 6;         ///< a number beyond what its type holds
inline constexpr std::int32_t kOutOfMemory = 7;      ///< or more than a limit allows
inline constexpr std::int32_t kSubscriptOutOfRange = 9;   ///< a position outside
inline constexpr std::int32_t kTypeMismatch = 13;         ///< a value that does not convert
inline constexpr std::int32_t kFileNotFound = 53;         ///< a file that is missing
inline constexpr std::int32_t kDeviceInputOutput = 57;    ///< the disk fails
inline constexpr std::int32_t kDiskFull = 61;             ///< the disk takes no more
inline constexpr std::int32_t kInputPastEnd = 62;         ///< reading behind a file's end
inline constexpr std::int32_t kPermissionDenied = 70;     ///< the system refuses
inline constexpr std::int32_t kPathFileAccess = 75;       ///< a path that cannot be used so
inline constexpr std::int32_t kPathNotFound = 76;         ///< a folder that is missing
inline constexpr std::int32_t kObjectNotSet = 91;         ///< an object that is needed is missing
inline constexpr std::int32_t kInvalidPattern = 93;       ///< a pattern that is not valid
inline constexpr std::int32_t kInvalidNull = 94;          ///< Null where a value is needed
inline constexpr std::int32_t kCannotCreateObject = 429;  ///< a class that is not known
inline constexpr std::int32_t kNoSuchMember = 438;        ///< a name that the object does not know
inline constexpr std::int32_t kWrongArguments = 450;      ///< a wrong number of arguments
}  // namespace error

/// The one exception of the library: a number and a description. Operations that "never raise"
/// catch it at their own edge; from all others it reaches the caller.
class RunTimeError : public std::exception {
 public:
  /// The description is the standard one of the number.
  explicit RunTimeError(std::int32_t number);
  /// With a description of its own.
  RunTimeError(std::int32_t number, String description);

  /// One of namespace `error`, or what a host's own object has raised.
  std::int32_t Number() const noexcept { return number_; }
  /// A sentence for the user.
  const String& Description() const noexcept { return description_; }
  /// The description in UTF-8.
  const char* what() const noexcept override { return what_.c_str(); }

 private:
  std::int32_t number_;
  String description_;
  std::string what_;
};

/// Standard description of an error number.
StringView DescriptionOf(std::int32_t number);

/// Runs `work`; what the standard library throws comes out as a RunTimeError too (shortage of
/// memory as error 7, a position outside as error 9, all else as error 5), so that an operation's
/// own edge needs a single catch.
template <class Work>
decltype(auto) Guarded(Work&& work) {
  try {
    return work();
  } catch (const RunTimeError&) {
    throw;
  } catch (const std::bad_alloc&) {
    throw RunTimeError(error::kOutOfMemory);
  } catch (const std::length_error&) {
    throw RunTimeError(error::kOutOfMemory);
  } catch (const std::out_of_range&) {
    throw RunTimeError(error::kSubscriptOutOfRange);
  } catch (const std::exception&) {
    throw RunTimeError(error::kInvalidArgument);
  }
}

}  // namespace norvo
