#include "machines/TemporaryFolder.h"

#include <random>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "move/MoveError.h"
#include "platform/files/DiskPath.h"
#include "platform/files/SystemCalls.h"

namespace norvo {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kCharacters = "abcdefghijklmnopqrstuvwxyz0123456789";
constexpr int kMarkLength = 10;
constexpr int kMostAttempts = 100;

std::string NewName() {
  std::random_device random;
  std::uniform_int_distribution<std::size_t> place(0, kCharacters.size() - 1);
  std::string name = "norvo-";
  for (int i = 0; i < kMarkLength; ++i) name += kCharacters[place(random)];
  return name;
}

/// Removes all files below a folder, of any name: on Windows the standard library takes one such as
/// "aux.ini" for a device, and would try to remove that for ever.
void RemoveFiles(const SystemFile& root, const std::string& folder) {
  std::vector<std::string> folders;
  FileResult<SystemFile> listed = OpenBeneath(root, folder, OpenMode::List);
  if (!listed) return;
  std::vector<std::string> files;
  ForEachName(std::move(*listed), [&](std::string_view name, ListedKind kind) {
    (kind == ListedKind::Folder ? folders : files).push_back(JoinDiskPath(folder, name));
  });
  for (const std::string& file : files) RemoveFile(root, file);
  for (const std::string& each : folders) RemoveFiles(root, each);
}

}  // namespace

TemporaryFolder::TemporaryFolder() {
  std::error_code failure;
  fs::path parent = fs::temp_directory_path(failure);
  if (failure) parent = "/tmp";
  for (int attempt = 0; attempt < kMostAttempts; ++attempt) {
    const fs::path path = parent / NewName();
    // False for one that somebody else has made.
    if (!fs::create_directory(path, failure)) {
      if (failure) break;
      continue;
    }
    path_ = path;
    // What is written there is about a person's files; nobody else need read it.
    fs::permissions(path, fs::perms::owner_all, failure);
    return;
  }
  throw MoveError(MoveFault::NoTemporaryFolder, ShownPath(parent));
}

TemporaryFolder::~TemporaryFolder() {
  if (const FileResult<SystemFile> root = OpenRoot(ToDiskPath(path_))) RemoveFiles(*root, {});
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

}  // namespace norvo
