#pragma once

#include <cstdint>

#include "text/Text.h"

namespace norvo {

/// What became of one listed playlist in the queue.
enum class PlaylistOutcome {
  Written,      ///< its generic file stands
  Unnamed,      ///< it has entries, but no name for its generic file
  NotWritten,   ///< it has entries, but its generic file could not be written
  Empty,        ///< no entry was kept
  UnknownType,  ///< its first lines tell no type
  Unreadable    ///< the read failed
};

/// Lets a host follow long work. Every call is optional and must not call back into the library.
class Observer {
 public:
  virtual ~Observer() = default;
  /// Each finished log line, whatever the log switch says.
  virtual void OnLogLine(StringView) {}
  virtual void OnFolder(StringView /*path*/) {}
  /// `position` is 1-based.
  virtual void OnPlaylistBegin(StringView /*path*/, std::size_t /*position*/,
                               std::size_t /*count*/) {}
  /// `kept` counts the playlist's entries; `genericFile` is set when it was written.
  virtual void OnPlaylistEnd(StringView /*path*/, std::int32_t /*type*/, PlaylistOutcome,
                             std::size_t /*kept*/, StringView /*genericFile*/) {}
};

}  // namespace norvo
