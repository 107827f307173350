#include "platform/files/LastFolder.h"

#include <utility>

#include "platform/files/SystemCalls.h"

namespace norvo {

FileResult<std::shared_ptr<const SystemFile>> LastFolder::Open(const SystemFile& root,
                                                               std::string_view path) {
  if (folder_ && root_ == &root && path_ == path) return folder_;
  FileResult<SystemFile> opened = OpenBeneath(root, std::string(path), OpenMode::Start);
  if (!opened) return opened.Failure();
  root_ = &root;
  path_ = path;
  folder_ = std::make_shared<const SystemFile>(std::move(*opened));
  return folder_;
}

}  // namespace norvo
