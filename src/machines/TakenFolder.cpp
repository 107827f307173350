#include "machines/TakenFolder.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <system_error>

#include "machines/ListedNames.h"
#include "machines/MachineFolder.h"
#include "move/MoveError.h"
#include "platform/files/DiskPath.h"
#include "platform/hosted/DiskName.h"
#include "text/Text.h"

namespace norvo {
namespace {

namespace fs = std::filesystem;

/// What Windows puts at the top of its disk.
constexpr StringView kSigns[] = {u"Windows", u"WINNT", u"Users", u"Documents and Settings",
                                 u"Program Files"};

/// The place of a name in the order of the signs; behind all for another name.
std::size_t RankOf(StringView name) {
  const auto sign = std::find_if(std::begin(kSigns), std::end(kSigns),
                                 [name](StringView each) { return EqualsIgnoreCase(each, name); });
  return static_cast<std::size_t>(sign - std::begin(kSigns));
}

/// The first of the signs that a folder has, as the disk spells it.
std::optional<std::string> SignOf(const fs::path& folder) {
  std::size_t best = std::size(kSigns);
  std::optional<std::string> found;
  const FileResult<std::vector<ListedName>> names = NamesIn(folder);
  if (!names) return found;
  for (const ListedName& each : *names) {
    const std::optional<String> name = FromDiskName(each.name);
    const std::size_t rank = name ? RankOf(*name) : best;
    if (rank >= best || !IsFolder(folder, each)) continue;
    best = rank;
    found = each.name;
  }
  return found;
}

bool HoldsNothing(const fs::path& folder) {
  const FileResult<std::vector<ListedName>> names = NamesIn(folder);
  return !names || std::all_of(names->begin(), names->end(),
                               [](const ListedName& each) { return IsBesideDrives(each.name); });
}

TakenFolder AsDrive(const fs::path& folder, const std::string& drive) {
  TakenFolder taken{folder, TakenFolder::Kind::NamedDrive, DriveLetterOf(drive), folder, {}};
  if (HasMachineSettings(folder)) throw MoveError(MoveFault::DriveTold, ShownPath(folder), drive);
  return taken;
}

TakenFolder::Kind KindBy(MachineSign sign) {
  if (sign == MachineSign::Settings) return TakenFolder::Kind::DescribedMachine;
  return sign == MachineSign::Registry ? TakenFolder::Kind::MadeMachine
                                       : TakenFolder::Kind::DrivesAlone;
}

TakenFolder AsMachine(const fs::path& folder, MachineSign sign) {
  std::error_code ignored;
  const bool lower = !fs::exists(folder / "C", ignored) && fs::exists(folder / "c", ignored);
  return {folder, KindBy(sign), u'C', folder / (lower ? "c" : "C"), {}};
}

}  // namespace

char16_t DriveLetterOf(const std::string& drive) {
  const bool one = drive.size() == 1 || (drive.size() == 2 && drive[1] == ':');
  const char16_t letter = one ? ToUpper(static_cast<unsigned char>(drive[0])) : u'\0';
  if (letter < u'C' || letter > u'Z') throw MoveError(MoveFault::DriveLetterUnusable, drive);
  return letter;
}

TakenFolder TakeFolder(const fs::path& folder, const std::string& drive) {
  using Kind = TakenFolder::Kind;
  if (!drive.empty()) return AsDrive(folder, drive);
  std::error_code ignored;
  if (!fs::is_directory(folder, ignored)) return {folder, Kind::Missing, u'C', folder / "C", {}};
  const MachineSign machine = SignOfMachine(folder);
  if (machine != MachineSign::None) return AsMachine(folder, machine);
  if (const auto sign = SignOf(folder)) return {folder, Kind::WindowsDisk, u'C', folder, *sign};
  if (HoldsNothing(folder)) return {folder, Kind::Empty, u'C', folder / "C", {}};
  return {folder, Kind::OtherDisk, u'C', folder, {}};
}

}  // namespace norvo
