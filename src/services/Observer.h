#pragma once

#include <cstdint>

#include "services/Warning.h"
#include "text/Text.h"

namespace norvo {

/// What became of one listed playlist in the queue.
enum class PlaylistOutcome {
  Written,      ///< its generic file stands
  Unnamed,      ///< it has entries, but no name for its generic file
  NotWritten,   ///< it has entries, but its generic file could not be written
  Empty,        ///< no entry was kept
  UnknownType,  ///< its first lines tell no type
  Unreadable,   ///< the read failed
  Restored,     ///< a generic file was turned into native playlists
};

/// What became of one item of a playlist that is being read.
enum class ItemOutcome {
  Kept,          ///< it became an entry
  Missing,       ///< no such file
  NotMedia,      ///< the file exists, but is no media file to the library
  Empty,         ///< an empty reference
  NotRegistered  ///< the media list does not take it
};

/// Lets a host follow long work. Every call is optional and must not call back into the library.
///
/// An exception out of a call counts as an error of the work that it tells of, and ends just that:
/// the scan or the queue, with a log line; the reading of a playlist, whose entries so far stay;
/// the writing of a native file; the settings of a player. The search for media files hands it on
/// to its caller. Four calls must not throw, since nothing catches it there: OnLogLine, OnWarning
/// and OnPlayerSettingLost, which errors are told by, and OnNativeFileEnd, which is called by a
/// destructor.
class Observer {
 public:
  virtual ~Observer() = default;
  /// Each finished log line, whatever the log switch says.
  virtual void OnLogLine(StringView) {}
  /// Work that was not done. Follows right behind the log line that tells of it.
  virtual void OnWarning(const Warning&) {}
  /// A search is about to look into a folder.
  virtual void OnFolder(StringView /*path*/) {}
  /// The scan has met a playlist file, whether it will list it or not.
  virtual void OnPlaylistFile(StringView /*path*/) {}
  /// The search for media files has met one.
  virtual void OnMediaFile(StringView /*path*/) {}
  /// The queue begins with a playlist. `position` is 1-based.
  virtual void OnPlaylistBegin(StringView /*path*/, std::size_t /*position*/,
                               std::size_t /*count*/) {}
  /// The queue has ended with a playlist. `kept` counts the playlist's entries. `genericFile` is
  /// its generic file when that was written, else empty; of a restored one it is the file that was
  /// read, which `path` is too.
  virtual void OnPlaylistEnd(StringView /*path*/, std::int32_t /*type*/, PlaylistOutcome,
                             std::size_t /*kept*/, StringView /*genericFile*/) {}
  /// The next item of the playlist that is being read; `reference` as it was resolved.
  virtual void OnItem(StringView /*reference*/, ItemOutcome) {}
  /// Whether the entry that an item becomes shall be kept. Else an empty one counts in its place,
  /// one for all: a host that only listens needs no memory for them.
  virtual bool WantsEntries() { return true; }

  /// Whether the queue shall restore a generic file that it has found.
  virtual bool WantsGenericFile(StringView /*path*/) { return true; }
  /// A native playlist is about to be created. An error out of this call keeps it from that.
  virtual void OnNativeFile(StringView /*path*/, std::int32_t /*type*/) {}
  /// It is as whole as it will be; `whole` tells whether that is to its end. Also called for one
  /// that could not be created.
  virtual void OnNativeFileEnd(StringView /*path*/, bool /*whole*/) {}
  /// A player was pointed at the folder of its playlists; `place` names the setting.
  virtual void OnPlayerSetting(StringView /*player*/, StringView /*place*/, StringView /*value*/) {}
  /// A player that is there could not be pointed at that folder; the log says nothing of it.
  /// `reason` is the error's description; empty where there is none.
  virtual void OnPlayerSettingLost(StringView /*player*/, StringView /*place*/,
                                   StringView /*value*/, StringView /*reason*/) {}
};

}  // namespace norvo
