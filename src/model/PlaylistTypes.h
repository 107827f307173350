#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "text/Text.h"

namespace norvo {

/// Codes of the playlist types. What stands beside each makes and reads such playlists.
namespace playlist_type {
inline constexpr std::int32_t kUnknown = 0;     ///< none of them
inline constexpr std::int32_t kWmpAsx = 1;      ///< .asx of Windows Media Player
inline constexpr std::int32_t kWmpM3u = 2;      ///< .m3u with the text of an .asx
inline constexpr std::int32_t kWinampM3u = 3;   ///< .m3u of Winamp, with titles
inline constexpr std::int32_t kWinampPls = 4;   ///< .pls of Winamp
inline constexpr std::int32_t kSoniquePls = 5;  ///< .pls of Sonique
inline constexpr std::int32_t kMmjbM3u = 6;     ///< .m3u of MusicMatch Jukebox, bare paths
}  // namespace playlist_type

/// How a native playlist is written: chooses its reader and its writer.
enum class Syntax {
  Asx,      ///< elements in angle brackets
  M3u,      ///< a header line, and lines with titles before the references
  BareM3u,  ///< a reference in each line
  Pls       ///< keys and values in a section
};

/// Class of a playlist's entries.
enum class EntryKind {
  Asx,  ///< `AsxEntry`
  M3u,  ///< `M3UEntry`
  Pls   ///< `PlsEntry`
};

/// What the extended-information text of an item holds.
enum class ItemInfo {
  None,        ///< nothing: there is no such text
  ExtInfLine,  ///< duration, artist and song in one line
  Title        ///< artist and song
};

/// Where the files of an ending tell their types.
enum class Header {
  FirstLines,   ///< in their first lines
  SettingsKeys  ///< in the keys of their section
};

/// What tells a type in the header; each part that is empty tells nothing.
struct HeaderMark {
  StringView text{};            ///< anywhere in one of the first lines, in any case
  StringView pattern{};         ///< one of the first lines matches it, in any case
  StringView key{};             ///< stands among the keys, whatever its value
  StringView version{};         ///< value of the key "Version"
  bool withoutVersion = false;  ///< there is no such key
};

/// Whether a playlist whose text tells no type is taken for one of this type.
enum class StandIn {
  Never,          ///< it is not
  WithTitles,     ///< when it has titles
  WithoutTitles,  ///< when it has none
  Always          ///< in either case
};

/// Everything that the library knows of one playlist type; nobody else spells it out.
struct PlaylistType {
  std::int32_t code;        ///< one of playlist_type
  StringView name;          ///< "WMP_ASX" and so on
  StringView extension;     ///< of the native files, with its point
  StringView playerFolder;  ///< folder of the player's restored playlists
  std::int32_t queuePlace;  ///< 1-based, in the list file and the queue

  Syntax readAs;                       ///< chooses the reader
  StringView failureText;              ///< log line of a failed read
  std::optional<Syntax> writtenAs{};   ///< nothing: restored playlists are not written so
  EntryKind entries = EntryKind::M3u;  ///< class of its entries
  StringView entryExtension{};  ///< what an entry cuts off its playlist name; empty: the extension
  ItemInfo itemInfo = ItemInfo::None;  ///< what a reader finds beside a reference

  Header header = Header::FirstLines;  ///< the same for all types of one extension
  HeaderMark mark{};                   ///< what tells this type there
  StandIn standIn = StandIn::Never;    ///< for lists that tell none

  bool isToldByExtension = false;   ///< a scan lists every file of the extension as this type
  bool keepsExtension = false;      ///< the playlist's name is the file's whole name
  bool restoresProperties = false;  ///< a generic file gives the playlist's ASX properties back

  /// "ASX of Windows Media Player" and so on.
  String Title() const;
};

/// All types, by code.
std::span<const PlaylistType> PlaylistTypes();

/// The types in the order of the list file and the queue.
std::span<const PlaylistType* const> QueuedTypes();

/// The types that every restored playlist is written as, in the order of writing.
std::vector<const PlaylistType*> NativeTypes();

/// Every extension that a type has, once, with its point.
std::span<const StringView> PlaylistExtensions();

/// Null for a code that is none of them.
const PlaylistType* FindPlaylistType(std::int32_t code);

/// True for a name with the type's extension, case ignored.
bool HasExtension(StringView fileName, const PlaylistType& type);

/// The first type with the file name's extension for which `fits` holds; null without one.
template <class Condition>
const PlaylistType* FindTypeOfFile(StringView fileName, Condition&& fits) {
  for (const PlaylistType& type : PlaylistTypes()) {
    if (HasExtension(fileName, type) && fits(type)) return &type;
  }
  return nullptr;
}

/// True for a name with the extension of some type, case ignored.
bool IsPlayListFile(StringView fileName);

/// Extension that serves where a name has none of a playlist.
inline constexpr StringView kUsualExtension = u".m3u";

/// The type that a playlist whose text tells none is taken for, by its file's name and whether it
/// has titles; a name without a playlist's extension counts as one with the usual extension.
const PlaylistType& StandInType(StringView fileName, bool hasTitles);

/// Extension that an entry of that type cuts off its playlist name. Empty for an unknown type.
StringView EntryExtension(std::int32_t code);

/// True for the types whose entries are `AsxEntry` objects.
bool HasAsxEntries(std::int32_t code);

}  // namespace norvo
