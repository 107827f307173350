#include "machines/ThisPc.h"

#include "platform/files/DiskPath.h"
#include "services/Utility.h"
#include "text/Encoding.h"

namespace norvo {

std::string UsualGroupRootOf(Platform& thisPc) {
  const String documents = thisPc.Shell().SpecialFolderPath(ShellFolders::kDocuments);
  if (documents.empty()) return {};
  return ToUtf8(Utility::AddBackslash(documents) + u"Norvo Media\\");
}

std::filesystem::path LockFolderOf(Platform& thisPc) {
  constexpr std::int32_t kDataOfAllUsers = 0x23;
  const auto folder = thisPc.Shell().FolderPath(kDataOfAllUsers);
  if (!folder || folder->status != 0 || folder->path.empty()) return {};
  return ToSystemPath(ToUtf8(folder->path)) / "Norvo";
}

}  // namespace norvo
