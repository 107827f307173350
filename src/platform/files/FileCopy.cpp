#include "platform/files/FileCopy.h"

namespace norvo {

FileFailure CopyWhole(const SystemFile& source, const FileRecord& record, const SystemFile& target,
                      const ByteSink& sink) {
  if (const FileFailure failure = CopyBytes(source, target, record.size, sink)) return failure;
  const FileResult<FileRecord> after = LookUp(source);
  if (!after) return after.Failure();
  const FileResult<FileRecord> made = LookUp(target);
  if (!made) return made.Failure();
  const bool asBefore = after->size == record.size && after->modified == record.modified;
  if (!asBefore || made->size != record.size) return FileFailure::Kind::SourceChanged;
  return {};
}

}  // namespace norvo
