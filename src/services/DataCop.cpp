#include "services/DataCop.h"

#include <algorithm>

#include "automation/Conversions.h"
#include "automation/RunTimeError.h"
#include "services/NVServices.h"
#include "services/ProfileFile.h"
#include "services/Utility.h"
#include "text/Wildcard.h"
#include "text/WindowsPath.h"

namespace norvo::DataCop {
namespace {

struct PatternRow {
  StringView pattern;
  std::int32_t type;
};

// In the order of trial; the first that matches decides. The fifth, with its bracket closed early,
// is meant as it stands.
constexpr PatternRow kPatterns[] = {
    {u"\\\\*", url_type::kShare},           {u"http://*", url_type::kInternet},
    {u"ftp://*", url_type::kInternet},      {u"mms://*", url_type::kInternet},
    {u"\\[A-Z.#]*", url_type::kDriveRoot},  {u".*\\[A-Z.#]*", url_type::kDotted},
    {u".\\[A-Z].#]*", url_type::kRelative}, {u"[A-Z#]*\\*", url_type::kRelative},
    {u"*[!\\]*", url_type::kBareName},      {u"*", url_type::kUnusable},
};

// Bytes of "SubNames.txt", which has six names of folders. Each is part of every song's new path.
constexpr std::uint64_t kLargestSubNames = std::uint64_t{1024} * 1024;

constexpr StringView kMediaMarks[] = {u".mp3", u".asx", u".wav",  u".cda", u".asf",
                                      u".as",  u".aif", u".aiff", u".wma"};

std::int32_t TypeByDrive(DriveType drive) {
  switch (drive) {
    case DriveType::Removable:
    case DriveType::CdRom:
      return url_type::kRemovable;
    case DriveType::Fixed:
      return url_type::kFixedDrive;
    case DriveType::Network:
      return url_type::kNetworkDrive;
    case DriveType::RamDisk:
      return url_type::kRamDisk;
    case DriveType::Unknown:
      break;
  }
  return url_type::kUnusable;
}

std::int32_t TypeByPattern(StringView reference) {
  const auto* const row =
      std::find_if(std::begin(kPatterns), std::end(kPatterns), [&](const PatternRow& candidate) {
        return Matches(reference, candidate.pattern, Compare::Text);
      });
  // Only the empty text matches none of the rows before the last.
  return row == std::end(kPatterns) ? url_type::kUnusable : row->type;
}

/// What "[C-Zc-z]:\\*" matches. Drive letters A and B are left out on purpose: such references fall
/// through to the patterns.
bool NamesDrive(StringView reference) {
  if (reference.size() < 3 || reference[1] != u':' || reference[2] != u'\\') return false;
  const char16_t lower = ToLowerAscii(reference[0]);
  return lower >= u'c' && lower <= u'z';
}

/// The kind of a reference, and its facts where the resolution had to look at the file.
struct Classification {
  std::int32_t type = url_type::kFixedDrive;
  std::optional<FileFacts> facts;
};

void Resolve(Component& component, String& reference, StringView folder, Classification& result) {
  if (result.type == url_type::kDriveRoot) {
    String onDrive = String(DriveName(folder)) + reference;
    result.facts = NVServices::FactsOfFile(component, onDrive);
    if (result.facts) reference = std::move(onDrive);
  } else if (result.type >= url_type::kDotted && result.type <= url_type::kBareName) {
    reference = component.Files().AbsolutePathName(String(folder) + reference);
  }
}

Classification Classify(Component& component, String& reference, StringView baseFolder) {
  Classification result;
  const bool slashed = !baseFolder.empty() && baseFolder.back() == u'\\';
  const String folder = slashed ? String() : Utility::AddBackslash(baseFolder);
  try {
    if (NamesDrive(reference)) {
      result.type = TypeByDrive(component.Files().TypeOfDrive(reference));
    } else {
      result.type = TypeByPattern(reference);
      Resolve(component, reference, slashed ? baseFolder : StringView(folder), result);
    }
  } catch (const RunTimeError&) {
    // The result so far stands; the readers report with their own messages.
  }
  return result;
}

/// A path that is not empty with a backslash at its end.
void EndWithBackslash(String& path) {
  if (path.back() != u'\\') path.push_back(u'\\');
}

String Reversed(StringView text) {
  return String(text.rbegin(), text.rend());
}

/// The entry's name of one kind: the extended one of an ASX entry goes before the plain one.
String CleanName(AutomationObject& entry, bool isAsx, StringView plain, StringView extended) {
  String name = isAsx ? ToText(entry.Get(extended)) : String();
  if (name.empty()) name = ToText(entry.Get(plain));
  const StringView clean = NVServices::StripNull(name);
  return clean.size() == name.size() ? name : String(clean);
}

}  // namespace

std::span<const StringView> MediaMarks() {
  return kMediaMarks;
}

bool IsMediaPath(StringView path) {
  for (std::size_t point = FindUnit(path, u'.'); point != StringView::npos;
       point = FindUnit(path, u'.', point + 1)) {
    const StringView rest = path.substr(point);
    for (const StringView mark : kMediaMarks) {
      if (EqualsIgnoreCase(rest.substr(0, mark.size()), mark)) return true;
    }
  }
  return false;
}

std::int32_t GetURLType(Component& component, String& reference, StringView baseFolder) {
  return Classify(component, reference, baseFolder).type;
}

Status GetGenValue(Component& component, String& reference, StringView baseFolder,
                   std::int32_t& type, std::optional<FileFacts>* facts) {
  if (reference.empty()) return Status::Empty;
  Classification found = Classify(component, reference, baseFolder);
  type = found.type;
  if (type == url_type::kUnusable) return Status::FileNotFound;
  if (type >= url_type::kRemovable) return Status::Accepted;
  // A reference from the drive's root has been looked for already, on the playlist's drive only.
  if (type != url_type::kDriveRoot) {
    found.facts = NVServices::FactsOfFile(component, reference);
  }
  if (!found.facts) {
    type = url_type::kUnusable;
    return Status::FileNotFound;
  }
  component.MediaBytes() += found.facts->size;  // files that are no media count too, and repeats
  if (facts != nullptr) *facts = std::move(found.facts);
  return IsMediaPath(reference) ? Status::Ok : Status::NotMedia;
}

String Between(StringView text, StringView open, StringView close, bool fromTheRight) {
  if (fromTheRight) return Reversed(Between(Reversed(text), open, close));
  const std::size_t start = FindIgnoreCase(text, open);
  if (start == StringView::npos) return {};
  const StringView rest = text.substr(start + open.size());
  return String(Trim(rest.substr(0, FindIgnoreCase(rest, close))));
}

String GetGroupRoot(Component& component) {
  if (!component.SubNames().loaded) LoadSubNames(component);
  String root;
  NVServices::GetSubGroupRoot(component, kGroup, root);
  if (!root.empty()) EndWithBackslash(root);
  return root;
}

bool LoadSubNames(Component& component) {
  // The last two keys differ in case from the others; the service does not mind.
  constexpr StringView kKeys[] = {u"SzID001", u"SzID002", u"SzID003",
                                  u"SzID004", u"szID005", u"szID006"};
  String root;
  NVServices::GetSubGroupRoot(component, kGroup, root);
  ProfileFile file(component);
  if (root.empty() ||
      !file.OpenFile(Utility::AddBackslash(root) + u"SubNames.txt", kLargestSubNames) ||
      !file.Exists()) {
    return false;
  }
  SubNameTable& table = component.SubNames();
  file.SelectSection(u"PlayListStrings");
  for (std::size_t slot = 0; slot < table.names.size(); ++slot) {
    table.names[slot].clear();
    file.ReadValue(kKeys[slot], table.names[slot]);
  }
  table.loaded = true;
  return true;
}

String GetSubNamePath(Component& component, int slot) {
  String path = GetGroupRoot(component);
  if (path.empty()) return {};
  path += component.SubNames().names.at(static_cast<std::size_t>(slot - 1));
  EndWithBackslash(path);
  return path;
}

Destinations LoadDestinations(Component& component) {
  Destinations destinations;
  NVServices::GetSubGroupRoot(component, kGroup, destinations.subGroupRoot);
  for (int slot = 1; slot <= 4; ++slot) {
    destinations.folders[static_cast<std::size_t>(slot - 1)] = GetSubNamePath(component, slot);
  }
  return destinations;
}

int DestinationSlot(StringView artist, StringView album) {
  if (!artist.empty()) return album.empty() ? 2 : 1;
  return album.empty() ? 4 : 3;
}

void AppendSubFolder(String& path, StringView artist, StringView album,
                     const Destinations& destinations) {
  path += destinations.folders.at(static_cast<std::size_t>(DestinationSlot(artist, album) - 1));
  if (!artist.empty()) path.append(artist).append(1, u'\\');
  if (!album.empty()) path.append(album).append(1, u'\\');
}

String GetEntrySubFolder(AutomationObject& entry, const Destinations& destinations) {
  const bool isAsx = entry.ClassName() == u"AsxEntry";
  const String artist = CleanName(entry, isAsx, u"Entry_ArtistName", u"ASX_Artist");
  const String album = CleanName(entry, isAsx, u"Entry_AlbumName", u"ASX_Album");
  String path;
  AppendSubFolder(path, artist, album, destinations);
  return path;
}

void BeginDestination(String& expression, StringView label) {
  constexpr StringView kMacro = u"GET_SHELL_FOLDER,5,";
  expression.assign(kMacro).append(label).append(1, u',');
}

bool RegisterMedia(Component& component, const Destinations& destinations,
                   const MediaRecord& record) {
  MigrationList& list = component.Machine().Migration();
  return list.EnsureGroup(kGroup, destinations.subGroupRoot) && list.Add(record);
}

bool RegisterMedia(Component& component, const Destinations& destinations, StringView label,
                   StringView subFolder, StringView sourceFolder, StringView fileName) {
  MediaRecord record;
  record.source.append(sourceFolder).append(fileName);
  BeginDestination(record.destination, label);
  record.destination += subFolder;
  record.category = label;
  return RegisterMedia(component, destinations, record);
}

std::unique_ptr<TextStream> OpenTextStream(Component& component, StringView path) {
  try {
    return std::make_unique<TextStream>(component.Files(), path, component.Machine().AnsiPage());
  } catch (const RunTimeError&) {
    return nullptr;
  }
}

}  // namespace norvo::DataCop
