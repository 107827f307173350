#include "writers/NativeWriter.h"

#include <utility>

#include "automation/Attempt.h"
#include "model/TimeValues.h"
#include "text/Number.h"
#include "writers/AsxFormatter.h"
#include "writers/NativeNaming.h"

namespace norvo {
namespace {

/// One native file of the playlist. The component's watcher hears of it before it is created, and
/// at its end, also when it could not be created, whether it was written whole.
class NativeFile {
 public:
  NativeFile(Component& component, const PlaylistRecord& playlist, std::int32_t type)
      : NativeFile(component.Watcher(),
                   GetNewPlayListPath(component, playlist.originalFileName, type), type) {
    OpenOutFile(component, path_, stream_, true);
  }
  ~NativeFile() {
    stream_.reset();  // writes what an error has left unwritten
    watcher_.OnNativeFileEnd(path_, closed_);
  }
  NativeFile(const NativeFile&) = delete;
  NativeFile& operator=(const NativeFile&) = delete;

  void Write(StringView line) { stream_->WriteLine(line); }
  void Close() {
    stream_->Close();
    closed_ = true;
  }

 private:
  NativeFile(Observer& watcher, String path, std::int32_t type)
      : watcher_(watcher), path_(std::move(path)) {
    watcher_.OnNativeFile(path_, type);
  }

  Observer& watcher_;
  String path_;
  std::unique_ptr<TextWriter> stream_;
  bool closed_ = false;
};

void WriteAsx(Component& component, const PlaylistRecord& playlist) {
  NativeFile file(component, playlist, playlist_type::kWmpAsx);
  const auto write = [&file](StringView line) { file.Write(line); };
  AsxFormatter lines(playlist, write);
  lines.Begin();
  playlist.entries->ForEach([&](AutomationObject& entry, std::int32_t) { lines.Entry(entry); });
  lines.End();
  file.Close();
}

/// What the M3U and the PLS files tell of an entry.
class EntryFacts {
 public:
  bool IsExtended(AutomationObject& entry) { return ToBoolean(extended_(entry)); }
  String Path(AutomationObject& entry) { return ToText(entry.Call(u"Entry_DestinationPath")); }
  /// "artist - song"
  String Title(AutomationObject& entry) {
    return ToText(artist_(entry)) + u" - " + ToText(song_(entry));
  }
  /// Seconds that have never been clock text count as 0: intended.
  String Seconds(AutomationObject& entry) {
    const String seconds = ParseAsxTime(ToText(duration_(entry)));
    return seconds.empty() ? u"0" : seconds;
  }

 private:
  PropertyReader extended_{u"HasExtendedInfo"};
  PropertyReader artist_{u"Entry_ArtistName"};
  PropertyReader song_{u"Entry_SongName"};
  PropertyReader duration_{u"Entry_Duration"};
};

void WriteWinampM3u(Component& component, const PlaylistRecord& playlist) {
  NativeFile file(component, playlist, playlist_type::kWinampM3u);
  EntryFacts facts;
  file.Write(u"#EXTM3U");
  playlist.entries->ForEach([&](AutomationObject& entry, std::int32_t) {
    if (facts.IsExtended(entry)) {
      file.Write(u"#EXTINF:" + facts.Seconds(entry) + u"," + facts.Title(entry));
    }
    file.Write(facts.Path(entry));
  });
  file.Close();
}

void WriteMusicMatchM3u(Component& component, const PlaylistRecord& playlist) {
  NativeFile file(component, playlist, playlist_type::kMmjbM3u);
  EntryFacts facts;
  playlist.entries->ForEach([&](AutomationObject& entry, std::int32_t) {
    file.Write(facts.Path(entry) + u'\0');  // the player wants the NUL
  });
  file.Close();
}

void WritePls(Component& component, const PlaylistRecord& playlist) {
  NativeFile file(component, playlist, playlist_type::kSoniquePls);
  EntryFacts facts;
  file.Write(u"[playlist]");
  playlist.entries->ForEach([&](AutomationObject& entry, std::int32_t i) {
    const String number = FormatInteger(i) + u"=";
    if (facts.IsExtended(entry)) {
      file.Write(u"Length" + number + facts.Seconds(entry));
      file.Write(u"Title" + number + facts.Title(entry));
    }
    file.Write(u"File" + number + facts.Path(entry));
  });
  file.Write(u"NumberOfEntries=" + FormatInteger(playlist.entries->Count()));
  file.Write(u"Version=2");
  file.Close();
}

void FormatM3u(Component& component, const PlaylistRecord& playlist) {
  WriteWinampM3u(component, playlist);
  WriteMusicMatchM3u(component, playlist);
}

/// Writes one target syntax; an error ends it. What was written stays; the watcher knows.
void FormatFile(Component& component, const PlaylistRecord& playlist,
                void (*target)(Component&, const PlaylistRecord&)) {
  Attempt([&] { target(component, playlist); });
}

}  // namespace

bool OpenOutFile(Component& component, StringView path, std::unique_ptr<TextWriter>& stream,
                 bool create) {
  stream =
      std::make_unique<TextWriter>(component.Files(), path, create, component.Machine().AnsiPage());
  return true;
}

bool WriteRawPlayList(Component& component, const PlaylistRecord& playlist) {
  if (FindPlaylistType(playlist.type) == nullptr) return false;
  for (const auto target : {WriteAsx, FormatM3u, WritePls}) {
    FormatFile(component, playlist, target);
  }
  return false;
}

}  // namespace norvo
