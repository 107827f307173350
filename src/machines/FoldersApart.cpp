#include "machines/FoldersApart.h"

#include <algorithm>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "library/Library.h"
#include "machines/MachineFolder.h"
#include "move/MoveError.h"
#include "move/ProductSettings.h"

namespace norvo {
namespace {

namespace fs = std::filesystem;

/// A folder, and what it is in the move.
struct Part {
  std::string title;
  fs::path folder;
};

bool LiesWithin(const fs::path& path, const fs::path& folder) {
  const auto [rest, reached] =
      std::mismatch(path.begin(), path.end(), folder.begin(), folder.end());
  return reached == folder.end();
}

/// In full, without a separator at its end.
fs::path FullPath(const fs::path& path) {
  const fs::path full = fs::weakly_canonical(path);
  return full.has_filename() ? full : full.parent_path();
}

void RequireApart(const Part& one, const Part& other) {
  if (one.folder.empty() || other.folder.empty()) return;
  const fs::path left = FullPath(one.folder);
  const fs::path right = FullPath(other.folder);
  if (!LiesWithin(left, right) && !LiesWithin(right, left)) return;
  throw MoveError(MoveFault::FoldersOverlap, one.title, other.title);
}

Part DrivePart(const HostedDrive& drive, const std::string& machine) {
  const std::string letter(1, static_cast<char>(drive.letter));
  return {"drive " + letter + " of " + machine + " (" + drive.folder.string() + ")", drive.folder};
}

/// The folders that are scanned for playlists: of what is no machine, the folder itself.
std::vector<Part> ScannedParts(const fs::path& from, const std::string& name) {
  std::vector<Part> parts{{name, from}};
  const std::shared_ptr<HostedPlatform> machine = OpenIfMachine(from);
  if (!machine) return parts;
  for (const HostedDrive& drive : machine->DriveFolders()) {
    if (drive.type == DriveType::Fixed) parts.push_back(DrivePart(drive, name));
  }
  return parts;
}

/// The folders that are written to: of a machine the drives of its group root and its documents. A
/// disk may be another drive of both machines, as one is that has moved along.
std::vector<Part> WrittenParts(const fs::path& to, const std::string& name) {
  std::vector<Part> parts{{name, to}};
  const std::shared_ptr<HostedPlatform> machine = OpenIfMachine(to);
  if (!machine) return parts;
  const std::unique_ptr<Component> library = OpenLibrary(machine);
  std::set<char16_t> letters;
  for (const String& path : {ReadProductSettings(*library).groupRoot,
                             machine->Shell().SpecialFolderPath(ShellFolders::kDocuments)}) {
    letters.insert(path.empty() ? u'C' : ToUpper(path.front()));
  }
  for (const HostedDrive& drive : machine->DriveFolders()) {
    if (letters.contains(drive.letter)) parts.push_back(DrivePart(drive, name));
  }
  return parts;
}

}  // namespace

void RequireApart(const FolderMove& folders) {
  const Part work{folders.names.work, folders.work};
  const std::vector<Part> written = WrittenParts(folders.to, folders.names.to);
  for (const Part& from : ScannedParts(folders.from, folders.names.from)) {
    for (const Part& to : written) RequireApart(from, to);
    RequireApart(from, work);
  }
  for (const Part& to : written) RequireApart(to, work);
}

}  // namespace norvo
