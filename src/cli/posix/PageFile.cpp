#include "cli/posix/PageFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <system_error>

#include "cli/Console.h"

namespace norvo::cli {
namespace {

namespace fs = std::filesystem;

std::string LastError() {
  return std::generic_category().message(errno);
}

/// A link stays one; what it leads to is written.
fs::path TargetOf(const std::string& path) {
  std::error_code failure;
  const fs::path target = fs::weakly_canonical(path, failure);
  return failure ? fs::path(path) : target;
}

}  // namespace

PageFile::PageFile(const std::string& path) : path_(TargetOf(path)) {
  std::error_code ignored;
  if (fs::exists(path_, ignored) && !fs::is_regular_file(path_, ignored)) Fail("it is no file");
  draft_ = path_.string() + ".XXXXXX";
  descriptor_ = ::mkstemp(draft_.data());
  if (descriptor_ < 0) Fail(LastError());
  const mode_t mask = ::umask(0);
  ::umask(mask);
  // mkstemp lets nobody else read; the page is an ordinary file.
  ::fchmod(descriptor_, 0666 & ~mask);
}

PageFile::~PageFile() {
  if (descriptor_ < 0) return;
  ::close(descriptor_);
  ::unlink(draft_.c_str());
}

void PageFile::Write(std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = ::write(descriptor_, text.data(), text.size());
    if (written < 0 && errno != EINTR) Fail(LastError());
    if (written > 0) text.remove_prefix(static_cast<std::size_t>(written));
  }
  if (::fsync(descriptor_) != 0) Fail(LastError());
  if (::rename(draft_.c_str(), path_.c_str()) != 0) Fail(LastError());
  ::close(descriptor_);
  descriptor_ = -1;
}

void PageFile::Fail(const std::string& reason) const {
  throw CommandError(path_.string() + " cannot be written: " + reason +
                     ". Name a file in a folder that can be written with --report.");
}

}  // namespace norvo::cli
