#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/files/FileFailure.h"
#include "platform/files/SystemFile.h"

namespace norvo {

/// The folder that was asked for last, kept open: of files that stand together only the first pays
/// for the way there, each part of which is an opening where the system has no call for the whole.
class LastFolder {
 public:
  /// The folder at a path below an open one, only to be the start of other paths. `root` must live
  /// as long as this is asked.
  FileResult<std::shared_ptr<const SystemFile>> Open(const SystemFile& root, std::string_view path);

 private:
  const SystemFile* root_ = nullptr;
  std::string path_;
  std::shared_ptr<const SystemFile> folder_;
};

}  // namespace norvo
