#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "move/MediaPlacer.h"
#include "move/PlayerSetting.h"
#include "move/WorkObserver.h"
#include "text/Text.h"

namespace norvo {

/// A media file of the old machine that goes along, and its one place on the new one.
struct MovedSong {
  /// What has become of it.
  enum class State {
    Planned,       ///< its place is chosen; it was not to be brought, or not yet
    Copied,        ///< it stands at its place
    Linked,        ///< it has a second name there
    AlreadyThere,  ///< its place held it before
    LeftOut        ///< `fault` tells why
  };
  /// Why a song was left out.
  enum class Fault {
    None,               ///< it was not
    PathTooLong,        ///< `faultPath` would be too long
    FolderBlocked,      ///< a file stands where a folder of `faultPath` should be
    NumbersTaken,       ///< all numbered names of `faultPath` are taken
    GroupRootUnusable,  ///< the group root `faultPath` is no path of plain characters
    NotBrought          ///< `failure` tells why
  };

  String source;       ///< full path on the old machine
  double size = 0;     ///< bytes
  bool listed = true;  ///< some playlist names it; else all music was wished for
  String place;        ///< full path on the new machine; empty when there is none
  /// Full path of a second name of the song for the players' own playlists, which are text in the
  /// 8-bit page; empty where the place itself fits that.
  String secondPlace;
  State state = State::Planned;               ///< what has become of it
  Fault fault = Fault::None;                  ///< why it was left out
  String faultPath;                           ///< of what the fault tells
  PlaceFailure failure = PlaceFailure::None;  ///< why it was not brought
  String systemReason;                        ///< what the system said of the failure; may be empty

  /// The path by which the players' own playlists name it.
  const String& PlainPlace() const { return secondPlace.empty() ? place : secondPlace; }
};

/// One item of a playlist and what becomes of it. A move has very many: their texts stand in a
/// pool, each once, and hold as long as `MoveResult::texts`.
struct MovedItem {
  /// What becomes of it.
  enum class Fate {
    Song,        ///< a song of the move, by its number; its own state tells the rest
    Address,     ///< stays as it is: internet, a share, a removable or network drive
    NoSuchFile,  ///< left out: it leads to nothing, and no file of its name is anywhere
    NotMedia,    ///< left out: it leads to a file that no player plays
    Ambiguous    ///< left out: it leads to nothing, and `candidates` have its name
  };

  Fate fate = Fate::Song;          ///< decides which of the others are set
  bool foundElsewhere = false;     ///< the song is not where the reference points
  std::size_t song = 0;            ///< 0-based number among the move's songs
  StringView reference;            ///< of an address as it goes along; of all else as it was listed
  std::size_t entry = 0;           ///< 1-based number in the new playlist; 0 for what is left out
  std::vector<String> candidates;  ///< full paths on the old machine, of many the first ten
  std::size_t candidateCount = 0;  ///< all of them; only of what is ambiguous
  StringView artist;               ///< as far as the playlist or the song's tag tells it
  StringView title;                ///< the same

  /// True for a song of the move.
  bool IsSong() const { return fate == Fate::Song; }
  /// True for what becomes an entry of the new playlist, if nothing fails.
  bool IsCarried() const { return fate == Fate::Song || fate == Fate::Address; }
};

/// What was mended about a playlist that the library's own rules would have cut.
struct Mending {
  /// What was wrong, and what was done.
  enum class Kind {
    NotListed,          ///< read anew: its first lines tell no type, so it was not listed
    QueueEnded,         ///< read anew: the queue ended before it had a generic file
    Unnamed,            ///< read anew: it had no name for its generic file
    NotWritten,         ///< read anew: its generic file could not be written under its name
    NothingUnderstood,  ///< read anew: none of its lines was understood
    UnknownType,        ///< read anew: its first lines tell no type
    NotReadToEnd,       ///< read anew
    NameTaken,          ///< read anew: another playlist's generic file took its name
    Incomplete,         ///< read anew: its generic file does not tell all that it lists
    EntriesAdded,       ///< `count` entries that the readers do not take
    Split,              ///< into several, since a playlist holds at most 32767 entries
    OtherKind,          ///< read as a kind that the library does not know
    DetailsFilled       ///< names or lengths of `count` entries taken from the songs' own tags
  };

  Kind kind = Kind::Incomplete;  ///< what was wrong
  std::size_t count = 0;         ///< only where the kind says so
};

/// One playlist and what became of it.
struct MovedPlaylist {
  /// How far it has come.
  enum class State {
    Collected,        ///< on the old machine, and no further
    Restored,         ///< by this run
    AlreadyRestored,  ///< by an earlier one
    NoSongs,          ///< it lists nothing that exists
    Skipped,          ///< it stands where nothing is taken from; `rule` tells where
    LeftOut           ///< `fault` tells why
  };
  /// Where nothing is taken from.
  enum class SkipRule {
    None,                    ///< it stands elsewhere
    RecycleBin,              ///< it was deleted
    TemporaryInternetFiles,  ///< a browser keeps it
    SystemFolder,            ///< the system's own store
    OtherForm                ///< it stands elsewhere, and another one that is moved says the same
  };
  /// Why a playlist was left out; `systemReason` says more of those that a reading or writing
  /// ended.
  enum class Fault {
    None,                    ///< it was not
    KindNotRead,             ///< nobody but its own player can read it
    NotUnderstood,           ///< it is damaged, or no list but for its name
    Unreadable,              ///< on the old machine
    GenericNotWritten,       ///< on the old machine
    GenericDoesNotReadBack,  ///< what was written for it tells something else
    NotCarried,              ///< its generic file cannot be written on the new machine
    NotRestored,             ///< its native playlists cannot be written
    NotNoted                 ///< the new machine cannot note what is restored
  };

  String source;                   ///< full path on the old machine
  String name;                     ///< its own, where a file holds several; else empty
  std::string kind;                ///< what people call such a list, in English
  std::int32_t type = 0;           ///< see playlist_type; 0 where its text tells none
  State state = State::Collected;  ///< how far it has come
  SkipRule rule = SkipRule::None;  ///< why it was skipped
  Fault fault = Fault::None;       ///< why it was left out
  String systemReason;             ///< what the system said; may be empty
  std::vector<Mending> mendings;   ///< empty where the library's own rules keep all
  std::vector<MovedItem> items;    ///< every one, in the playlist's order
  String collected;                ///< its generic file on the old machine; empty without one
  String carried;                  ///< its generic file on the new machine; empty without one
  std::vector<String> natives;     ///< the playlists of the players made of it
  /// The one for players of today, text in UTF-8, which tells every name; empty without one.
  String companion;
};

/// A change of what a carried generic file says.
struct Adjustment {
  /// Why.
  enum class Reason {
    NameUnusable,       ///< native playlists would lose the name, or have none that Windows takes
    ManyOfOneName,      ///< many playlists have this name
    NativeBlocked,      ///< a folder, or a dangling link, has the name of a native playlist
    Markup,             ///< ASX files would take the text for markup
    RelativeReference,  ///< a relative reference gives no file name
    NotInCodePage,      ///< playlists cannot tell the path in the 8-bit page
    PathTooLong,        ///< for Windows, or for the disk that holds the machine
    IllegalName,        ///< no path on Windows may be called so
    LeavesGroupRoot,    ///< the path would lead out of the group root
    OtherSong,          ///< another song has the place
    FolderThere,        ///< a folder has the name
    OtherFile,          ///< another file has the place
    PlaceElsewhere,     ///< the song has its one place elsewhere
    OldAddressTaken     ///< on the new machine another file stands at the old address
  };

  std::size_t playlist = 0;              ///< 0-based number among the move's playlists
  std::size_t entry = 0;                 ///< 1-based; 0 for the playlist itself
  String key;                            ///< of the generic file
  String before;                         ///< its value as it was collected
  String after;                          ///< its value as it is carried
  Reason reason = Reason::NameUnusable;  ///< why
};

/// What the reading back of all native playlists gave; what was wrong is among the warnings.
struct Verification {
  std::size_t checked = 0;  ///< local references of native playlists that were looked up
  std::size_t found = 0;    ///< and lead to the right file
};

/// A media file of the old machine that no playlist names and that stays behind.
struct UnlistedSong {
  String source;                                                 ///< full path on the old machine
  double size = 0;                                               ///< bytes
  MovedPlaylist::SkipRule rule = MovedPlaylist::SkipRule::None;  ///< where nothing is taken from
};

/// What the count at the end gave: every new playlist read afresh by a reader of its own, and its
/// songs held against those of the old machine, by content and order. What was wrong is among the
/// warnings.
struct FinalCount {
  std::size_t playlists = 0;       ///< old ones that were moved
  std::size_t wholePlaylists = 0;  ///< and are there, in each of their new forms
  std::size_t songs = 0;           ///< that should be reached from some playlist
  std::size_t rightSongs = 0;      ///< and are, with the same content
};

/// A log that the move has written.
struct MoveLog {
  MachineSide side = MachineSide::Old;  ///< whose
  LogFile file;                         ///< where it stands
};

/// A whole move as data: what was found, what became of it.
struct MoveResult {
  std::shared_ptr<const void> texts;     ///< keeps those that the playlists' items view
  std::vector<MovedPlaylist> playlists;  ///< in the order of the scan
  std::vector<MovedSong> songs;          ///< each once, however many playlists name it
  std::vector<UnlistedSong> unlisted;    ///< in the order of their folders
  std::vector<Adjustment> adjustments;   ///< of what the carried generic files say
  std::vector<PlayerSetting> settings;   ///< that point the players at their playlists
  Verification verification;             ///< how many references were found
  FinalCount count;                      ///< what stands on the new machine at the end
  std::vector<WorkWarning> warnings;     ///< in the order in which they came up
  std::vector<MoveLog> logs;             ///< when one was wished for
  bool cancelled = false;  ///< the observer ended it; what is done stays, another run completes it

  /// True when nothing that exists was left behind unasked: no warning that is more than a notice,
  /// no song or playlist left out, no item that may be one of several songs. Songs in no playlist,
  /// and playlists where nothing is taken from, do not count.
  bool IsWhole() const;
};

/// True for a warning of what was found and is kept as it is, of a song that is whole but for its
/// times, and of a link that is not followed: nothing is known to be left behind for it.
bool IsNotice(const WorkWarning& warning);

/// Items of a playlist that are songs.
std::size_t CountSongs(const MovedPlaylist& playlist);
/// Items of a playlist that it lists and that did not come over, songs that were left out included.
std::size_t CountMissing(const MoveResult& move, const MovedPlaylist& playlist);
/// Items of a playlist that are addresses, which stay.
std::size_t CountAddresses(const MovedPlaylist& playlist);
/// Playlists in that state.
std::size_t CountOf(const MoveResult& move, MovedPlaylist::State state);
/// Playlists of which something was mended.
std::size_t CountMended(const MoveResult& move);

}  // namespace norvo
