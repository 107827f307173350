#pragma once

#include <string>

#include "platform/files/FileFailure.h"
#include "platform/files/SystemFile.h"
#include "platform/nt/Handle.h"
#include "text/Text.h"

namespace norvo {

/// The ways below an open folder: a path is gone along part by part, each opened by its one name in
/// the folder before it. None follows a link, neither at a path's end nor within (LinkInTheWay),
/// whatever a folder on the way becomes meanwhile: a reparse point is opened itself, and what the
/// handle then tells of it decides. Everything that opens or changes something below a folder goes
/// by one of them.

/// How something is opened, in the terms of NtCreateFile. All share it with everybody.
struct Opening {
  ACCESS_MASK access = FILE_READ_ATTRIBUTES;
  ULONG options = 0;
  ULONG disposition = FILE_OPEN;
  ULONG attributes = FILE_ATTRIBUTE_NORMAL;  ///< of a new file
  bool takesLinks = false;                   ///< a link at the path's end is opened itself
  bool isAlone = false;                      ///< only when nobody else has it open
};

/// A folder, only to be the start of other paths. Who may know of it may go through it, as
/// everywhere on this system.
constexpr Opening kStart{FILE_READ_ATTRIBUTES, FILE_DIRECTORY_FILE};

/// Opens one name in an open folder; the empty name is what the handle has open itself.
FileResult<SystemFile> OpenPart(HANDLE folder, StringView name, const Opening& how);

/// Opens a path; the empty path is the folder itself.
FileResult<SystemFile> OpenInside(const SystemFile& root, const std::string& path,
                                  const Opening& how);

/// Opens a native path, of platform/nt/NtPath.h. Links are followed, but for `takesLinks` at its
/// end.
FileResult<SystemFile> OpenNtPath(const String& path, const Opening& how);

/// Where the last name of a path stands: one name in an open folder, for the calls that take both.
/// A path of one name costs no call.
class InsideFolder {
 public:
  /// `root` must outlive this.
  InsideFolder(const SystemFile& root, const std::string& path);

  /// Why the folder cannot be reached, or the name is none.
  FileFailure Failure() const { return failure_; }
  HANDLE Folder() const { return HandleOf(reached_.IsOpen() ? reached_ : root_); }
  const String& Name() const { return name_; }
  FileResult<SystemFile> Open(const Opening& how) const;

 private:
  const SystemFile& root_;
  SystemFile reached_;  // not open where the root itself is the folder
  String name_;
  FileFailure failure_;
};

}  // namespace norvo
