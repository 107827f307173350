#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>

#include "automation/AutomationObject.h"
#include "services/Component.h"
#include "services/TextStream.h"
#include "services/UrlType.h"
#include "text/Text.h"

namespace norvo {

/// Judges the references found in playlists and supplies the destination folders of a migration.
namespace DataCop {

inline constexpr StringView kGroup = u"KVMediaPlayLists";

enum class Status : std::uint32_t {
  Ok = 0,                     ///< local file that exists and is a media file
  FileNotFound = 0x800407DB,  ///< or a reference of type 10
  Accepted = 0x800407E0,      ///< types 6 to 9, taken without checks
  NotMedia = 0x800407DF,      ///< the file exists but its path names no media
  Empty = 0x80041389
};

/// Classifies and checks one reference against the playlist's folder. The reference may be
/// rewritten (a relative one in full); `type` stays as it was for an empty one. The size of each
/// existing local file goes into the component's total. `facts`, when given, receives the file's
/// facts from the same look-up. An error of the file system ends it with the result so far.
Status GetGenValue(Component& component, String& reference, StringView baseFolder,
                   std::int32_t& type, std::optional<FileFacts>* facts = nullptr);

/// What names a media file when it stands anywhere in a path, in any case: ".mp3" and so on.
std::span<const StringView> MediaMarks();

/// True for a path with a media mark anywhere in it, so that a folder "x.as" makes all below it
/// media: intended.
bool IsMediaPath(StringView path);

/// Kind of a reference, which is rewritten in full for the types 1 to 4.
std::int32_t GetURLType(Component& component, String& reference, StringView baseFolder);

/// The text between the first `open` and the next `close` behind it, case ignored, trimmed; the
/// rest of the text when `close` is missing, the empty text when `open` is. From the right, the
/// same search runs on the reversed text and its result is reversed back.
String Between(StringView text, StringView open, StringView close, bool fromTheRight = false);

/// The group root with a trailing backslash, empty when none is configured. Loads the sub-name
/// table when it is not loaded yet.
String GetGroupRoot(Component& component);

/// Reads "SubNames.txt" in the group root's folder; true when it could be opened.
bool LoadSubNames(Component& component);

/// Slot of the root of the native playlists.
inline constexpr int kPlayListSlot = 5;

/// Group root + sub-name + backslash; empty without a group root. Slots: 1 artist and album,
/// 2 artist only, 3 album only, 4 neither, `kPlayListSlot`.
String GetSubNamePath(Component& component, int slot);

/// What the registration of media needs to know of the group, looked up once for many entries.
struct Destinations {
  String subGroupRoot;            ///< as configured
  std::array<String, 4> folders;  ///< the sub-name paths of slots 1 to 4
};
Destinations LoadDestinations(Component& component);

/// Which of slots 1 to 4 an item with these names belongs to.
int DestinationSlot(StringView artist, StringView album);

/// Adds the sub-folder of an item with these names, with a trailing backslash.
void AppendSubFolder(String& path, StringView artist, StringView album,
                     const Destinations& destinations);

/// Sub-folder of an entry by its artist and album. The entry's fields are read by name.
String GetEntrySubFolder(AutomationObject& entry, const Destinations& destinations);

/// Hands one media file to the migration list; true when it was accepted. `sourceFolder` ends in a
/// backslash; an empty `fileName` registers the folder.
bool RegisterMedia(Component& component, const Destinations& destinations, StringView label,
                   StringView subFolder, StringView sourceFolder, StringView fileName);
/// The same of a whole record; see `BeginDestination`.
bool RegisterMedia(Component& component, const Destinations& destinations,
                   const MediaRecord& record);

/// Makes the text the beginning of a destination expression, which the sub-folder ends.
void BeginDestination(String& expression, StringView label);

/// Opens a file as text; null when it cannot be got or opened.
std::unique_ptr<TextStream> OpenTextStream(Component& component, StringView path);

}  // namespace DataCop
}  // namespace norvo
