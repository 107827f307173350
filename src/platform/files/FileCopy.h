#pragma once

#include "platform/files/SystemCalls.h"

namespace norvo {

/// Copies a file whole. `record` is that of the open source, from before; the target is new and
/// empty. SourceChanged when the source is another one by the end. The bytes are on their way to
/// the disk afterwards, not yet flushed, and the times are those of the writing.
FileFailure CopyWhole(const SystemFile& source, const FileRecord& record, const SystemFile& target,
                      const ByteSink& sink);

}  // namespace norvo
