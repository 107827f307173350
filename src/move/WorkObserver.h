#pragma once

#include <cstddef>
#include <string>

#include "services/Warning.h"
#include "text/Text.h"

namespace norvo {

struct CollectedPlaylist;
struct DroppedItem;
struct MovedPlaylist;
struct MovedSong;
struct NativePlaylist;
struct RestoredPlaylist;
struct VerifiedPlaylist;

/// Which machine of a move is meant; calls on a single machine say `Old`.
enum class MachineSide {
  Old,  ///< from which a move comes
  New   ///< to which it goes
};

/// A debug log that a call writes.
struct LogFile {
  String path;  ///< on the machine; empty when none is written
  std::string
      systemPath;  ///< where that is on this system, in UTF-8; empty where it cannot be told
};

/// What a call is busy with.
enum class WorkPhase {
  TakingStock,    ///< looking for all playlists and media files, folder by folder
  Scanning,       ///< looking for playlists, folder by folder
  Collecting,     ///< making generic files of them
  Checking,       ///< looking for what that has lost
  ReadingTags,    ///< of the songs
  Planning,       ///< reading the generic files
  PlanningSongs,  ///< choosing the places of songs
  BringingSongs,  ///< copying, linking or comparing them
  Restoring,      ///< making native playlists of generic files
  Verifying,      ///< reading native playlists back
  Counting        ///< reading the new playlists and songs afresh
};

/// How far a phase is.
struct WorkProgress {
  WorkPhase phase = WorkPhase::Scanning;  ///< what the call is busy with
  std::size_t position = 0;  ///< 1-based number of the file that is begun; folders while scanning
  std::size_t count = 0;     ///< files to do; 0 where that is not known
  double bytesDone = 0;      ///< only while songs are brought
  double bytesTotal = 0;     ///< only while songs are brought
  StringView current;        ///< the file or folder; may be empty
};

/// Something that a call could not do, or not whole, or found to be other than it should be. What
/// the texts and counts are stands beside each kind; what is not named is empty or 0.
struct WorkWarning {
  /// What happened.
  enum class Kind {
    Library,          ///< `warning` tells what the library could not do
    Oddity,           ///< of the machine itself: `warning.text`
    SettingUnusable,  ///< the registry value `subject` is of no use; it is left as it is
    RoleKept,         ///< another role was wished for, but `subject` was there before
    GroupRootKept,    ///< another group root was wished for, but `subject` was there before
    NoLogFolder,      ///< no log is written: the product folder `subject` is missing
    LogNotWritten,    ///< no log is written: its file `subject` cannot be, since `detail`
    NativesMissing,   ///< of playlist `subject` only `found` of `expected` native ones were written
    UntellableAddress,  ///< of playlist `subject`: `detail` does not fit the 8-bit page
    NativeGone,         ///< the native playlist `subject` was written and is gone now
    NativeIncomplete,   ///< `subject` reads back with `found` of `expected` references
    WrongSong,          ///< in `subject` stands `detail`, which does not lead to the song `wanted`
    ChangedAddress,     ///< in `subject` stands `detail`, which was `wanted`
    ListDamaged,        ///< `subject` ends before its own end; what it had behind that is lost
    NoPlainName,        ///< the song `subject` has no second name `wanted`, since `detail`
    TimesLost,          ///< the song `subject` was copied without its times, since `detail`
    CompanionMissing,   ///< of playlist `subject` there is no playlist for players of today
    PlayerNotPointed,   ///< a player's setting `subject` cannot be made `wanted`, since `detail`
    CountedListWrong,   ///< counted at the end: `subject` lists `found` songs of `expected`
    CountedSongWrong,   ///< counted at the end: in `subject` stands `detail`, which is not `wanted`
    TagsNotRead,        ///< the tags of the song `subject` were not read: `detail`
    SettingsOfUser,     ///< below `subject` in the user's hive, since the machine's refuses them
    LinkNotFollowed,    ///< a link of the machine, which nothing is known to need: `warning.text`
    CopiesNotNoted,     ///< which lists were made here could not be noted in `subject`: `detail`
    LogFolderNotMade    ///< the product folder `subject`, which takes logs alone, since `detail`
  };

  Kind kind = Kind::Library;            ///< decides which of the others are set
  MachineSide side = MachineSide::Old;  ///< on which machine
  Warning warning;                      ///< the library's own
  String subject;                       ///< see each kind, as the others
  String detail;                        ///< what was met
  String wanted;                        ///< what should have been
  std::size_t found = 0;                ///< how many
  std::size_t expected = 0;             ///< of how many
};

/// Lets a caller follow long work, and end it. Every call is optional, comes on the thread of the
/// work, and must neither throw nor call back into the work.
class WorkObserver {
 public:
  virtual ~WorkObserver() = default;

  /// A file or folder is begun, or a megabyte of songs is done.
  virtual void OnProgress(const WorkProgress&) {}
  /// The same warning stands in the result.
  virtual void OnWarning(const WorkWarning&) {}
  /// A log of that machine is written from now on.
  virtual void OnLog(MachineSide, const LogFile&) {}
  /// True ends the work at the next file or megabyte; what is done until then is whole.
  virtual bool IsCancelled() { return false; }

  // Of a collecting.
  /// An item of the playlist has become no entry.
  virtual void OnDropped(const CollectedPlaylist&, const DroppedItem&) {}
  /// The queue is done with a playlist.
  virtual void OnCollected(const CollectedPlaylist&) {}
  /// The second playlist's generic file has just replaced that of the first.
  virtual void OnReplaced(const CollectedPlaylist&, const CollectedPlaylist&) {}

  // Of a restoring.
  /// A generic file is done; its native playlists are whole or given up.
  virtual void OnRestored(const RestoredPlaylist&) {}
  /// A native playlist of it is done.
  virtual void OnNative(const NativePlaylist&) {}

  // Of a verifying.
  /// A native playlist has been read back.
  virtual void OnVerified(const VerifiedPlaylist&) {}

  // Of a move.
  /// It is settled what becomes of a song; told once of each.
  virtual void OnSong(const MovedSong&) {}
  /// It is settled what becomes of a playlist; told once of each.
  virtual void OnPlaylist(const MovedPlaylist&) {}
};

}  // namespace norvo
