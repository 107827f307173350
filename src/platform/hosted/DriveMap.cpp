#include "platform/hosted/DriveMap.h"

#include "platform/hosted/HostName.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

struct TypeName {
  StringView name;
  DriveType type;
};

constexpr TypeName kTypeNames[] = {{u"fixed", DriveType::Fixed},
                                   {u"removable", DriveType::Removable},
                                   {u"cdrom", DriveType::CdRom},
                                   {u"network", DriveType::Network},
                                   {u"ramdisk", DriveType::RamDisk}};

DriveType TypeByName(StringView name) {
  for (const TypeName& row : kTypeNames) {
    if (EqualsIgnoreCase(row.name, name)) return row.type;
  }
  return DriveType::Unknown;
}

bool IsFolder(const std::filesystem::path& path) {
  std::error_code ignored;
  return std::filesystem::is_directory(path, ignored);
}

/// The folder of a drive in the machine's folder; the upper-case spelling goes before the other.
std::filesystem::path DefaultFolder(const std::filesystem::path& machineFolder, char upper) {
  const std::filesystem::path folder = machineFolder / std::string(1, upper);
  const std::filesystem::path lower = machineFolder / std::string(1, static_cast<char>(upper + 32));
  return !IsFolder(folder) && IsFolder(lower) ? lower : folder;
}

/// "cdrom,/mnt/disc" or just "cdrom".
std::unique_ptr<HostDrive> FromSetting(const std::filesystem::path& machineFolder, char letter,
                                       StringView setting, std::vector<String>& warnings) {
  const std::size_t comma = setting.find(u',');
  const StringView typeName = Trim(setting.substr(0, comma));
  const StringView place =
      comma == StringView::npos ? StringView() : Trim(setting.substr(comma + 1));
  const DriveType type = TypeByName(typeName);
  const char16_t wide = static_cast<char16_t>(letter);
  if (type == DriveType::Unknown) {
    warnings.push_back(String(u"machine.ini: drive ") + wide + u": has the unknown type \"" +
                       String(typeName) + u"\"");
  }
  const std::filesystem::path folder =
      place.empty() ? DefaultFolder(machineFolder, letter) : machineFolder / ToUtf8(place);
  return std::make_unique<HostDrive>(wide, type, folder.string());
}

}  // namespace

int HostDrive::Root() const {
  if (root_.IsOpen()) return root_.Get();
  std::optional<std::string> real = RealPath(folder_);
  if (!real) return -1;
  realFolder_ = *real == "/" ? std::string() : std::move(*real);
  root_ = OpenRoot(folder_);
  return root_.Get();
}

std::optional<std::string> HostDrive::Canonical(const std::string& path) const {
  if (Root() < 0) return std::nullopt;
  const std::optional<std::string> real = RealPath(realFolder_ + "/" + path);
  if (!real || !LiesWithin(*real, realFolder_)) return std::nullopt;
  return real->size() <= realFolder_.size() ? std::string() : real->substr(realFolder_.size() + 1);
}

DriveMap::DriveMap(const std::filesystem::path& machineFolder, const IniDocument& settings,
                   std::vector<String>& warnings) {
  const std::size_t section = settings.FindSection(u"Drives");
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    std::unique_ptr<HostDrive>& drive = drives_[static_cast<std::size_t>(letter - 'A')];
    const char16_t wide = static_cast<char16_t>(letter);
    if (section != IniDocument::kNone) {
      const std::optional<StringView> setting = settings.Value(section, StringView(&wide, 1));
      if (setting) drive = FromSetting(machineFolder, letter, *setting, warnings);
      continue;
    }
    const std::filesystem::path folder = DefaultFolder(machineFolder, letter);
    if (IsFolder(folder)) {
      drive = std::make_unique<HostDrive>(wide, DriveType::Fixed, folder.string());
    }
  }
}

bool DriveMap::HasDriveFolder(const std::filesystem::path& machineFolder) {
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    if (IsFolder(DefaultFolder(machineFolder, letter))) return true;
  }
  return false;
}

const HostDrive* DriveMap::Find(char16_t letter) const {
  const char16_t lower = ToLowerAscii(letter);
  return lower < u'a' || lower > u'z' ? nullptr : drives_[lower - u'a'].get();
}

std::vector<Drive> DriveMap::List() const {
  std::vector<Drive> list;
  for (const std::unique_ptr<HostDrive>& drive : drives_) {
    if (drive) list.push_back({drive->Letter(), drive->Type()});
  }
  return list;
}

}  // namespace norvo
