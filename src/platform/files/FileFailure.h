#pragma once

#include <optional>
#include <utility>

namespace norvo {

/// Why the system refused something.
struct FileFailure {
  enum class Kind {
    None,  ///< it has not
    NotFound,
    NotAFolder,  ///< something else stands where a folder should
    AlreadyExists,
    LinkInTheWay,
    AccessDenied,
    InUse,  ///< another program has it open and does not share it
    ReadOnlyDisk,
    DiskFull,
    QuotaReached,  ///< the user's share of the disk is full
    FileTooLarge,
    NameTooLong,
    InvalidName,
    IsAFolder,
    NotAFile,        ///< a folder, a pipe or a device where a file's bytes were to be read
    BytesElsewhere,  ///< the disk has no more of the file than its name, as one that a cloud keeps
    TooLong,         ///< a file of more bytes than its reader takes
    DiskFailed,
    TooManyOpenFiles,
    OutOfMemory,
    SourceChanged,  ///< it ended early, grew or was written to while it was copied
    Other
  };

  FileFailure(Kind failed = Kind::None, int systemsCode = 0) : kind(failed), code(systemsCode) {}
  /// True when there is one.
  explicit operator bool() const { return kind != Kind::None; }

  Kind kind;
  int code;  ///< the system's own number, for its words; 0 when it was not the system that refused
};

/// What the system was asked for, or why it refused.
template <class T>
class FileResult {
 public:
  FileResult(T value) : value_(std::move(value)) {}
  FileResult(FileFailure failure) : failure_(failure) {}

  explicit operator bool() const { return value_.has_value(); }
  T& operator*() { return *value_; }
  const T& operator*() const { return *value_; }
  T* operator->() { return &*value_; }
  const T* operator->() const { return &*value_; }

  FileFailure Failure() const { return failure_; }

 private:
  std::optional<T> value_;
  FileFailure failure_;
};

}  // namespace norvo
