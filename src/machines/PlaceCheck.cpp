#include "machines/PlaceCheck.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "cli/Console.h"
#include "library/Library.h"
#include "machines/MachineFolder.h"
#include "move/Settings.h"
#include "overlay/OverlayPlatform.h"
#include "services/NVServices.h"

namespace norvo {
namespace {

namespace fs = std::filesystem;

/// A folder, and what it is to the user.
struct Place {
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

void CheckApart(const Place& one, const Place& other) {
  if (one.folder.empty() || other.folder.empty()) return;
  const fs::path left = FullPath(one.folder);
  const fs::path right = FullPath(other.folder);
  if (!LiesWithin(left, right) && !LiesWithin(right, left)) return;
  throw HostError(one.title + " and " + other.title +
                  " lie in each other. Name folders that stand apart.");
}

Place DrivePlace(const HostedDrive& drive, const char* machine) {
  const std::string letter(1, static_cast<char>(drive.letter));
  return {"drive " + letter + " of " + machine + " (" + drive.folder.string() + ")", drive.folder};
}

/// The folders that are scanned for playlists: of what is no machine, the folder itself.
std::vector<Place> ScannedPlaces(const std::string& from) {
  std::vector<Place> places{{"--from", from}};
  const std::shared_ptr<HostedPlatform> machine = OpenIfMachine(from);
  if (!machine) return places;
  for (const HostedDrive& drive : machine->DriveFolders()) {
    if (drive.type == DriveType::Fixed) places.push_back(DrivePlace(drive, "--from"));
  }
  return places;
}

/// The folders that are written to: of a machine the drives of its group root and its documents. A
/// disk may be another drive of both machines, as one is that has moved along.
std::vector<Place> WrittenPlaces(const std::string& to) {
  std::vector<Place> places{{"--to", to}};
  const std::shared_ptr<HostedPlatform> machine = OpenIfMachine(to);
  if (!machine) return places;
  const auto overlay = std::make_shared<OverlayPlatform>(machine);  // asking may create folders
  const std::unique_ptr<Component> library = OpenLibrary(overlay);
  std::set<char16_t> letters;
  for (const String& path : {ReadSettings(*library).groupRoot,
                             NVServices::GetCSIDLPath(*library, ShellFolders::kDocuments)}) {
    letters.insert(path.empty() ? u'C' : ToUpper(path.front()));
  }
  for (const HostedDrive& drive : machine->DriveFolders()) {
    if (letters.contains(drive.letter)) places.push_back(DrivePlace(drive, "--to"));
  }
  return places;
}

}  // namespace

void CheckPlaces(const MigrateArguments& arguments) {
  const std::vector<Place> written = WrittenPlaces(arguments.to);
  for (const Place& from : ScannedPlaces(arguments.from)) {
    for (const Place& to : written) CheckApart(from, to);
    CheckApart(from, {"--work", arguments.work});
  }
  for (const Place& to : written) CheckApart(to, {"--work", arguments.work});
}

}  // namespace norvo
