#include "machines/FolderLayout.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "automation/RunTimeError.h"
#include "library/Library.h"
#include "machines/FullPath.h"
#include "machines/UserDocuments.h"
#include "move/MoveError.h"
#include "move/ProductSettings.h"
#include "platform/files/DiskPath.h"
#include "platform/hosted/HostedPlatform.h"
#include "platform/hosted/SystemPaths.h"
#include "services/Utility.h"
#include "text/Encoding.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

namespace fs = std::filesystem;

constexpr StringView kRegistry = u":\\Norvo\\registry.reg";

/// What is the matter with a wished path.
struct PathFaults {
  MoveFault notFull;
  MoveFault nowhere;
};

bool HasLetter(const HostedLayout& layout, StringView path) {
  return std::any_of(layout.drives.begin(), layout.drives.end(), [&](const HostedDrive& drive) {
    return drive.letter == ToUpper(path.front());
  });
}

/// A wished path in the machine's spelling, without a separator at its end.
String CheckedPath(const std::string& wish, const HostedLayout& layout, const PathFaults& faults) {
  const std::optional<String> text = FromUtf8(wish);
  const bool full = text && text->size() > 3 && HasDrive(*text) && IsSeparator((*text)[2]);
  if (!full) throw MoveError(faults.notFull, wish);
  if (!HasLetter(layout, *text)) throw MoveError(faults.nowhere, wish, ToUtf8(DriveName(*text)));
  String path = AbsolutePath(*text, DriveName(*text));
  if (path.size() > 3 && path.back() == u'\\') path.pop_back();
  return path;
}

/// The registry of a disk. A link of the disk must not have it written elsewhere.
fs::path RegistryOn(const HostedDrive& drive) {
  const fs::path file = PathOnSystem({&drive, 1}, String(1, drive.letter) + String(kRegistry));
  if (LiesWithin(FullPath(file), FullPath(drive.folder))) return file;
  throw MoveError(MoveFault::LeadsOut, ShownPath(file), ShownPath(drive.folder));
}

HostedLayout DiskLayout(const TakenFolder& taken) {
  HostedLayout layout;
  layout.drives.push_back({taken.letter, DriveType::Fixed, taken.driveFolder});
  layout.registryFile = RegistryOn(layout.drives.front());
  return layout;
}

/// What will be made of a folder that is neither machine nor disk yet.
HostedLayout NewLayout(const TakenFolder& taken) {
  HostedLayout layout;
  layout.drives.push_back({taken.letter, DriveType::Fixed, taken.driveFolder});
  layout.registryFile = taken.folder / "registry.reg";
  return layout;
}

HostedLayout MachineLayout(const fs::path& folder) {
  try {
    return ReadLayout(folder);
  } catch (const RunTimeError& failure) {
    throw MoveError(MoveFault::NoMachine, ShownPath(folder), ToUtf8(failure.Description()));
  }
}

HostedLayout LayoutOf(const TakenFolder& taken) {
  if (taken.IsMachine()) return MachineLayout(taken.folder);
  return taken.IsDisk() ? DiskLayout(taken) : NewLayout(taken);
}

std::vector<UserDocuments> UsersOf(const HostedLayout& layout) {
  std::vector<UserDocuments> users;
  for (const HostedDrive& drive : layout.drives) {
    if (drive.type != DriveType::Fixed) continue;
    for (UserDocuments& each : DocumentsOn(drive)) users.push_back(std::move(each));
  }
  return users;
}

String NamedUser(const std::vector<UserDocuments>& users, const std::string& name) {
  for (const UserDocuments& each : users) {
    if (EqualsIgnoreCase(FromUtf8Lossy(each.user), FromUtf8Lossy(name))) return each.path;
  }
  throw MoveError(MoveFault::UnknownUser, name, NamesOf(users));
}

/// Of several users the one whose documents hold the product's data; else null.
const UserDocuments* UserWith(const std::vector<UserDocuments>& users, StringView groupRoot) {
  for (const UserDocuments& each : users) {
    const String start = each.path + u'\\';
    if (EqualsIgnoreCase(groupRoot.substr(0, start.size()), start)) return &each;
  }
  return nullptr;
}

String GroupRootOf(const HostedLayout& layout, const LayoutWishes& wishes) {
  const auto machine = std::make_shared<HostedPlatform>(layout);
  const String root = ReadProductSettings(*OpenLibrary(machine)).groupRoot;
  return root.empty() ? FromUtf8Lossy(wishes.groupRoot) : root;
}

/// The documents folder of a disk without a word about it; empty when nobody need know.
String DocumentsOfDisk(const TakenFolder& taken, const FolderLayout& folder,
                       const LayoutWishes& wishes) {
  const std::vector<UserDocuments> users = UsersOf(folder.layout);
  if (users.empty()) return String(1, taken.letter) + u":\\My Documents";
  if (users.size() == 1) return users.front().path;
  if (const UserDocuments* const user = UserWith(users, folder.groupRoot)) {
    return user->path;
  }
  if (!wishes.needsDocuments) return {};
  throw MoveError(MoveFault::ManyUsers, ShownPath(taken.folder), NamesOf(users));
}

/// A machine has its music in one place: once it is some user's it is nobody else's.
String DocumentsOfNamed(const FolderLayout& folder, const std::string& name) {
  const std::vector<UserDocuments> users = UsersOf(folder.layout);
  const String documents = NamedUser(users, name);
  const UserDocuments* const owner = UserWith(users, folder.groupRoot);
  if (owner != nullptr && owner->path != documents) {
    throw MoveError(MoveFault::OtherUser, name, owner->user);
  }
  return documents;
}

/// The documents folder, where it is not left to the machine.
String DocumentsOf(const TakenFolder& taken, const FolderLayout& folder,
                   const LayoutWishes& wishes) {
  if (!wishes.documents.empty()) {
    return CheckedPath(wishes.documents, folder.layout,
                       {MoveFault::DocumentsNotFull, MoveFault::DocumentsNowhere});
  }
  if (!wishes.user.empty()) return DocumentsOfNamed(folder, wishes.user);
  return taken.IsDisk() ? DocumentsOfDisk(taken, folder, wishes) : String();
}

}  // namespace

FolderLayout LayOut(const TakenFolder& taken, const LayoutWishes& wishes) {
  FolderLayout result;
  result.layout = LayoutOf(taken);
  if (!wishes.groupRoot.empty()) {
    CheckedPath(wishes.groupRoot, result.layout,
                {MoveFault::GroupRootNotFull, MoveFault::GroupRootNowhere});
  }
  if (taken.IsDisk()) result.registryPath = ToUtf8(String(1, taken.letter) + String(kRegistry));
  result.groupRoot = GroupRootOf(result.layout, wishes);
  const String documents = DocumentsOf(taken, result, wishes);
  if (!documents.empty()) {
    result.layout.shellFolders[ShellFolders::kDocuments] = documents;
    result.usualGroupRoot = ToUtf8(documents) + "\\Norvo Media\\";
  }
  return result;
}

}  // namespace norvo
