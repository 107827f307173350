#pragma once

#include <compare>
#include <cstdint>

namespace norvo {

/// A moment with all the digits that the disk keeps, since 1970, UTC.
struct DiskTime {
  std::int64_t seconds = 0;
  std::int64_t nanoseconds = 0;
  auto operator<=>(const DiskTime&) const = default;
};

/// What the disk knows of a name; of a link, not of its target.
struct FileRecord {
  enum class Kind { File, Folder, Link, Other };
  Kind kind = Kind::Other;
  std::uint32_t permissions = 0;  ///< bits as POSIX counts them: 0222 are those to write
  std::uint64_t size = 0;
  std::uint64_t disk = 0;    ///< number of the disk that holds it
  std::uint64_t number = 0;  ///< of the file on that disk: two names of one file share it
  DiskTime accessed;
  DiskTime modified;
  DiskTime changed;          ///< of the name's own record
  std::int64_t created = 0;  ///< seconds; the earlier of birth and last write
};

/// True when both are names of one file.
inline bool IsSameFile(const FileRecord& left, const FileRecord& right) {
  return left.disk == right.disk && left.number == right.number;
}

}  // namespace norvo
