#include "move/MovePlaylists.h"

#include <functional>
#include <memory>
#include <optional>
#include <unordered_set>
#include <utility>
#include <vector>

#include "automation/Attempt.h"
#include "automation/RunTimeError.h"
#include "library/Library.h"
#include "move/Carrying.h"
#include "move/Collecting.h"
#include "move/FinalCount.h"
#include "move/MachineSetup.h"
#include "move/MoveError.h"
#include "move/MoveVerification.h"
#include "move/MoveWork.h"
#include "move/OpenedLibrary.h"
#include "move/Planner.h"
#include "move/Rescue.h"
#include "move/RestoreLedger.h"
#include "move/Restoring.h"
#include "move/SettingsMemory.h"
#include "move/SongBringing.h"
#include "move/SongDetails.h"
#include "move/SongSpace.h"
#include "move/StockTaking.h"
#include "move/StreamPlacer.h"
#include "overlay/OverlayPlatform.h"
#include "services/DataCop.h"
#include "services/Utility.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

/// The machine that a move comes from, set up.
class OldMachine {
 public:
  OldMachine(const MoveMachines& machines, WorkReport& report)
      : machine_(std::make_shared<SettingsMemory>(machines.from)),
        library_(machine_, MachineSide::Old, report) {
    SetupWishes wishes;
    if (!machines.groupRootOfSource.empty()) wishes.groupRoot = machines.groupRootOfSource;
    SetUp(library_.Get(), wishes, MachineSide::Old, report);
    settings_ = RequireProductSettings(library_.Get());
    library_.Get().PinGroupRoot(settings_.groupRoot);
  }

  OpenedLibrary& Opened() { return library_; }
  Component& Library() { return library_.Get(); }
  const ProductSettings& Settings() const { return settings_; }
  SettingsMemory& Memory() { return *machine_; }

 private:
  std::shared_ptr<SettingsMemory> machine_;
  OpenedLibrary library_;
  ProductSettings settings_;
};

/// The machine that a move goes to, set up; of a dry run as it would be.
class NewMachine {
 public:
  /// `onNewRoot` is as that of SetUp.
  NewMachine(const MoveMachines& machines, bool dryRun, WorkReport& report,
             const std::function<void(StringView groupRoot)>& onNewRoot)
      : dryRun_(dryRun),
        machine_(std::make_shared<SettingsMemory>(machines.to)),
        library_(machine_, MachineSide::New, report) {
    const auto setUp = [&](Component& library) {
      SetupWishes wishes;  // a machine that has a role already keeps it
      if (!ReadProductSettings(library).role) wishes.role = Utility::role::kDestination;
      if (!machines.groupRootOfTarget.empty()) wishes.groupRoot = machines.groupRootOfTarget;
      wishes.usualGroupRoot = machines.usualGroupRootOfTarget;
      SetUp(library, wishes, MachineSide::New, report, onNewRoot);
    };
    if (!dryRun) setUp(library_.Get());
    if (dryRun) setUp(*planLibrary_);
    settings_ = RequireProductSettings(*planLibrary_);
    library_.Get().PinGroupRoot(settings_.groupRoot);
    planLibrary_->PinGroupRoot(settings_.groupRoot);
    plan_->Remember();
    ShareSubNames();
  }

  OpenedLibrary& Opened() { return library_; }
  /// Works on the machine itself, or of a dry run on what it would be.
  Component& Library() { return dryRun_ ? *planLibrary_ : library_.Get(); }
  /// The files of `Library`, of which nothing is remembered but what a plan supposes.
  FileSystem& Disk() { return dryRun_ ? planLibrary_->Files() : machine_->Fresh(); }
  /// Lies over the machine, and keeps what a plan supposes.
  OverlayPlatform& Plan() { return *plan_; }
  Component& PlanLibrary() { return *planLibrary_; }
  const ProductSettings& Settings() const { return settings_; }
  /// The plan was carried out: what it supposed stands on the machine now, or does not.
  void EndPlan() {
    if (!dryRun_) plan_->TakeBackAll();
    plan_->Forget();
  }
  SettingsMemory& Memory() { return *machine_; }

 private:
  /// Both components are over one machine, whose table is read once.
  void ShareSubNames() {
    // Without them all would go to other folders, and stay there.
    if (!DataCop::LoadSubNames(*planLibrary_)) {
      RequireSubNames(*planLibrary_, settings_);
      throw MoveError(MoveFault::FileNotRead, ToUtf8(settings_.groupRoot + u"SubNames.txt"));
    }
    library_.Get().SubNames() = planLibrary_->SubNames();
  }

  bool dryRun_;
  std::shared_ptr<SettingsMemory> machine_;
  OpenedLibrary library_;
  std::shared_ptr<OverlayPlatform> plan_ = std::make_shared<OverlayPlatform>(library_.Machine());
  std::unique_ptr<Component> planLibrary_ = OpenLibrary(plan_);
  ProductSettings settings_;
};

/// An alternative that no playlist was given is no song of the move. The others stand in the order
/// of the playlists.
void DropUnused(MoveResult& move) {
  std::vector<std::optional<std::size_t>> numbers(move.songs.size());
  std::vector<std::size_t> used;
  for (MovedPlaylist& playlist : move.playlists) {
    for (MovedItem& item : playlist.items) {
      if (!item.IsSong()) continue;
      std::optional<std::size_t>& number = numbers[item.song];
      if (!number) {
        number = used.size();
        used.push_back(item.song);
      }
      item.song = *number;
    }
  }
  std::vector<MovedSong> songs;
  songs.reserve(used.size());
  for (const std::size_t song : used) songs.push_back(std::move(move.songs[song]));
  move.songs = std::move(songs);
}

/// Of several paths that lead to one file, as the links of a disk make them, only the first.
void DropSecondPaths(std::vector<StringView>& media, SongIdentities& identities) {
  std::unordered_set<SongIdentities::Id> met;
  std::erase_if(media, [&](StringView path) { return !met.insert(identities.Of(path)).second; });
}

/// The music that no playlist names: it comes along when all is wished for, else it is told of.
/// `otherNames` are further paths of songs that some playlist names.
void AddUnlisted(const Stock& stock, const std::vector<String>& otherNames, FileSystem& files,
                 SongIdentities& identities, bool allMusic, MoveResult& move) {
  std::unordered_set<String> listed;
  for (const String& path : otherNames) listed.insert(Fold(path));
  std::unordered_set<SongIdentities::Id> met;
  for (const MovedSong& song : move.songs) {
    listed.insert(Fold(song.source));
    met.insert(identities.Of(song.source));
  }
  for (const StringView path : stock.media) {
    // A link may lead to the same file by another path.
    if (listed.contains(Fold(path))) continue;
    if (!met.insert(identities.Of(path)).second) continue;
    const auto facts = AnswerOr(std::optional<FileFacts>(), [&] { return files.FactsOf(path); });
    const double size = facts ? facts->size : 0;
    if (!allMusic) {
      move.unlisted.push_back({String(path), size});
      continue;
    }
    MovedSong& song = move.songs.emplace_back();
    song.source = path;
    song.size = size;
    song.listed = false;
  }
  move.unlisted.insert(move.unlisted.end(), stock.skipped.begin(), stock.skipped.end());
}

/// Warns of folders that only the taking of stock could not see; the scan has told of others.
void TellUnseen(const std::vector<UnseenFolder>& unseen, MoveWork& work) {
  std::unordered_set<String> told;
  for (const WorkWarning& each : work.result.warnings) {
    const bool isOfFolder = each.kind == WorkWarning::Kind::Library &&
                            each.side == MachineSide::Old &&
                            each.warning.kind == WarningKind::FolderNotListed;
    if (isOfFolder) told.insert(each.warning.path);
  }
  for (const UnseenFolder& folder : unseen) {
    if (told.contains(folder.path)) continue;
    WorkWarning warning;
    warning.side = MachineSide::Old;
    warning.warning = {WarningKind::FolderNotListed, folder.path, folder.reason, folder.reason};
    work.report.Warn(std::move(warning));
  }
}

/// Finds the lists and the songs of the old machine. What it holds beside them goes with its end.
void FindAll(OldMachine& old, const MoveOptions& options, MediaPlacer& placer, MoveWork& work) {
  Component& library = old.Library();
  Stock stock = TakeStock(library, work.sections.Texts(), work.report);
  SongIdentities identities(placer, work.sections.Texts());
  DropSecondPaths(stock.media, identities);
  CollectResult collected;
  CollectForMove(library, old.Settings(), work.report, collected);
  TellUnseen(stock.unseen, work);
  {
    SongBook songs(library.Files(), identities, work.result.songs);
    Rescue(library, old.Settings(), stock, songs, work).Run(collected);
  }
  DropUnused(work.result);
  AddUnlisted(stock, work.otherNames, library.Files(), identities, options.allMusic, work.result);
}

/// Finds what there is to move on the old machine.
void Gather(OldMachine& old, const MoveOptions& options, MediaPlacer& placer, MoveWork& work) {
  FindAll(old, options, placer, work);
  CompleteDetails(old.Library(), work);
  old.Memory().ForgetWritten();
}

bool BringsSongs(const MoveOptions& options) {
  return !options.dryRun && options.media != MediaMode::None;
}

/// Those that are not on their way: there already, left out, or not to be brought.
void TellSettledSongs(const MoveWork& work, bool bringing) {
  for (const MovedSong& song : work.result.songs) {
    const bool onItsWay =
        bringing && song.state == MovedSong::State::Planned && !song.place.empty();
    if (!onItsWay) work.report.Observer().OnSong(song);
  }
}

/// Of songs that come over all the same, without the names that their tags would have given them.
void TellUnreadTags(const MoveWork& work) {
  for (const UnreadTags& unread : work.unreadTags) {
    const MovedSong& song = work.result.songs[unread.song];
    if (song.state == MovedSong::State::LeftOut) continue;  // which is told
    work.report.Warn({WorkWarning::Kind::TagsNotRead,
                      MachineSide::Old,
                      Warning(),
                      song.source,
                      unread.reason,
                      {},
                      0,
                      0});
  }
}

void Restore(NewMachine& machine, RestoreLedger& ledger, MoveWork& work) {
  machine.Memory().RememberMissing();
  try {
    RestoreCarried(machine.Library(), machine.Disk(), DataAreaOf(machine.Settings()), ledger, work);
  } catch (const RunTimeError& failure) {
    // Without its ledger nothing can be restored; what is done until then is told all the same.
    for (MovedPlaylist& playlist : work.result.playlists) {
      if (playlist.state != MovedPlaylist::State::Collected) continue;
      LeaveOut(playlist, MovedPlaylist::Fault::NotNoted, failure.Description());
    }
  }
  machine.Memory().ForgetMissing();
  for (const MovedPlaylist& playlist : work.result.playlists) {
    work.report.Observer().OnPlaylist(playlist);
  }
}

/// Brings the songs to their places, and gives those their plain names that need them.
void Bring(const MoveOptions& options, MediaPlacer& placer, MediaPlacer& namer, MoveWork& work) {
  BringSongs(placer, options.media == MediaMode::Link ? PlaceMode::Link : PlaceMode::Copy, work);
  GivePlainNames(namer, work);
}

/// From the plan to the new playlists. The ledger, which knows the places of all songs by name,
/// goes with the end of it.
void Deliver(NewMachine& machine, const MoveOptions& options, const SongSpace& space,
             MediaPlacer& placer, MediaPlacer& namer, MoveWork& work) {
  RestoreLedger ledger(machine.Library(), DataAreaOf(machine.Settings()));
  Planner(machine.PlanLibrary(), machine.Plan(), placer, ledger, work).Run();
  space.RequireForPlanned(work.result.songs, machine.Settings().groupRoot);
  CarryGenericFiles(machine.Library(), ledger, work);
  const bool bringing = BringsSongs(options);
  TellSettledSongs(work, bringing);
  if (bringing) Bring(options, placer, namer, work);
  TellUnreadTags(work);
  machine.EndPlan();
  Restore(machine, ledger, work);
}

void Run(const MoveMachines& machines, const MoveOptions& options, MediaPlacer& placer,
         MediaPlacer& namer, MoveWork& work) {
  const auto startLog = [&](OpenedLibrary& machine, MachineSide side) {
    LogFile file = machine.StartLog();
    if (!file.path.empty()) work.result.logs.push_back({side, std::move(file)});
  };
  OldMachine old(machines, work.report);
  if (options.log) startLog(old.Opened(), MachineSide::Old);
  Gather(old, options, placer, work);

  const SongSpace space(machines, options);
  NewMachine machine(machines, options.dryRun, work.report,
                     [&](StringView root) { space.RequireForAll(work.result.songs, root); });
  if (options.log && !options.dryRun) startLog(machine.Opened(), MachineSide::New);
  Deliver(machine, options, space, placer, namer, work);
  const bool bringing = BringsSongs(options);
  VerifyMove(machine.PlanLibrary(), bringing || options.dryRun, work);
  if (!options.dryRun) CountAtEnd(old.Library(), machine.Library(), bringing, work);
}

}  // namespace

MoveResult MovePlaylists(const MoveMachines& machines, const MoveOptions& options,
                         WorkObserver& observer) {
  MoveResult result;
  WorkReport report(observer, result.warnings);
  MoveWork work{result, report, {}, {}, {}, {}, {}, {}, {}};
  result.texts = work.sections.SharedTexts();
  StreamPlacer streams(machines.from->Files(), machines.to->Files());
  StreamPlacer names(machines.to->Files(), machines.to->Files());
  MediaPlacer& placer = machines.placer != nullptr ? *machines.placer : streams;
  MediaPlacer& namer = machines.namer != nullptr ? *machines.namer : names;
  result.cancelled = WasCancelled([&] { Run(machines, options, placer, namer, work); });
  return result;
}

}  // namespace norvo
