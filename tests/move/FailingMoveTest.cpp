#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <optional>

#include "automation/RunTimeError.h"
#include "lists/TaggedSongs.h"
#include "move/MemoryMove.h"
#include "move/MoveError.h"

namespace norvo {
namespace {

/// Which machine fails, and how its k-th call does.
struct Fault {
  const char* name;
  bool ofOld;
  void (*arm)(CallLog& calls, std::size_t k);
};

void FailOnce(CallLog& calls, std::size_t k) {
  calls.FailAt(k, error::kDeviceInputOutput);
}
void OverlookOnce(CallLog& calls, std::size_t k) {
  calls.OverlookAt(k);
}
void FailFromThereOn(CallLog& calls, std::size_t k) {
  calls.FailFrom(k, error::kPermissionDenied);
}

/// What a move of the sample machines gives when nothing fails.
class Sound {
 public:
  explicit Sound(MemoryMove (*make)()) {
    const MemoryMove machines = make();
    result = machines.Run();
    contents = ContentsOf(*machines.to);
    contents.erase(kLedger);
  }

  /// The ledger may lack places of songs, which are planned anew then.
  Contents Made(const MemoryMove& machines) const {
    Contents made = ContentsOf(*machines.to);
    made.erase(kLedger);
    return made;
  }

  MoveResult result;
  Contents contents;

 private:
  static constexpr const char* kLedger = "C:\\My Documents\\Norvo Media\\KVs\\Restored.txt";
};

/// The result of a move; nothing when it ends in an error that it may end in.
std::optional<MoveResult> ResultOf(const MemoryMove& machines) {
  try {
    return machines.Run();
  } catch (const MoveError&) {
  } catch (const RunTimeError&) {
  }
  return std::nullopt;
}

/// Lets the first, second, third ... call of a move fail, until none fails any more.
void ForEachFailure(const Fault& fault, MemoryMove (*make)(),
                    const std::function<void(const MemoryMove&, const std::optional<MoveResult>&,
                                             const std::string& where)>& check) {
  bool failed = true;
  std::size_t k = 0;
  while (failed) {
    const MemoryMove machines = make();
    CallLog& calls = (fault.ofOld ? machines.from : machines.to)->Log();
    fault.arm(calls, ++k);
    const std::optional<MoveResult> result = ResultOf(machines);
    failed = calls.HasFailed();
    calls.StopFailing();
    check(machines, result,
          std::string(fault.name) + " at " + std::to_string(k) + " " + Utf8(calls.Failed()));
  }
  EXPECT_GT(k, 25u) << fault.name;
}

std::size_t CountRestored(const MoveResult& move) {
  return CountOf(move, MovedPlaylist::State::Restored) +
         CountOf(move, MovedPlaylist::State::AlreadyRestored);
}

MemoryMove TwoPlaylists() {
  MemoryMove machines;
  machines.AddMix();
  machines.AddWeb();
  return machines;
}

/// The settings that point the players at their lists.
Lines SettingsIn(const MoveResult& move) {
  Lines lines;
  for (const PlayerSetting& setting : move.settings) {
    lines.push_back(Utf8(setting.place) + " = " + Utf8(setting.value));
  }
  return lines;
}

/// Two players, each with another kind of setting.
MemoryMove WithPlayers() {
  MemoryMove machines;
  machines.AddMix();
  MemoryPlatform& to = *machines.to;
  to.AddFile(u"C:\\Player\\wmplayer.exe", "x");
  to.SetRegistry(Hive::LocalMachine,
                 u"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\wmplayer.exe", u"Path",
                 String(u"C:\\Player"));
  to.Registry().AddKey(Hive::CurrentUser, u"Software\\Microsoft\\MediaPlayer\\Player\\Settings");
  to.AddFile(u"C:\\Winamp\\Winamp.ini", "[Winamp]\r\n");
  to.SetRegistry(Hive::ClassesRoot, u"Winamp.File\\shell\\open\\command", u"",
                 String(u"C:\\Winamp\\Winamp.exe"));
  return machines;
}

MemoryMove OnePlaylist() {
  MemoryMove machines;
  machines.AddMix();
  return machines;
}

/// Two songs whose tags tell where they go.
MemoryMove TaggedPlaylist() {
  using namespace songs;
  MemoryMove machines;
  for (const StringView song :
       {StringView(u"C:\\Music\\One.mp3"), StringView(u"C:\\Music\\Two.mp3")}) {
    machines.from->AddFile(
        song, Id3v2(3, {{"TPE1", Latin1("Ann")}, {"TALB", Latin1(Utf8(song))}}) + MpegSound(1000));
  }
  machines.AddPlaylist(u"C:\\Music\\Mix.m3u", {"One.mp3", "C:\\Music\\Two.mp3"});
  return machines;
}

/// A new machine that has what an earlier move has brought.
MemoryMove LaterPlaylist() {
  MemoryMove machines;
  machines.AddMix();
  machines.Run();
  machines.AddWeb();
  machines.to->Log().Clear();
  return machines;
}

/// Machines of a move that was stopped as soon as it had carried its generic files: they stand on
/// the disk, and are read from there.
MemoryMove CarriedAlready() {
  const MemoryMove machines = OnePlaylist();
  machines.Run();
  for (const String& path : machines.to->Files().AllFiles()) {
    if (!path.ends_with(u".ini")) machines.to->Files().RemoveFile(path);
  }
  return machines;
}

constexpr Fault kOldOnce = {"the old machine", true, FailOnce};
constexpr Fault kNewOnce = {"the new machine", false, FailOnce};
constexpr Fault kNewOverlooks = {"a look of the new machine", false, OverlookOnce};
constexpr Fault kOldOn = {"the old machine from there on", true, FailFromThereOn};
constexpr Fault kNewOn = {"the new machine from there on", false, FailFromThereOn};

std::size_t CountLists(const Contents& contents) {
  return static_cast<std::size_t>(std::count_if(
      contents.begin(), contents.end(),
      [](const auto& file) { return file.first.find("\\PlayLists\\") != std::string::npos; }));
}

/// A move that says that it is whole is; and whatever was told, the next move is whole.
void ExpectHonestAndMendedByTheNext(const Fault& fault, MemoryMove (*make)()) {
  const Sound sound(make);
  ASSERT_TRUE(sound.result.IsWhole());
  ForEachFailure(fault, make,
                 [&](const MemoryMove& machines, const std::optional<MoveResult>& move,
                     const std::string& where) {
                   if (move && move->IsWhole()) {
                     EXPECT_EQ(sound.Made(machines), sound.contents) << where;
                     EXPECT_EQ(CountRestored(*move), sound.result.playlists.size()) << where;
                     EXPECT_EQ(SongsIn(*move), SongsIn(sound.result)) << where;
                     EXPECT_EQ(move->verification.found, sound.result.verification.found) << where;
                   }
                   const MoveResult again = machines.Run();
                   EXPECT_TRUE(again.IsWhole()) << where;
                   EXPECT_EQ(CountRestored(again), sound.result.playlists.size()) << where;
                   EXPECT_EQ(again.verification.found, sound.result.verification.found) << where;
                   EXPECT_EQ(CountLists(ContentsOf(*machines.to)), CountLists(sound.contents))
                       << where;
                   for (const MovedPlaylist& playlist : again.playlists) {
                     EXPECT_EQ(playlist.natives.size(), 4u) << where;
                   }
                 });
}

TEST(FailingMove, OfWhichOneCallOfTheOldMachineFailsIsHonestAndTheNextIsWhole) {
  ExpectHonestAndMendedByTheNext(kOldOnce, TwoPlaylists);
}

TEST(FailingMove, OfWhichOneCallOfTheNewMachineFailsIsHonestAndTheNextIsWhole) {
  ExpectHonestAndMendedByTheNext(kNewOnce, TwoPlaylists);
}

TEST(FailingMove, OfTaggedSongsOfWhichOneCallOfTheOldMachineFailsIsHonest) {
  const Sound sound(TaggedPlaylist);
  ASSERT_TRUE(sound.result.IsWhole());
  ForEachFailure(kOldOnce, TaggedPlaylist,
                 [&](const MemoryMove& machines, const std::optional<MoveResult>& move,
                     const std::string& where) {
                   if (!move || !move->IsWhole()) return;
                   EXPECT_EQ(SongsIn(*move), SongsIn(sound.result)) << where;
                   const Contents made = sound.Made(machines);
                   for (const auto& [path, bytes] : sound.contents) {
                     // Two readers know the tags, and one can stand in for the other.
                     const bool isModern = path.ends_with(".m3u8");
                     EXPECT_EQ(made.count(path), 1u) << path << ' ' << where;
                     if (isModern) {
                       EXPECT_EQ(made.at(path), bytes) << where;
                     }
                   }
                 });
}

TEST(FailingMove, ToAMachineThatHasMusicAlreadyOfWhichOneCallFailsIsHonestAndTheNextIsWhole) {
  ExpectHonestAndMendedByTheNext(kNewOnce, LaterPlaylist);
}

TEST(FailingMove, ThatCannotPointAPlayerAtItsListsTellsItAndTheNextDoesIt) {
  const Sound sound(WithPlayers);
  ASSERT_EQ(SettingsIn(sound.result).size(), 3u);
  std::size_t lost = 0;
  for (const StringView operation : {u"Registry.Write", u"Settings.Write"}) {
    bool failed = true;
    for (std::size_t k = 1; failed; ++k) {
      const MemoryMove machines = WithPlayers();
      machines.to->FailOn(operation, k, error::kDiskFull);
      const std::optional<MoveResult> move = ResultOf(machines);
      failed = machines.to->Log().HasFailed();
      machines.to->Log().StopFailing();
      const bool isLost = move && move->settings.size() < 3;
      lost += isLost ? 1 : 0;
      EXPECT_FALSE(isLost && move->IsWhole()) << Utf8(operation) << ' ' << k;
      const MoveResult again = machines.Run();
      EXPECT_TRUE(again.IsWhole()) << Utf8(operation) << ' ' << k;
      EXPECT_EQ(SettingsIn(again), SettingsIn(sound.result)) << Utf8(operation) << ' ' << k;
    }
  }
  EXPECT_GE(lost, 3u);  // each of them, and all where the move ends before
}

TEST(FailingMove, ThatCouldNotTellOfAFolderForAMomentPointsThePlayersAllTheSame) {
  const Sound sound(WithPlayers);
  bool failed = true;
  for (std::size_t k = 1; failed; ++k) {
    const MemoryMove machines = WithPlayers();
    machines.to->FailOn(u"FolderExists", k, error::kDeviceInputOutput);
    const std::optional<MoveResult> move = ResultOf(machines);
    failed = machines.to->Log().HasFailed();
    if (move) {
      EXPECT_EQ(SettingsIn(*move), SettingsIn(sound.result)) << k;
    }
  }
}

TEST(FailingMove, ThatGoesOnWhereOneWasStoppedIsHonestAndTheNextIsWhole) {
  ExpectHonestAndMendedByTheNext(kNewOnce, CarriedAlready);
}

/// A new machine where somebody else's lists have the names of those that are to come.
MemoryMove ForeignLists() {
  MemoryMove machines = OnePlaylist();
  for (const StringView list : {u"Sonique\\Mix.pls", u"WinAmp\\Mix.m3u",
                                u"Windows Media Player\\Mix.asx", u"Modern Players\\Mix.m3u8"}) {
    machines.to->AddFile(u"C:\\My Documents\\Norvo Media\\PlayLists\\" + String(list), "foreign");
  }
  return machines;
}

void ExpectForeignListsUntouched(const Fault& fault) {
  const Contents foreign = ContentsOf(*ForeignLists().to);
  ForEachFailure(
      fault, ForeignLists,
      [&](const MemoryMove& machines, const std::optional<MoveResult>&, const std::string& where) {
        static_cast<void>(ResultOf(machines));  // a next one
        const Contents after = ContentsOf(*machines.to);
        for (const auto& [path, bytes] : foreign) {
          const auto found = after.find(path);
          ASSERT_TRUE(found != after.end()) << path << ' ' << where;
          EXPECT_EQ(found->second, bytes) << path << ' ' << where;
        }
      });
}

TEST(FailingMove, NeverTouchesListsThatItHasNotMade) {
  ExpectForeignListsUntouched(kNewOnce);
}

TEST(FailingMove, NeverTouchesListsThatItHasOverlooked) {
  ExpectForeignListsUntouched(kNewOverlooks);
}

TEST(FailingMove, OfWhichTheOldMachineFailsForGoodIsHonestAndTheNextIsWhole) {
  ExpectHonestAndMendedByTheNext(kOldOn, OnePlaylist);
}

TEST(FailingMove, OfWhichTheNewMachineFailsForGoodIsHonestAndTheNextIsWhole) {
  ExpectHonestAndMendedByTheNext(kNewOn, OnePlaylist);
}

}  // namespace
}  // namespace norvo
