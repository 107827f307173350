#include "platform/hosted/MachineSettings.h"

#include <limits>
#include <utility>

#include "services/IniDocument.h"
#include "text/CodePage.h"
#include "text/Encoding.h"
#include "text/Number.h"

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

IniDocument Decoded(const std::string& bytes) {
  if (DetectEncoding(bytes) == FileEncoding::CodePage) {
    if (std::optional<String> text = FromUtf8(bytes)) return IniDocument(std::move(*text));
  }
  return IniDocument(DecodeFile(bytes, Windows1252()));
}

/// "cdrom,/mnt/disc" or just "cdrom".
MachineSettings::Drive DriveOf(char16_t letter, StringView setting, std::vector<String>& warnings) {
  const std::size_t comma = setting.find(u',');
  const StringView typeName = Trim(setting.substr(0, comma));
  const StringView folder =
      comma == StringView::npos ? StringView() : Trim(setting.substr(comma + 1));
  const DriveType type = TypeByName(typeName);
  if (type == DriveType::Unknown) {
    warnings.push_back(String(u"machine.ini: drive ") + letter + u": has the unknown type \"" +
                       String(typeName) + u"\"");
  }
  return {letter, type, String(folder)};
}

void ReadDrives(const IniDocument& document, MachineSettings& settings) {
  const std::size_t section = document.FindSection(u"Drives");
  if (section == IniDocument::kNone) return;
  settings.drives.emplace();
  for (char16_t letter = u'A'; letter <= u'Z'; ++letter) {
    if (const auto setting = document.Value(section, StringView(&letter, 1))) {
      settings.drives->push_back(DriveOf(letter, *setting, settings.warnings));
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

void ReadShellFolders(const IniDocument& document, MachineSettings& settings) {
  const std::size_t section = document.FindSection(u"ShellFolders");
  if (section == IniDocument::kNone) return;
  for (const StringView key : document.Keys(section)) {
    if (const std::optional<std::int32_t> identifier = IdentifierOf(key)) {
      settings.shellFolders.emplace(*identifier,
                                    document.Value(section, key).value_or(StringView()));
    }
  }
}

}  // namespace

MachineSettings ReadMachineSettings(const std::string& bytes) {
  const IniDocument document = Decoded(bytes);
  MachineSettings settings;
  ReadDrives(document, settings);
  ReadShellFolders(document, settings);
  return settings;
}

}  // namespace norvo
