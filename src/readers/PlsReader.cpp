#include "readers/PlsReader.h"

#include <algorithm>
#include <vector>

#include "automation/Attempt.h"
#include "model/NewEntry.h"
#include "readers/ItemResolver.h"
#include "services/NVServices.h"
#include "services/ProfileFile.h"
#include "services/Utility.h"
#include "text/Number.h"

namespace norvo {
namespace {

constexpr StringView kFileKey = u"File";
constexpr ResolverMessages kPlsMessages = {
    u"NVERR_FILE_NOT_FOUND, PLAYLIST::ReadPLS, File Not Found: ",
    u"NVERR_INVALID_ARG, PLAYLIST::ReadPLS, Invalid Argument or Bad Data: "};

String Numbered(StringView key, std::int32_t number) {
  return String(key) + FormatInteger(number);
}

/// Number of a key such as File12; 0 for every other key. Leading zeros make it another key.
std::int32_t ItemNumber(StringView key) {
  constexpr std::size_t kMostDigits = 10;
  if (key.size() <= kFileKey.size() || key.size() > kFileKey.size() + kMostDigits) return 0;
  const StringView digits = key.substr(kFileKey.size());
  if (!std::all_of(digits.begin(), digits.end(), IsDigit) || digits.front() == u'0') return 0;
  if (!EqualsIgnoreCase(key.substr(0, kFileKey.size()), kFileKey)) return 0;
  const std::optional<double> number = ParseNumber(digits);
  return *number > 2147483647.0 ? 0 : static_cast<std::int32_t>(*number);
}

/// Numbers of the items that are there, up to the declared count, in order. Asking the file for
/// its items, not for every number, makes a count that lies cost nothing.
std::vector<std::int32_t> PresentItems(const ProfileFile& file, std::int32_t declared) {
  std::vector<std::int32_t> numbers;
  for (const StringView key : file.Keys()) {
    const std::int32_t number = ItemNumber(key);
    if (number >= 1 && number <= declared) numbers.push_back(number);
  }
  std::sort(numbers.begin(), numbers.end());
  numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
  return numbers;
}

void ReadItem(Component& component, PlaylistRecord& playlist, const ProfileFile& file,
              ItemResolver& resolver, std::int32_t number) {
  String reference;
  if (file.ReadValue(Numbered(kFileKey, number), reference) != 0) return;
  const std::shared_ptr<FormatEntry> entry = NewEntry(component, playlist.type);
  entry->SetPlayListName(playlist.name);
  const auto item = resolver.Judge(*entry, NVServices::StripNull(reference));
  if (!item) return;
  String value;
  if (file.ReadValue(Numbered(u"Length", number), value) == 0) {
    entry->SetDuration(String(NVServices::StripNull(value)));
  }
  value.clear();
  file.ReadValue(Numbered(u"Title", number), value);
  resolver.Complete(entry, *item, NVServices::StripNull(value), kMusicLabel);
}

void ReadItems(Component& component, PlaylistRecord& playlist, StringView fileName,
               const String& folder) {
  ProfileFile file(component);
  file.OpenFile(folder + String(fileName), kLargestPlaylist);  // its status does not matter
  file.SelectSection(u"playlist");
  playlist.entries->SetCollectionType(playlist.type);
  String declared;
  if (file.ReadValue(u"NumberOfEntries", declared) != 0) return;
  playlist.totalSongsStore = declared;
  ItemResolver resolver(component, playlist, folder, kPlsMessages);
  for (const std::int32_t number : PresentItems(file, Int32FromText(declared))) {
    ReadItem(component, playlist, file, resolver, number);
  }
}

}  // namespace

bool ReadPLS(Component& component, PlaylistRecord& playlist, StringView fileName,
             StringView folder) {
  // After an error the entries added so far stay.
  return Attempt([&] { ReadItems(component, playlist, fileName, Utility::AddBackslash(folder)); });
}

}  // namespace norvo
