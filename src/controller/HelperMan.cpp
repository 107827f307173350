#include "controller/HelperMan.h"

#include <vector>

#include "automation/Attempt.h"
#include "automation/RunTimeError.h"
#include "controller/GenericCollector.h"
#include "controller/HeaderSniffer.h"
#include "controller/ListFile.h"
#include "controller/MediaSearch.h"
#include "controller/PlayerFolders.h"
#include "controller/PlaylistSearch.h"
#include "controller/QueueMode.h"
#include "controller/ScanRules.h"
#include "controller/ScanWarnings.h"
#include "services/DataCop.h"
#include "services/Logging.h"
#include "services/NVServices.h"
#include "services/Utility.h"
#include "text/WindowsPath.h"
#include "writers/GenericNaming.h"

namespace norvo {
namespace {

/// The last characters of a playlist's name, without the point: the scan takes names without one
/// too, which the list then refuses.
std::vector<StringView> PlaylistEndings() {
  std::vector<StringView> endings;
  for (const StringView extension : PlaylistExtensions()) endings.push_back(extension.substr(1));
  return endings;
}

/// Takes each playlist file that a drive scan reports.
template <class Take>
class PlaylistVisitor final : public ScanVisitor {
 public:
  PlaylistVisitor(Component& component, Take take) : component_(component), take_(take) {}

  bool EnterFolder(StringView path) override {
    if (IsSkippedFolder(LastComponent(path))) return false;
    component_.Watcher().OnFolder(path);
    return true;
  }

  void VisitFile(StringView folder, StringView name) override {
    const String path = Utility::AddBackslash(folder) + String(name);
    component_.Watcher().OnPlaylistFile(path);
    take_(path);
  }

  void CannotList(StringView folder, StringView reason) override {
    WarnNotListed(component_, u"GetAllPlayLists", folder, reason);
  }

 private:
  Component& component_;
  Take take_;
};

}  // namespace

HelperMan::HelperMan(Component& component) : component_(component) {
  // After an error the object stays without a list; its operations then find nothing.
  Attempt([this] { StartUp(); });
}

HelperMan::~HelperMan() = default;

void HelperMan::StartUp() {
  if (Utility::GetMachineRole(component_) == Utility::role::kNeither) return;
  NVServices::GetSubGroupRoot(component_, DataCop::kGroup, groupRoot_);
  if (!groupRoot_.empty()) {
    groupKey_ = DataArea(groupRoot_) + String(DataCop::kGroup) + u"\\";
  }
  list_ = std::make_unique<ListFile>(component_, groupRoot_);
}

bool HelperMan::GenericQueue(std::int32_t mode) {
  const WarningStart start = {
      WarningKind::QueueStopped, {}, u"HelperMan::Generic Queue->Error Thrown "};
  bool processed = false;
  AttemptOrWarn(component_, start, [&] {
    WriteLog(component_, u"Retrieving List of PlayLists Found");
    const std::vector<String> paths = list_ ? list_->Consume() : std::vector<String>();
    if (mode == queue_mode::kCollect) ConvertListed(paths, processed);
    if (mode == queue_mode::kRestore) RestoreAll(processed);
  });
  return processed;
}

void HelperMan::ConvertListed(const std::vector<String>& paths, bool& processed) {
  for (std::size_t i = 0; i < paths.size(); ++i) {
    if (ConvertOne(paths[i], i + 1, paths.size())) processed = true;
  }
  UpdateTotalFileSize();
}

void HelperMan::RestoreAll(bool& processed) {
  const String documents = NVServices::GetCSIDLPath(component_, ShellFolders::kDocuments);
  if (documents.empty()) return;
  std::vector<String> files = CollectGenericFiles(component_, documents);
  std::erase_if(
      files, [this](const String& path) { return !component_.Watcher().WantsGenericFile(path); });
  for (std::size_t i = 0; i < files.size(); ++i) {
    RestoreOne(files[i], i + 1, files.size());
    processed = true;
  }
  SetPlayerPlayListFolders(component_);
}

void HelperMan::RestoreOne(const String& path, std::size_t position, std::size_t count) {
  Observer& watcher = component_.Watcher();
  watcher.OnPlaylistBegin(path, position, count);
  PlayList playlist(component_);
  // Both results are false whatever happens, and tell nothing.
  playlist.ReadGeneric(path);
  playlist.WriteRawPlayList();
  watcher.OnPlaylistEnd(path, playlist.PlayListType(), PlaylistOutcome::Restored,
                        static_cast<std::size_t>(playlist.PlayListEntries()->TotalSongs()), path);
}

bool HelperMan::ConvertOne(const String& path, std::size_t position, std::size_t count) {
  Observer& watcher = component_.Watcher();
  watcher.OnPlaylistBegin(path, position, count);
  PlayList playlist(component_);
  const auto report = [&](PlaylistOutcome outcome, std::size_t kept = 0) {
    watcher.OnPlaylistEnd(path, playlist.PlayListType(), outcome, kept, {});
    return false;
  };
  if (IsPlayListFile(path)) {
    const std::int32_t subtype = TypeByHeader(component_, path);
    if (subtype == playlist_type::kUnknown) {
      WriteLog(
          component_,
          u"NVERR_OPFAIL, HelperMan::GenericQueue, Invalid Playlist SubType for PlayList" + path);
      return report(PlaylistOutcome::UnknownType);
    }
    playlist.SetPlayListType(subtype);
  }
  if (!playlist.ReadPlayList(path)) {
    WriteLog(component_,
             u"NVERR_OPFAIL, HelperMan::GenericQueue, PlayList object could not be fully "
             u"initiallized! Resuming next Playlist");
    return report(PlaylistOutcome::Unreadable);
  }
  // A playlist of more than 32767 entries raises an overflow here, which ends the queue: intended.
  if (ToInt32(playlist.TotalSongs()) == 0) return report(PlaylistOutcome::Empty);
  Write(playlist, path);
  return true;
}

void HelperMan::Write(PlayList& playlist, const String& path) {
  const String fileName(LastComponent(path));
  const bool written = playlist.WriteGeneric(fileName);
  // The recorded name is that of the generic file, which is no playlist: nothing is listed.
  AddPlayList(norvo::PlayListToIni(fileName), playlist.PlayListType());
  const String name = ToText(playlist.PlayListName());
  const String genericFile = DataArea(groupRoot_) + norvo::PlayListToIni(name);
  const PlaylistOutcome failure =
      name.empty() ? PlaylistOutcome::Unnamed : PlaylistOutcome::NotWritten;
  component_.Watcher().OnPlaylistEnd(
      path, playlist.PlayListType(), written ? PlaylistOutcome::Written : failure,
      static_cast<std::size_t>(playlist.PlayListEntries()->TotalSongs()),
      written ? StringView(genericFile) : StringView());
}

StringArray HelperMan::GetPLSList() {
  const WarningStart start = {WarningKind::ListNotRead, {}, u"HelperMan::GetPLSList -> "};
  std::vector<String> paths = AnswerOrWarn(component_, start, std::vector<String>(), [this] {
    return list_ ? list_->Consume() : std::vector<String>();
  });
  return std::make_shared<const std::vector<String>>(std::move(paths));
}

String HelperMan::PlayListToIni(const String& fileName) {
  return norvo::PlayListToIni(fileName);
}

std::int32_t HelperMan::ParsePLSHeader(const String& path) {
  return TypeByKeys(component_, path);
}

std::int32_t HelperMan::ParseM3UHeader(const String& path) {
  return TypeByLines(component_, path);
}

void HelperMan::AddPlayList(const String& path, std::optional<std::int32_t> subtype) {
  const WarningStart start = {WarningKind::PlaylistNotListed, path, u"HelperMan::AddPlayList -> "};
  AttemptOrWarn(component_, start, [&] {
    if (!IsPlayListFile(path)) return;
    const std::int32_t type = ListedType(component_, path, subtype);
    const PlaylistType* const row = FindPlaylistType(type);
    // A subtype that does not go with the extension is not recorded.
    const bool fits = row != nullptr && HasExtension(path, *row);
    if (fits && list_) list_->Record(path, type);
  });
}

bool HelperMan::GetAllPlaylists() {
  const WarningStart start = {
      WarningKind::ScanStopped, {}, u"HelperMan::GetAllPlayLists -> Exception Thrown: "};
  return AttemptOrWarn(component_, start, [this] {
    if (!list_) throw RunTimeError(error::kObjectNotSet);
    list_->Restart();
    WriteLog(component_, u"Starting Drive Scan...");
    ScanDrives();
    list_->Save();
  });
}

void HelperMan::ScanDrives() {
  const auto add = [this](const String& path) { AddPlayList(path); };
  if (DriveScanner* const scanner = component_.Machine().Scanner()) {
    PlaylistVisitor visitor(component_, add);
    scanner->Scan(PlaylistEndings(), visitor);
    return;
  }
  for (const Drive& drive : NVServices::GetPartitionList(component_)) {
    if (drive.type != DriveType::Fixed) continue;
    for (const String& path : SearchDrive(component_, drive.letter)) {
      component_.Watcher().OnPlaylistFile(path);
      add(path);
    }
  }
}

bool HelperMan::UpdateTotalFileSize() {
  const WarningStart start = {
      WarningKind::SizeNotWritten, {}, u"HelperMan::UpdateTotalFileSize -> "};
  return AttemptOrWarn(component_, start, [&] {
    RegistryKey key(component_.Machine().Registry());
    const bool opened = !groupKey_.empty() && key.Open(groupKey_);
    if (opened && !key.Write(u"SubGroupSize", component_.MediaBytes())) {
      WriteWarning(component_, start, u"The size total could not be written");
    }
  });
}

bool HelperMan::MigrateMediaByType(const String& mediaTypes) {
  WriteLog(component_, u"Starting Scan For Media...");
  Guarded([&] { SearchMedia(component_, mediaTypes); });
  return true;
}

String HelperMan::DataGrabber(const String&, const String&, const String&) {
  return {};
}

const MemberTable& HelperMan::Interface() {
  using H = HelperMan;
  static const MemberTable table(
      u"helperMan",
      {
          Method<&H::GenericQueue>(u"GenericQueue", {ByRef(u"Mode")}),
          Method<&H::GetPLSList>(u"GetPLSList"),
          Method<&H::PlayListToIni>(u"PlayListToIni", {In(u"FileName")}),
          Method<&H::ParsePLSHeader>(u"ParsePLSHeader", {In(u"Path")}),
          Method<&H::ParseM3UHeader>(u"ParseM3UHeader", {In(u"Path")}),
          Method<&H::GetAllPlaylists>(u"GetAllPlaylists"),
          Method<&H::UpdateTotalFileSize>(u"UpdateTotalFileSize"),
          Method<&H::MigrateMediaByType>(u"MigrateMediaByType", {ByRef(u"MediaTypes")}),
          Method<&H::DataGrabber>(u"DataGrabber",
                                  {ByRef(u"FileName"), ByRef(u"header"), ByRef(u"listKeys")}),
      });
  return table;
}

}  // namespace norvo
