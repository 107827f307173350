#include "host/MachineLayout.h"

#include <algorithm>
#include <fstream>
#include <iterator>

#include "platform/hosted/HostName.h"
#include "services/IniDocument.h"
#include "text/CodePage.h"
#include "text/Encoding.h"
#include "text/WindowsPath.h"

namespace norvo::host {
namespace {

namespace fs = std::filesystem;

bool IsFolder(const fs::path& path) {
  std::error_code ignored;
  return fs::is_directory(path, ignored);
}

/// The machine's settings, read as the platform reads them.
IniDocument ReadSettings(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  if (DetectEncoding(bytes) == FileEncoding::CodePage) {
    if (const std::optional<String> text = FromUtf8(bytes)) return IniDocument(*text);
  }
  return IniDocument(DecodeFile(bytes, Windows1252()));
}

fs::path DefaultFolder(const fs::path& machine, char letter) {
  const fs::path upper = machine / std::string(1, letter);
  const fs::path lower = machine / std::string(1, static_cast<char>(letter + 32));
  return !IsFolder(upper) && IsFolder(lower) ? lower : upper;
}

fs::path Canonical(const fs::path& path) {
  std::error_code failure;
  fs::path canonical = fs::canonical(path, failure);
  return failure ? path : canonical;
}

/// "cdrom,/mnt/disc" or just "cdrom".
DrivePlace FromSetting(const fs::path& machine, char letter, StringView setting) {
  const std::size_t comma = setting.find(u',');
  const StringView place =
      comma == StringView::npos ? StringView() : Trim(setting.substr(comma + 1));
  return {static_cast<char16_t>(letter), String(Trim(setting.substr(0, comma))),
          place.empty() ? DefaultFolder(machine, letter) : machine / ToUtf8(place)};
}

/// The name in a folder that is meant, in whatever case the disk spells it.
fs::path Step(const fs::path& folder, const String& name) {
  const fs::path exact = folder / ToUtf8(name);
  std::error_code ignored;
  if (fs::exists(exact, ignored)) return exact;
  for (fs::directory_iterator at(folder, ignored), end; at != end; at.increment(ignored)) {
    const std::optional<String> other = FromHostName(at->path().filename().string());
    if (other && EqualsIgnoreCase(*other, name)) return at->path();
  }
  return exact;
}

/// The way from `folder` to `path`, as a Windows path without its drive.
std::optional<String> WayInto(const fs::path& folder, const fs::path& path) {
  const auto [rest, reached] =
      std::mismatch(path.begin(), path.end(), folder.begin(), folder.end());
  if (reached != folder.end() || rest == path.end()) return std::nullopt;
  String way;
  for (auto part = rest; part != path.end(); ++part) {
    const std::optional<String> name = FromHostName(part->string());
    if (!name) return std::nullopt;
    way += u'\\' + *name;
  }
  return way;
}

}  // namespace

MachineLayout::MachineLayout(const fs::path& machineFolder) {
  const fs::path machine = Canonical(fs::absolute(machineFolder));
  const IniDocument settings = ReadSettings(machine / "machine.ini");
  const std::size_t section = settings.FindSection(u"Drives");
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    const char16_t wide = static_cast<char16_t>(letter);
    if (section == IniDocument::kNone) {
      const fs::path folder = DefaultFolder(machine, letter);
      if (IsFolder(folder)) drives_.push_back({wide, u"fixed", folder});
    } else if (const auto setting = settings.Value(section, StringView(&wide, 1))) {
      drives_.push_back(FromSetting(machine, letter, *setting));
    }
  }
}

std::optional<char16_t> MachineLayout::FreeLetter() const {
  for (char16_t letter = u'Z'; letter >= u'C'; --letter) {
    const bool taken = std::any_of(drives_.begin(), drives_.end(),
                                   [letter](const auto& drive) { return drive.letter == letter; });
    if (!taken) return letter;
  }
  return std::nullopt;
}

fs::path MachineLayout::HostPathOf(StringView machinePath) const {
  for (const DrivePlace& drive : drives_) {
    if (!EqualsIgnoreCase(DriveName(machinePath), String(1, drive.letter) + u":")) continue;
    fs::path path = drive.folder;
    for (std::size_t at = 2; at < machinePath.size();) {
      const std::size_t end = std::min(machinePath.find_first_of(u"\\/", at), machinePath.size());
      if (end > at) path = Step(path, String(machinePath.substr(at, end - at)));
      at = end + 1;
    }
    return path;
  }
  return {};
}

std::optional<String> MachineLayout::MachinePathOf(const fs::path& hostPath) const {
  const fs::path path = Canonical(hostPath);
  std::optional<String> found;
  std::size_t deepest = 0;
  for (const DrivePlace& drive : drives_) {
    const fs::path folder = Canonical(drive.folder);
    const std::optional<String> way = WayInto(folder, path);
    const std::size_t depth = folder.string().size();
    if (!way || depth <= deepest) continue;
    deepest = depth;
    found = String(1, drive.letter) + u':' + *way;
  }
  return found;
}

bool IsMachinePath(std::string_view text) {
  return text.size() >= 3 && text[1] == ':' && (text[2] == '\\' || text[2] == '/') &&
         ((text[0] >= 'A' && text[0] <= 'Z') || (text[0] >= 'a' && text[0] <= 'z'));
}

}  // namespace norvo::host
