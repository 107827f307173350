#include "platform/hosted/AtomicFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <functional>
#include <string>

#include "platform/hosted/HostName.h"

namespace norvo {
namespace {

/// Leaves the reason in `errno`.
bool Fill(int folder, const std::string& path, const HostFile& file, std::string_view bytes) {
  const std::optional<HostFacts> old = LookUp(folder, path);
  if (old && ::fchmod(file.Get(), static_cast<mode_t>(old->mode)) != 0) return false;
  return WriteAll(file, bytes) && ::fsync(file.Get()) == 0;
}

}  // namespace

std::string TemporaryPath(const std::string& path) {
  const std::size_t number = std::hash<std::string_view>()(HostLeaf(path));
  return JoinHost(HostParent(path), ".norvo-" + std::to_string(number) + ".tmp");
}

HostFile CreateTemporary(int folder, const std::string& temporary, unsigned mode) {
  constexpr int kFlags = O_WRONLY | O_CREAT | O_EXCL;
  HostFile file = OpenInside(folder, temporary, kFlags, mode);
  if (!file.IsOpen() && errno == EEXIST && ::unlinkat(folder, temporary.c_str(), 0) == 0) {
    file = OpenInside(folder, temporary, kFlags, mode);
  }
  return file;
}

int ReplaceFile(int folder, const std::string& path, std::string_view bytes) {
  const std::string temporary = TemporaryPath(path);
  HostFile file = CreateTemporary(folder, temporary, 0666);
  if (!file.IsOpen()) return errno;
  const bool filled = Fill(folder, path, file, bytes);
  file.Close();
  if (filled && ::renameat(folder, temporary.c_str(), folder, path.c_str()) == 0) return 0;
  const int reason = errno;
  ::unlinkat(folder, temporary.c_str(), 0);
  return reason;
}

}  // namespace norvo
