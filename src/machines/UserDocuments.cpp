#include "machines/UserDocuments.h"

#include <algorithm>
#include <iterator>
#include <optional>

#include "machines/ListedNames.h"
#include "platform/files/DiskPath.h"
#include "platform/hosted/DiskName.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

namespace fs = std::filesystem;

/// Where a Windows keeps the folders of its users.
struct UsersPlace {
  StringView users;
  StringView documents;
};
constexpr UsersPlace kPlaces[] = {{u"Users", u"Documents"},
                                  {u"Documents and Settings", u"My Documents"}};

/// Where a newer Windows has the documents folder, if a person lets it.
constexpr StringView kCloud = u"OneDrive";

constexpr StringView kNobody[] = {u"All Users",    u"Default",      u"Default User",
                                  u"defaultuser0", u"LocalService", u"NetworkService",
                                  u"Public"};

bool IsPerson(StringView name) {
  return std::none_of(std::begin(kNobody), std::end(kNobody),
                      [name](StringView other) { return EqualsIgnoreCase(name, other); });
}

/// A folder in another, by the name that Windows sees.
struct SubFolder {
  String name;
  fs::path path;
};

/// Links are left out: those of Windows lead to what is listed anyway, or out of the disk.
std::vector<SubFolder> SubFoldersOf(const fs::path& folder) {
  std::vector<SubFolder> found;
  const FileResult<std::vector<ListedName>> names = NamesIn(folder);
  if (!names) return found;
  for (const ListedName& each : *names) {
    if (each.kind != ListedKind::Folder) continue;
    if (auto name = FromDiskName(each.name)) {
      found.push_back({std::move(*name), folder / ToSystemPath(each.name)});
    }
  }
  // Of names that differ by case alone the machine knows the first.
  std::sort(found.begin(), found.end(),
            [](const SubFolder& one, const SubFolder& other) { return one.path < other.path; });
  return found;
}

std::optional<SubFolder> FindFolder(const fs::path& folder, StringView name) {
  for (SubFolder& each : SubFoldersOf(folder)) {
    if (EqualsIgnoreCase(each.name, name)) return std::move(each);
  }
  return std::nullopt;
}

bool HasUser(const std::vector<UserDocuments>& users, const std::string& name) {
  return std::any_of(users.begin(), users.end(), [&](const UserDocuments& each) {
    return EqualsIgnoreCase(FromUtf8Lossy(each.user), FromUtf8Lossy(name));
  });
}

void AddUsers(const UsersPlace& place, const HostedDrive& drive,
              std::vector<UserDocuments>& users) {
  const std::optional<SubFolder> top = FindFolder(drive.folder, place.users);
  if (!top) return;
  for (const SubFolder& user : SubFoldersOf(top->path)) {
    if (!IsPerson(user.name) || HasUser(users, ToUtf8(user.name))) continue;
    const String start = String(1, drive.letter) + u":\\" + top->name + u'\\' + user.name + u'\\';
    if (const auto documents = FindFolder(user.path, place.documents)) {
      users.push_back({ToUtf8(user.name), start + documents->name});
    } else if (const auto cloud = FindFolder(user.path, kCloud)) {
      const std::optional<SubFolder> there = FindFolder(cloud->path, place.documents);
      if (there) users.push_back({ToUtf8(user.name), start + cloud->name + u'\\' + there->name});
    }
  }
}

}  // namespace

std::vector<UserDocuments> DocumentsOn(const HostedDrive& drive) {
  std::vector<UserDocuments> users;
  for (const UsersPlace& place : kPlaces) AddUsers(place, drive, users);
  std::sort(users.begin(), users.end(), [](const UserDocuments& one, const UserDocuments& other) {
    return one.user < other.user;
  });
  return users;
}

std::string NamesOf(const std::vector<UserDocuments>& users) {
  std::string names;
  for (const UserDocuments& each : users) names += (names.empty() ? "" : ", ") + each.user;
  return names;
}

}  // namespace norvo
