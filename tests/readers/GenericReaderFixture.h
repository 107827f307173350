#pragma once

#include <string>
#include <string_view>

#include "model/ModelTest.h"
#include "readers/PlaylistFixture.h"

namespace norvo {

inline constexpr StringView kPath = u"C:\\Restored\\Mix.ini";

/// Reads neutral files into the playlist in hand.
class GenericReaderFixture : public PlaylistFixture {
 protected:
  GenericReaderFixture() { playlist = component.Create(u"PlayList"); }

  /// Puts the bytes at the path and reads them into the playlist in hand.
  bool ReadBytes(std::string_view bytes) {
    platform->AddFile(kPath, bytes);
    return ToBoolean(CallWith(playlist, u"ReadGeneric", String(kPath)));
  }
  /// The same into a new playlist.
  bool ReadNew(std::string_view bytes) {
    playlist = component.Create(u"PlayList");
    return ReadBytes(bytes);
  }
  ObjectRef EntriesOf() { return ToObject(playlist->Get(u"PlayListEntries")); }
};

/// The lines of a file with these global values behind its version, and with further lines.
inline std::string Generic(const Lines& globals, const Lines& rest = {}) {
  return "[Global Properties]\r\nPavaneVersion=1.6\r\n" + TextOf(globals) + TextOf(rest);
}

/// A file of the type that declares one entry with these lines.
inline std::string OneEntry(int type, const Lines& lines) {
  Lines rest = {"[Entry 1 Properties]"};
  rest.insert(rest.end(), lines.begin(), lines.end());
  return Generic({"PlaylistType=" + std::to_string(type), "TotalSongs=1"}, rest);
}

/// The global values of an ASX playlist without entries.
inline const Lines kAsxGlobals = {"PlaylistName=Mix.asx",   "PlaylistType=1",
                                  "OriginalFileName=M.asx", "CreationTime=5/14/2003 10:12:00 AM",
                                  "Author=the author",      "Artist=the artist",
                                  "Album=the album",        "AllowShuffle=yes",
                                  "Title=the title",        "PlayListAttribute=the attribute",
                                  "ASX Version=2.5",        "TotalSongs=0"};

}  // namespace norvo
