#include "platform/hosted/AtomicFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "platform/hosted/HostName.h"

namespace norvo {
namespace {

// A temporary file that an earlier process with the same number left behind costs one attempt.
constexpr int kMostAttempts = 100;

/// Its name does not depend on the file's own, which may be as long as a name can be.
std::string TemporaryPath(const std::string& path, int attempt) {
  const std::string name =
      ".norvo-" + std::to_string(::getpid()) + "-" + std::to_string(attempt) + ".tmp";
  return JoinHost(HostParent(path), name);
}

HostFile CreateTemporary(int folder, const std::string& path, std::string& temporary) {
  HostFile file;
  for (int attempt = 0; attempt < kMostAttempts && !file.IsOpen(); ++attempt) {
    temporary = TemporaryPath(path, attempt);
    file = OpenInside(folder, temporary, O_WRONLY | O_CREAT | O_EXCL, 0666);
    if (!file.IsOpen() && errno != EEXIST) break;
  }
  return file;
}

/// Leaves the reason in `errno`.
bool Fill(int folder, const std::string& path, const HostFile& file, std::string_view bytes) {
  const std::optional<HostFacts> old = LookUp(folder, path);
  if (old && ::fchmod(file.Get(), static_cast<mode_t>(old->mode)) != 0) return false;
  return WriteAll(file, bytes) && ::fsync(file.Get()) == 0;
}

}  // namespace

int ReplaceFile(int folder, const std::string& path, std::string_view bytes) {
  std::string temporary;
  HostFile file = CreateTemporary(folder, path, temporary);
  if (!file.IsOpen()) return errno;
  const bool filled = Fill(folder, path, file, bytes);
  file.Close();
  if (filled && ::renameat(folder, temporary.c_str(), folder, path.c_str()) == 0) return 0;
  const int reason = errno;
  ::unlinkat(folder, temporary.c_str(), 0);
  return reason;
}

}  // namespace norvo
