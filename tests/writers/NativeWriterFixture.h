#pragma once

#include <string>
#include <utility>
#include <vector>

#include "model/ModelTest.h"

namespace norvo {

inline constexpr StringView kRoot = u"C:\\My Documents\\Norvo Media\\PlayLists\\";
inline constexpr StringView kAsxFile = u"Windows Media Player\\Mix.asx";
inline constexpr StringView kWinampFile = u"WinAmp\\Mix.m3u";
inline constexpr StringView kMusicMatchFile = u"MusicMatch Jukebox\\Mix.m3u";
inline constexpr StringView kPlsFile = u"Sonique\\Mix.pls";

inline const Lines kFourFiles = {Utf8(kMusicMatchFile), Utf8(kPlsFile), Utf8(kWinampFile),
                                 Utf8(kAsxFile)};

/// An address that is not relocated: its path is the address.
inline const std::pair<StringView, Variant> kStreamType = {u"Entry_URLType", std::int32_t{9}};
inline const std::pair<StringView, Variant> kStream = {u"Entry_SourceURL",
                                                       String(u"http://host/a")};

/// Writes playlists on an installed product through the playlist's public interface.
class NativeWriterFixture : public LibraryTest {
 protected:
  NativeWriterFixture() { platform->ConfigureProduct(); }

  /// A new playlist in hand, with this original file name.
  void NewPlayList(std::int32_t type, StringView fileName = u"Mix.old") {
    playlist = component.Create(u"PlayList");
    playlist->Let(u"PlayListType", type);
    playlist->Let(u"OriginalFileName", String(fileName));
    Entries()->Let(u"CollectionType", type);
  }
  ObjectRef Entries() { return ToObject(playlist->Get(u"PlayListEntries")); }
  void Add(const ObjectRef& entry) {
    std::vector<Variant> arguments{entry};
    Entries()->Call(u"Add", arguments);
  }
  /// Adds an entry of the playlist's own kind.
  ObjectRef Add(Values values) {
    const auto type = ToInt32(playlist->Get(u"PlayListType"));
    const StringView kind = type <= 2                ? u"AsxEntry"
                            : type == 3 || type == 6 ? u"M3UEntry"
                                                     : u"PlsEntry";
    ObjectRef entry = component.Create(kind);
    entry->Let(u"Entry_EntryType", type);
    SetAll(*entry, values);
    Add(entry);
    return entry;
  }
  Variant Write() { return playlist->Call(u"WriteRawPlayList"); }

  /// Paths of all native files behind the destination root.
  Lines Written() {
    Lines paths;
    for (const String& path : platform->Files().AllFiles()) {
      if (path.starts_with(kRoot)) paths.push_back(Utf8(path.substr(kRoot.size())));
    }
    return paths;
  }
  std::string Text(StringView file) {
    const String path = String(kRoot) + String(file);
    return platform->HasFile(path) ? platform->Bytes(path) : "no file";
  }

  ObjectRef playlist;
};

}  // namespace norvo
