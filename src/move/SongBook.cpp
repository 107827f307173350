#include "move/SongBook.h"

#include <optional>

#include "platform/hosted/HostName.h"
#include "platform/hosted/HostedFileSystem.h"
#include "text/Encoding.h"
#include "text/WindowsPath.h"

namespace norvo {

std::size_t SongBook::NumberOf(const String& path) {
  const auto [spelling, isNewSpelling] = bySpelling_.try_emplace(path, songs_.size());
  if (!isNewSpelling) return spelling->second;
  const std::optional<HostEntry> found = machine_.HostedFiles().Find(AbsolutePath(path, u"C:"));
  const std::string name = found ? JoinHost(found->drive->Folder(), found->Path()) : ToUtf8(path);
  const auto [file, isNewFile] = byFile_.try_emplace(name, songs_.size());
  if (isNewFile) songs_.emplace_back().source = path;
  return spelling->second = file->second;
}

}  // namespace norvo
