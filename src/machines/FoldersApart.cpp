#include "machines/FoldersApart.h"

#include <memory>
#include <set>
#include <string>
#include <vector>

#include "library/Library.h"
#include "machines/FolderLayout.h"
#include "machines/FullPath.h"
#include "machines/MachineFolder.h"
#include "machines/TargetFolder.h"
#include "move/MoveError.h"
#include "move/ProductSettings.h"
#include "platform/files/DiskPath.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

namespace fs = std::filesystem;

/// A folder, and what it is in the move.
struct Part {
  std::string title;
  fs::path folder;
};

void RequireApart(const Part& one, const Part& other) {
  if (one.folder.empty() || other.folder.empty()) return;
  const fs::path left = FullPath(one.folder);
  const fs::path right = FullPath(other.folder);
  if (!LiesWithin(left, right) && !LiesWithin(right, left)) return;
  throw MoveError(MoveFault::FoldersOverlap, one.title, other.title);
}

Part DrivePart(const HostedDrive& drive, const std::string& machine) {
  const std::string letter(1, static_cast<char>(drive.letter));
  return {"drive " + letter + " of " + machine + " (" + ShownPath(drive.folder) + ")",
          drive.folder};
}

/// The folders that are scanned for playlists: of what is no machine, the folder itself.
std::vector<Part> ScannedParts(const FolderMove& folders) {
  // This PC is searched without the folders that the move writes to.
  if (folders.IsFromThisPc()) return {};
  const std::string& name = folders.names.from;
  std::vector<Part> parts{{name, folders.from}};
  for (const OtherDrive& drive : folders.fromDrives) {
    parts.push_back({"drive " + drive.letter + " of " + name, drive.folder});
  }
  if (!TakeFolder(folders.from).IsMachine()) return parts;
  for (const HostedDrive& drive : OpenMachineFolder(folders.from)->DriveFolders()) {
    if (drive.type == DriveType::Fixed) parts.push_back(DrivePart(drive, name));
  }
  return parts;
}

String DocumentsFolderOf(Platform& machine) {
  return machine.Shell().SpecialFolderPath(ShellFolders::kDocuments);
}

/// A search of this PC does not come to what is written to, in which its own documents would be.
void RequireDocumentsOutside(const std::vector<Part>& written) {
  const std::string documents = ToUtf8(DocumentsFolderOf(*OpenThisPc()->Machine()));
  if (documents.empty()) return;
  const fs::path full = FullPath(ToSystemPath(documents));
  for (const Part& to : written) {
    if (!LiesWithin(full, FullPath(to.folder))) continue;
    throw MoveError(MoveFault::HoldsDocuments, to.title, documents);
  }
}

/// Of this PC the documents, where all goes that has no place of its own, and the group root.
std::vector<Part> PartsOfPc(const FolderMove& folders) {
  const std::shared_ptr<Platform> machine = OpenThisPc()->Machine();
  const String documents = DocumentsFolderOf(*machine);
  const std::string kept = ToUtf8(ReadProductSettings(*OpenLibrary(machine)).groupRoot);
  std::vector<Part> parts;
  for (const std::string& path : {ToUtf8(documents), kept.empty() ? folders.groupRoot : kept}) {
    if (!path.empty()) parts.push_back({path, ToSystemPath(path)});
  }
  return parts;
}

/// The folders that are written to: of a machine the drives of its group root and its documents. A
/// disk may be another drive of both machines, as one is that has moved along.
std::vector<Part> WrittenParts(const FolderMove& folders) {
  if (folders.IsToThisPc()) return PartsOfPc(folders);
  std::vector<Part> parts{{folders.names.to, folders.to}};
  const TakenFolder taken = TakeFolder(folders.to, folders.toDrive);
  if (!taken.IsMachine()) return parts;
  const FolderLayout to = LayOut(taken, WishesFor(folders));
  HostedPlatform machine(to.layout);
  std::set<char16_t> letters;
  for (const String& path : {to.groupRoot, DocumentsFolderOf(machine)}) {
    letters.insert(path.empty() ? u'C' : ToUpper(path.front()));
  }
  for (const HostedDrive& drive : machine.DriveFolders()) {
    if (letters.contains(drive.letter)) parts.push_back(DrivePart(drive, folders.names.to));
  }
  return parts;
}

}  // namespace

void RequireApart(const FolderMove& folders) {
  const Part work{folders.names.work, folders.work};
  const std::vector<Part> written = WrittenParts(folders);
  if (folders.IsFromThisPc()) RequireDocumentsOutside(written);
  for (const Part& from : ScannedParts(folders)) {
    for (const Part& to : written) RequireApart(from, to);
    RequireApart(from, work);
  }
  for (const Part& to : written) RequireApart(to, work);
}

std::vector<fs::path> WrittenFolders(const FolderMove& folders) {
  std::vector<fs::path> written;
  for (const Part& part : WrittenParts(folders)) written.push_back(part.folder);
  return written;
}

}  // namespace norvo
