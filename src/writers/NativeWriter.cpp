#include "writers/NativeWriter.h"

#include <utility>

#include "automation/Attempt.h"
#include "model/EntryText.h"
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

void WriteAsx(NativeFile& file, const PlaylistRecord& playlist) {
  const auto write = [&file](StringView line) { file.Write(line); };
  AsxFormatter lines(playlist, write);
  lines.Begin();
  playlist.entries->ForEach([&](AutomationObject& entry, std::int32_t) { lines.Entry(entry); });
  lines.End();
}

/// What the M3U and the PLS files tell of an entry. A script's object sees which of its values are
/// read, and in which order: the length of every entry, first, and the others as the lines have
/// them. So no two are read in one expression, whose order would be the compiler's.
class EntryFacts {
 public:
  bool IsExtended(AutomationObject& entry) {
    FormatEntry* const own = OwnEntry(entry);
    return own != nullptr ? own->HasExtendedInfo() : ToBoolean(extended_(entry));
  }
  String Path(AutomationObject& entry) {
    FormatEntry* const own = OwnEntry(entry);
    return own != nullptr ? own->DestinationPath() : ToText(entry.Call(u"Entry_DestinationPath"));
  }
  /// "artist - song"
  String Title(AutomationObject& entry) {
    String title;
    artist_.Append(entry, title);
    title += u" - ";
    song_.Append(entry, title);
    return title;
  }
  /// Seconds that have never been clock text count as 0: intended.
  String Seconds(AutomationObject& entry) {
    String duration;
    duration_.Append(entry, duration);
    const String seconds = ParseAsxTime(duration);
    return seconds.empty() ? u"0" : seconds;
  }

 private:
  PropertyReader extended_{u"HasExtendedInfo"};
  EntryText artist_{u"Entry_ArtistName"};
  EntryText song_{u"Entry_SongName"};
  EntryText duration_{u"Entry_Duration"};
};

void WriteM3u(NativeFile& file, const PlaylistRecord& playlist) {
  EntryFacts facts;
  file.Write(u"#EXTM3U");
  playlist.entries->ForEach([&](AutomationObject& entry, std::int32_t) {
    const String seconds = facts.Seconds(entry);
    if (facts.IsExtended(entry)) {
      file.Write(u"#EXTINF:" + seconds + u"," + facts.Title(entry));
    }
    file.Write(facts.Path(entry));
  });
}

void WriteBareM3u(NativeFile& file, const PlaylistRecord& playlist) {
  EntryFacts facts;
  playlist.entries->ForEach([&](AutomationObject& entry, std::int32_t) {
    file.Write(facts.Path(entry) + u'\0');  // the player wants the NUL
  });
}

void WritePls(NativeFile& file, const PlaylistRecord& playlist) {
  EntryFacts facts;
  file.Write(u"[playlist]");
  playlist.entries->ForEach([&](AutomationObject& entry, std::int32_t i) {
    const String number = FormatInteger(i) + u"=";
    const String seconds = facts.Seconds(entry);
    if (facts.IsExtended(entry)) {
      file.Write(u"Length" + number + seconds);
      file.Write(u"Title" + number + facts.Title(entry));
    }
    file.Write(u"File" + number + facts.Path(entry));
  });
  file.Write(u"NumberOfEntries=" + FormatInteger(playlist.entries->Count()));
  file.Write(u"Version=2");
}

struct WriterRow {
  Syntax syntax;
  void (*write)(NativeFile&, const PlaylistRecord&);
};

constexpr WriterRow kWriters[] = {
    {Syntax::Asx, WriteAsx},
    {Syntax::M3u, WriteM3u},
    {Syntax::BareM3u, WriteBareM3u},
    {Syntax::Pls, WritePls},
};

/// Writes the playlist's file of one type; false when an error ends it. What was written stays; the
/// watcher knows.
bool WriteFile(Component& component, const PlaylistRecord& playlist, const PlaylistType& type) {
  return Attempt([&] {
    NativeFile file(component, playlist, type.code);
    for (const WriterRow& row : kWriters) {
      if (row.syntax == type.writtenAs) row.write(file, playlist);
    }
    file.Close();
  });
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
  StringView ended;  // files of one extension are written together: an error ends them all
  for (const PlaylistType* const type : NativeTypes()) {
    if (type->extension == ended) continue;
    if (!WriteFile(component, playlist, *type)) ended = type->extension;
  }
  return false;
}

}  // namespace norvo
