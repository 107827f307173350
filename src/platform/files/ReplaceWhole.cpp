#include "platform/files/ReplaceWhole.h"

#include "platform/files/SystemCalls.h"
#include "platform/files/TemporaryFile.h"

namespace norvo {
namespace {

constexpr unsigned kEverybodyReadsAndWrites = 0666;

FileFailure Fill(const SystemFile& root, const std::string& path, const SystemFile& file,
                 std::string_view bytes) {
  if (const FileResult<FileRecord> old = LookUp(root, path)) {
    if (const FileFailure failure = SetPermissions(file, old->permissions)) return failure;
  }
  if (const FileFailure failure = WriteAll(file, bytes)) return failure;
  const SystemFile* const files[] = {&file};
  return FlushToDisk(files).front();
}

}  // namespace

FileFailure ReplaceWhole(const SystemFile& root, const std::string& path, std::string_view bytes) {
  const std::string temporary = TemporaryPath(path);
  FileResult<SystemFile> file = CreateTemporary(root, temporary, kEverybodyReadsAndWrites);
  if (!file) return file.Failure();
  FileFailure failure = Fill(root, path, *file, bytes);
  file->Close();
  if (!failure) failure = RenameOver(root, temporary, path);
  if (failure) RemoveFile(root, temporary);
  return failure;
}

}  // namespace norvo
