#include "move/ReadPlaylist.h"

#include "automation/Conversions.h"
#include "controller/HeaderSniffer.h"
#include "library/Library.h"
#include "model/PlaylistTypes.h"
#include "move/LibraryCalls.h"
#include "move/LibraryWatcher.h"
#include "move/LogBox.h"
#include "move/OpenedLibrary.h"
#include "overlay/OverlayPlatform.h"
#include "services/ObserverScope.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

class ReadWatcher final : public LibraryWatcher {
 public:
  ReadWatcher(WorkReport& report, ReadResult& result)
      : LibraryWatcher(report, MachineSide::Old, WorkPhase::Collecting), result_(result) {
    playlist_.path = result.path;
  }

  void OnItem(StringView reference, ItemOutcome outcome) override {
    if (outcome == ItemOutcome::Kept) return;
    result_.drops.push_back({outcome, String(reference)});
    Report().Observer().OnDropped(playlist_, result_.drops.back());
  }

 private:
  ReadResult& result_;
  CollectedPlaylist playlist_;  // that the observer hears of
};

String TitleOf(AutomationObject& entry) {
  String title = TextOf(entry, u"Entry_SongName");
  if (title.empty() && entry.ClassName() == u"AsxEntry") title = TextOf(entry, u"ASX_Title");
  if (title.empty()) title = TextOf(entry, u"Entry_SongTitle");
  return title;
}

ReadEntry Read(AutomationObject& entry) {
  ReadEntry read;
  read.urlType = NumberOf(entry, u"Entry_URLType");
  read.artist = TextOf(entry, u"Entry_ArtistName");
  read.title = TitleOf(entry);
  read.duration = TextOf(entry, u"Entry_Duration");
  read.size = ToDouble(entry.Get(u"Entry_FileSize"));
  read.source = TextOf(entry, u"Entry_SourceURL");
  return read;
}

void ReadAs(Component& library, std::int32_t type, ReadResult& result) {
  result.type = type != playlist_type::kUnknown ? type : ListedType(library, result.path);
  if (result.type == playlist_type::kUnknown) return;
  const ObjectRef playlist = library.Create(u"PlayList");
  result.whole = ReadInto(*playlist, result.path, result.type);
  result.name = TextOf(*playlist, u"PlayListName");
  for (const ObjectRef& entry : EntriesOf(*playlist)) result.entries.push_back(Read(*entry));
}

}  // namespace

ReadResult ReadPlaylist(const std::shared_ptr<Platform>& machine, const std::string& path,
                        std::int32_t type, const WorkOptions& options, WorkObserver& observer) {
  ReadResult result;
  result.path = FromUtf8Lossy(path);
  WorkReport report(observer, result.warnings);
  OpenedLibrary opened(machine, MachineSide::Old, report);
  const auto overlay = std::make_shared<OverlayPlatform>(machine);
  const std::unique_ptr<Component> library = OpenLibrary(overlay);
  LogBox log(opened.Get());
  if (options.log) {
    result.log = opened.StartLog();
    overlay->SetMessageDialog(log);
    library->SetLogMode(log_mode::kMessageBox);
  }
  ReadWatcher watcher(report, result);
  const ObserverScope scope(*library, watcher);
  ReadAs(*library, type, result);
  return result;
}

}  // namespace norvo
