#include "move/Companion.h"

#include <algorithm>
#include <utility>

#include "model/GenericSections.h"
#include "model/TimeValues.h"
#include "move/PortableNames.h"
#include "services/DataCop.h"
#include "text/Encoding.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

constexpr StringView kExtension = u".m3u8";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr StringView kLineEnd = u"\r\n";

/// An entry's section, or the one of the whole.
class Values {
 public:
  Values(const IniDocument& document, const String& section)
      : document_(document), section_(document.FindSection(section)) {}

  String operator()(StringView key) const {
    if (section_ == IniDocument::kNone) return {};
    return String(document_.Value(section_, key).value_or(StringView()));
  }

 private:
  const IniDocument& document_;
  std::size_t section_;
};

/// "Artist - Title", or the one of both that is known.
String ShownName(const Values& entry) {
  const String artist = entry(u"Artist");
  const String title = entry(u"SongName");
  if (artist.empty() || title.empty()) return artist + title;
  return artist + u" - " + title;
}

/// Whole seconds; "-1" where the length is not known, as players have it.
String Seconds(const Values& entry) {
  const String seconds = ParseAsxTime(entry(u"Duration"));
  return seconds.empty() || seconds == u"0" ? u"-1" : seconds;
}

}  // namespace

bool IsCompanion(StringView path) {
  return EndsWithIgnoreCase(path, kExtension);
}

void SetNatives(MovedPlaylist& playlist, std::vector<String> paths) {
  const auto companion = std::find_if(paths.begin(), paths.end(), IsCompanion);
  if (companion != paths.end()) {
    playlist.companion = std::move(*companion);
    paths.erase(companion);
  }
  playlist.natives = std::move(paths);
}

String NewCompanionPath(Component& library, const IniDocument& genericFile) {
  const String folder =
      DataCop::GetSubNamePath(library, DataCop::kPlayListSlot) + String(kCompanionFolder) + u'\\';
  const String original = Values(genericFile, String(kGlobalSection))(u"OriginalFileName");
  String base = original.substr(0, original.find(u'.'));
  if (!IsPortableName(base)) base = PortableName(base);
  const String name = base + String(kExtension);
  const auto isFree = [&](const String& path) {
    return !library.Files().FileExists(path) && !library.Files().FolderExists(path);
  };
  String path = folder + name;
  for (int number = 2; !isFree(path); ++number) path = folder + NumberedName(name, number);
  return path;
}

std::string CompanionText(const MovedPlaylist& playlist, const IniDocument& genericFile,
                          const std::vector<MovedSong>& songs) {
  String text = u"#EXTM3U" + String(kLineEnd);
  for (const MovedItem& item : playlist.items) {
    if (!item.IsCarried()) continue;
    const Values entry(genericFile, EntrySection(static_cast<std::int64_t>(item.entry)));
    const String name = ShownName(entry);
    if (!name.empty()) text += u"#EXTINF:" + Seconds(entry) + u"," + name + String(kLineEnd);
    text += (item.IsSong() ? songs[item.song].place : item.reference) + String(kLineEnd);
  }
  return std::string(kByteOrderMark) + ToUtf8(text);
}

}  // namespace norvo
