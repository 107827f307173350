#include "platform/hosted/HostedLayout.h"

#include <limits>
#include <optional>
#include <utility>

#include "automation/RunTimeError.h"
#include "platform/files/DiskPath.h"
#include "platform/files/FileBytes.h"
#include "platform/files/FileError.h"
#include "services/IniDocument.h"
#include "text/CodePage.h"
#include "text/Encoding.h"
#include "text/Number.h"

namespace norvo {
namespace {

namespace fs = std::filesystem;

// Drives and shell folders fill a few hundred lines at most. What is much larger was put there by
// mistake, and would be held in memory as a whole.
constexpr std::size_t kMostSettingsBytes = std::size_t{1024} * 1024;

constexpr const char* kSettingsFile = "machine.ini";

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

String Shown(const fs::path& path) {
  return FromUtf8Lossy(ToDiskPath(path));
}

bool IsListed(const fs::path& path) {
  const FileResult<SystemFile> folder = OpenRoot(ToDiskPath(path.parent_path()));
  if (!folder) return false;
  FileResult<SystemFile> listed = OpenBeneath(*folder, {}, OpenMode::List);
  if (!listed) return false;
  const std::string wanted = ToDiskPath(path.filename());
  bool found = false;
  ForEachName(std::move(*listed),
              [&](std::string_view name, ListedKind) { found = found || name == wanted; });
  return found;
}

/// A folder that is there and cannot be opened, such as one where a dead disk is mounted, counts as
/// one: who lists it hears what is wrong with it.
bool IsFolder(const fs::path& path) {
  const FileResult<SystemFile> folder = OpenRoot(ToDiskPath(path));
  const FileFailure::Kind failure = folder.Failure().kind;
  if (failure == FileFailure::Kind::NotFound || failure == FileFailure::Kind::NotAFolder) {
    return false;
  }
  return folder || IsListed(path);
}

/// The folder of a drive in the machine's folder; the upper-case spelling goes before the other.
fs::path DefaultFolder(const fs::path& machineFolder, char upper) {
  const fs::path folder = machineFolder / std::string(1, upper);
  const fs::path lower = machineFolder / std::string(1, static_cast<char>(upper + 32));
  return !IsFolder(folder) && IsFolder(lower) ? lower : folder;
}

bool HasDriveFolder(const fs::path& machineFolder) {
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    if (IsFolder(DefaultFolder(machineFolder, letter))) return true;
  }
  return false;
}

[[noreturn]] void RaiseNoMachine(const fs::path& folder, StringView reason) {
  throw RunTimeError(error::kPathNotFound, String(DescriptionOf(error::kPathNotFound)) + u": " +
                                               Shown(folder) + String(reason));
}

fs::path CheckedFolder(const fs::path& folder) {
  if (!OpenRoot(ToDiskPath(folder))) RaiseNoMachine(folder, u" is no folder");
  const bool hasSettings = bool(RealPath(ToDiskPath(folder / kSettingsFile)));
  if (!hasSettings && !HasDriveFolder(folder)) {
    RaiseNoMachine(folder, u" holds neither machine.ini nor a drive's folder");
  }
  return FullSystemPath(folder);
}

/// They are UTF-8 text, or else 8-bit text.
IniDocument DecodedSettings(const std::string& bytes) {
  if (DetectEncoding(bytes) == FileEncoding::CodePage) {
    if (std::optional<String> text = FromUtf8(bytes)) return IniDocument(std::move(*text));
  }
  return IniDocument(DecodeFile(bytes, Windows1252()));
}

/// "cdrom,/mnt/disc" or just "cdrom".
HostedDrive DriveOf(const fs::path& machineFolder, char letter, StringView setting,
                    std::vector<String>& warnings) {
  const std::size_t comma = setting.find(u',');
  const StringView typeName = Trim(setting.substr(0, comma));
  const StringView folder =
      comma == StringView::npos ? StringView() : Trim(setting.substr(comma + 1));
  const DriveType type = TypeByName(typeName);
  const char16_t wide = static_cast<char16_t>(letter);
  if (type == DriveType::Unknown) {
    warnings.push_back(String(u"machine.ini: drive ") + wide + u": has the unknown type \"" +
                       String(typeName) + u"\"");
  }
  return {wide, type,
          folder.empty() ? DefaultFolder(machineFolder, letter)
                         : machineFolder / ToSystemPath(ToUtf8(folder))};
}

void ReadDrives(const fs::path& machineFolder, const IniDocument& settings, HostedLayout& layout) {
  const std::size_t section = settings.FindSection(u"Drives");
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    const char16_t wide = static_cast<char16_t>(letter);
    if (section != IniDocument::kNone) {
      const std::optional<StringView> setting = settings.Value(section, StringView(&wide, 1));
      if (!setting) continue;
      layout.drives.push_back(DriveOf(machineFolder, letter, *setting, layout.warnings));
    } else if (fs::path folder = DefaultFolder(machineFolder, letter); IsFolder(folder)) {
      layout.drives.push_back({wide, DriveType::Fixed, std::move(folder)});
    }
  }
}

/// Nothing for a key that spells no number, or spells it in another way than we do ("05").
std::optional<std::int32_t> IdentifierOf(StringView key) {
  using Limits = std::numeric_limits<std::int32_t>;
  const std::optional<double> number = ParseNumber(key);
  if (!number || *number < Limits::min() || *number > Limits::max()) return std::nullopt;
  const auto identifier = static_cast<std::int32_t>(*number);
  return FormatInteger(identifier) == key ? std::optional(identifier) : std::nullopt;
}

void ReadShellFolders(const IniDocument& settings, HostedLayout& layout) {
  const std::size_t section = settings.FindSection(u"ShellFolders");
  if (section == IniDocument::kNone) return;
  for (const StringView key : settings.Keys(section)) {
    if (const std::optional<std::int32_t> identifier = IdentifierOf(key)) {
      layout.shellFolders.emplace(*identifier, settings.Value(section, key).value_or(StringView()));
    }
  }
}

}  // namespace

std::string MachineSettingsIn(const fs::path& machineFolder) {
  const fs::path path = machineFolder / kSettingsFile;
  const FileResult<SystemFile> file = OpenSystemPath(ToDiskPath(path));
  const FileFailure::Kind failure = file.Failure().kind;
  if (failure == FileFailure::Kind::NotFound || failure == FileFailure::Kind::NotAFolder) return {};
  if (!file) RaiseFileError(file.Failure(), Subject::File, Shown(path));
  FileResult<std::string> bytes = ReadWhole(*file, kMostSettingsBytes);
  const bool isNoFile = bytes.Failure().kind == FileFailure::Kind::NotAFile;
  if (isNoFile) RaiseFileError(bytes.Failure(), Subject::File, Shown(path) + u" is no file");
  if (!bytes) RaiseFileError(bytes.Failure(), Subject::File, Shown(path));
  return std::move(*bytes);
}

HostedLayout ReadLayout(const fs::path& machineFolder) {
  const fs::path folder = CheckedFolder(machineFolder);
  const IniDocument settings = DecodedSettings(MachineSettingsIn(folder));
  HostedLayout layout;
  ReadDrives(folder, settings, layout);
  ReadShellFolders(settings, layout);
  layout.registryFile = folder / "registry.reg";
  return layout;
}

}  // namespace norvo
