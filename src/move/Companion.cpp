#include "move/Companion.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "move/PortableNames.h"
#include "services/DataCop.h"
#include "text/Encoding.h"
#include "text/Number.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

constexpr StringView kCompanionExtension = u".m3u8";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// "Artist - Title", or the one of both that is known.
String ShownName(const MovedItem& item) {
  String name(item.artist);
  if (!item.artist.empty() && !item.title.empty()) name += u" - ";
  return name.append(item.title);
}

/// Whole seconds; "-1" where the length is not known, as players have it.
String Seconds(double seconds) {
  return FormatInteger(seconds > 0 ? std::lround(seconds) : -1);
}

}  // namespace

bool IsCompanion(StringView path) {
  return EndsWithIgnoreCase(path, kCompanionExtension);
}

void SetNatives(MovedPlaylist& playlist, std::vector<String> paths) {
  const auto companion = std::find_if(paths.begin(), paths.end(), IsCompanion);
  if (companion != paths.end()) {
    playlist.companion = std::move(*companion);
    paths.erase(companion);
  }
  playlist.natives = std::move(paths);
}

String NewCompanionPath(Component& library, StringView originalName) {
  const String folder =
      DataCop::GetSubNamePath(library, DataCop::kPlayListSlot) + String(kCompanionFolder) + u'\\';
  const String name =
      PortableName(originalName.substr(0, originalName.find(u'.'))) + String(kCompanionExtension);
  const auto isFree = [&](const String& path) {
    return !library.Files().FileExists(path) && !library.Files().FolderExists(path);
  };
  String path = folder + name;
  for (int number = 2; !isFree(path); ++number) path = folder + NumberedName(name, number);
  return path;
}

std::string CompanionText(const MovedPlaylist& playlist, const std::vector<double>& seconds,
                          const std::vector<MovedSong>& songs) {
  String text = u"#EXTM3U" + String(kLineEnd);
  for (std::size_t i = 0; i < playlist.items.size(); ++i) {
    const MovedItem& item = playlist.items[i];
    const bool isNowhere = item.IsSong() && songs[item.song].place.empty();
    if (!item.IsCarried() || isNowhere) continue;
    String name = ShownName(item);
    if (name.empty() && item.IsSong()) name = BaseName(songs[item.song].place);
    if (!name.empty()) text += u"#EXTINF:" + Seconds(seconds[i]) + u"," + name + String(kLineEnd);
    const StringView place = item.IsSong() ? songs[item.song].place : item.reference;
    text.append(place).append(kLineEnd);
  }
  return std::string(kByteOrderMark) + ToUtf8(text);
}

}  // namespace norvo
