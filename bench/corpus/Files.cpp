#include "Files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <ctime>
#include <system_error>

namespace norvo::bench {
namespace {

constexpr mode_t kFileMode = 0644;
constexpr std::time_t kFixedDate = 1052907120;  // 14 May 2003, 10:12:00 UTC

[[noreturn]] void Fail(const std::filesystem::path& path) {
  throw std::system_error(errno, std::generic_category(), path.string());
}

}  // namespace

void WriteFile(const std::filesystem::path& path, std::string_view content) {
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, kFileMode);
  if (file < 0) Fail(path);
  while (!content.empty()) {
    const ssize_t written = write(file, content.data(), content.size());
    if (written < 0) {
      close(file);
      Fail(path);
    }
    content.remove_prefix(static_cast<std::size_t>(written));
  }
  if (close(file) != 0) Fail(path);
}

void SetFixedDate(const std::filesystem::path& path) {
  timespec moment{};
  moment.tv_sec = kFixedDate;
  const std::array<timespec, 2> times{moment, moment};
  if (utimensat(AT_FDCWD, path.c_str(), times.data(), 0) != 0) Fail(path);
}

}  // namespace norvo::bench
