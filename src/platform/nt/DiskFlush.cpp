#include <algorithm>

#include "platform/files/SystemCalls.h"
#include "platform/nt/Handle.h"
#include "platform/nt/InsideFolder.h"
#include "platform/nt/WindowsCode.h"

namespace norvo {
namespace {

/// Only who may write to a file may flush it: one that is open for reading is opened once more. Who
/// may not has written nothing to it.
FileFailure FlushFile(const SystemFile* file) {
  const FileFailure failure = FailureUnlessTrue(::FlushFileBuffers(HandleOf(*file)));
  if (failure.kind != FileFailure::Kind::AccessDenied) return failure;
  const FileResult<SystemFile> again = OpenPart(HandleOf(*file), {}, {FILE_APPEND_DATA});
  if (again) return FailureUnlessTrue(::FlushFileBuffers(HandleOf(*again)));
  const bool isDenied = again.Failure().kind == FileFailure::Kind::AccessDenied;
  return isDenied ? FileFailure() : again.Failure();
}

}  // namespace

/// No process without special rights can flush a whole disk.
std::vector<FileFailure> FlushToDisk(std::span<const SystemFile* const> files) {
  std::vector<FileFailure> failures(files.size());
  std::transform(files.begin(), files.end(), failures.begin(), FlushFile);
  return failures;
}

/// Each file waits for the disk by itself; those that wait together are written together. More than
/// two take from the copying what they gain.
std::size_t FlushesAtOnce() {
  return 2;
}

}  // namespace norvo
