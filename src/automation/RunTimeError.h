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
inline constexpr std::int32_t kInvalidArgument = 5;
inline constexpr std::int32_t kOverflow = 6;
inline constexpr std::int32_t kOutOfMemory = 7;
inline constexpr std::int32_t kSubscriptOutOfRange = 9;
inline constexpr std::int32_t kTypeMismatch = 13;
inline constexpr std::int32_t kFileNotFound = 53;
inline constexpr std::int32_t kDeviceInputOutput = 57;
inline constexpr std::int32_t kDiskFull = 61;
inline constexpr std::int32_t kInputPastEnd = 62;
inline constexpr std::int32_t kPermissionDenied = 70;
inline constexpr std::int32_t kPathFileAccess = 75;
inline constexpr std::int32_t kPathNotFound = 76;
inline constexpr std::int32_t kObjectNotSet = 91;
inline constexpr std::int32_t kInvalidPattern = 93;
inline constexpr std::int32_t kInvalidNull = 94;
inline constexpr std::int32_t kCannotCreateObject = 429;
inline constexpr std::int32_t kNoSuchMember = 438;
inline constexpr std::int32_t kWrongArguments = 450;
}  // namespace error

/// The one exception of the library: a number and a description. Operations that "never raise"
/// catch it at their own edge; from all others it reaches the caller.
class RunTimeError : public std::exception {
 public:
  /// The description is the standard one of the number.
  explicit RunTimeError(std::int32_t number);
  RunTimeError(std::int32_t number, String description);

  std::int32_t Number() const noexcept { return number_; }
  const String& Description() const noexcept { return description_; }
  const char* what() const noexcept override { return what_.c_str(); }

 private:
  std::int32_t number_;
  String description_;
  std::string what_;  // the description in UTF-8
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
