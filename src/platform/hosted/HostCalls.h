#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "automation/RunTimeError.h"
#include "text/Text.h"

namespace norvo {

/// The calls of the host's system that the hosted platform makes more than once. Those that can
/// fail say so by their result and leave the reason in `errno`, unless they are said to raise.

/// An open file descriptor; closed with its owner.
class HostFile {
 public:
  HostFile() = default;
  explicit HostFile(int descriptor) : descriptor_(descriptor) {}
  ~HostFile() { Close(); }
  HostFile(HostFile&& other) noexcept : descriptor_(other.Release()) {}
  HostFile& operator=(HostFile&& other) noexcept;
  HostFile(const HostFile&) = delete;
  HostFile& operator=(const HostFile&) = delete;

  int Get() const { return descriptor_; }
  bool IsOpen() const { return descriptor_ >= 0; }
  int Release();
  /// Leaves `errno` as it was.
  void Close();

 private:
  int descriptor_ = -1;
};

/// A moment with all the digits that the host keeps.
struct HostTime {
  std::int64_t seconds = 0;
  std::int64_t nanoseconds = 0;
  auto operator<=>(const HostTime&) const = default;
};

/// What the host knows of a name; of a link, not of its target.
struct HostFacts {
  enum class Kind { File, Folder, Link, Other };
  Kind kind = Kind::Other;
  std::uint32_t mode = 0;  ///< permission bits
  std::uint64_t size = 0;
  std::uint64_t disk = 0;    ///< number of the disk that holds it
  std::uint64_t record = 0;  ///< of the file on that disk: two names of one file share it
  HostTime accessed;
  HostTime modified;
  HostTime changed;          ///< of the name's own record
  std::int64_t created = 0;  ///< seconds; the earlier of birth and last write
};

/// One system call. The empty path is the folder itself.
std::optional<HostFacts> LookUp(int folder, const std::string& path);
std::optional<HostFacts> LookUp(const HostFile& file);

/// Opens a path below the folder, or the folder itself for the empty path. No link is followed,
/// neither at the path's end nor within (`ELOOP`).
HostFile OpenInside(int folder, const std::string& path, int flags, unsigned mode = 0);

/// A folder, opened only to be the start of other paths.
HostFile OpenRoot(const std::string& path);

/// The path with all links resolved; nothing when it does not exist.
std::optional<std::string> RealPath(const std::string& path);

/// Everything from a file's current place to its end. More than `most` bytes are not read:
/// `ENOMEM`.
std::optional<std::string> ReadToEnd(const HostFile& file, std::size_t most);
/// Sets both times of a file, with all their digits.
bool SetTimes(const HostFile& file, const HostTime& accessed, const HostTime& modified);
/// In one call wherever the host takes all bytes at once.
bool WriteAll(const HostFile& file, std::string_view bytes);

/// The moment as the files' clock has it.
HostTime HostNow();

/// What a failed call was about: a missing file and a missing folder have numbers of their own.
enum class Subject { File, Folder };

/// Number of the run-time error that stands for an `errno`.
std::int32_t ErrorNumber(int code, Subject subject);

/// That error, which still knows what the host said.
class HostCallError final : public RunTimeError {
 public:
  HostCallError(int code, Subject subject, StringView path);
  /// The `errno` of the call that failed.
  int Code() const noexcept { return code_; }

 private:
  int code_;
};

/// Raises a HostCallError; its description names the path.
[[noreturn]] void RaiseHostCallError(int code, Subject subject, StringView path);

}  // namespace norvo
