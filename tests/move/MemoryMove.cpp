#include "move/MemoryMove.h"

#include <algorithm>

namespace norvo {
namespace {

/// The enumerator's name, from all of them in their order.
template <class Enum, std::size_t count>
std::string Named(Enum value, const char* const (&names)[count]) {
  return names[static_cast<std::size_t>(value)];
}

std::string NameOf(MovedPlaylist::State state) {
  return Named(state,
               {"collected", "restored", "already restored", "no songs", "skipped", "left out"});
}

std::string NameOf(MovedSong::State state) {
  return Named(state, {"planned", "copied", "linked", "already there", "left out"});
}

std::string NameOf(MovedItem::Fate fate) {
  return Named(fate, {"song", "address", "no such file", "not media", "ambiguous"});
}

std::string NameOf(MovedPlaylist::Fault fault) {
  return Named(fault, {"", "KindNotRead", "NotUnderstood", "Unreadable", "GenericNotWritten",
                       "GenericDoesNotReadBack", "NotCarried", "NotRestored", "NotNoted"});
}

std::string NameOf(MovedSong::Fault fault) {
  return Named(fault, {"", "PathTooLong", "FolderBlocked", "NumbersTaken", "GroupRootUnusable",
                       "NotBrought"});
}

std::string NameOf(PlaceFailure failure) {
  return Named(failure,
               {"", "SourceMissing", "SourceNoFile", "SourceUnreadable", "SourceChanged",
                "TargetUnwritable", "FolderThere", "OtherFileThere", "NotComparable", "NotCopied"});
}

std::string NameOf(Mending::Kind kind) {
  return Named(kind, {"NotListed", "QueueEnded", "Unnamed", "NotWritten", "NothingUnderstood",
                      "UnknownType", "NotReadToEnd", "NameTaken", "Incomplete", "EntriesAdded",
                      "Split", "OtherKind", "DetailsFilled"});
}

std::string NameOf(Adjustment::Reason reason) {
  return Named(reason,
               {"NameUnusable", "ManyOfOneName", "NativeBlocked", "Markup", "RelativeReference",
                "NotInCodePage", "PathTooLong", "IllegalName", "LeavesGroupRoot", "OtherSong",
                "FolderThere", "OtherFile", "PlaceElsewhere", "OldAddressTaken"});
}

std::string NameOf(WorkWarning::Kind kind) {
  return Named(kind,
               {"Library",           "Oddity",           "SettingUnusable",  "RoleKept",
                "GroupRootKept",     "NoLogFolder",      "LogNotWritten",    "NativesMissing",
                "UntellableAddress", "NativeGone",       "NativeIncomplete", "WrongSong",
                "ChangedAddress",    "ListDamaged",      "NoPlainName",      "TimesLost",
                "CompanionMissing",  "PlayerNotPointed", "CountedListWrong", "CountedSongWrong",
                "TagsNotRead",       "SettingsOfUser",   "LinkNotFollowed",  "CopiesNotNoted",
                "LogFolderNotMade"});
}

/// In front of what is there.
std::string With(const char* before, const std::string& text) {
  return text.empty() ? text : before + text;
}

std::string With(const char* before, std::size_t number) {
  return number == 0 ? std::string() : before + std::to_string(number);
}

std::string LineOf(const MovedItem& item) {
  const std::string what = item.IsSong() ? std::to_string(item.song) : Utf8(item.reference);
  std::string line = "  " + std::to_string(item.entry) + ": " + NameOf(item.fate) + ' ' + what;
  if (item.foundElsewhere) line += ", found elsewhere";
  for (const String& candidate : item.candidates) line += ", or " + Utf8(candidate);
  return line;
}

}  // namespace

Contents ContentsOf(MemoryPlatform& machine) {
  Contents contents;
  for (const String& path : machine.Files().AllFiles()) contents[Utf8(path)] = machine.Bytes(path);
  return contents;
}

Lines WritesOf(const MemoryPlatform& machine) {
  constexpr StringView kWriting[] = {u"CreateFolder ",     u"RemoveFile ",     u"OpenForAppending ",
                                     u"Settings.Write ",   u"Registry.Write ", u"Migration.Add ",
                                     u"Registry.CreateKey"};
  Lines writes;
  for (const String& line : machine.Trace()) {
    const bool writing = std::any_of(std::begin(kWriting), std::end(kWriting),
                                     [&line](StringView start) { return line.starts_with(start); });
    if (writing) writes.push_back(Utf8(line));
  }
  return writes;
}

void MemoryMove::AddPlaylist(StringView path, const Lines& references) {
  std::string text = "#EXTM3U\r\n";
  for (const std::string& reference : references) text += reference + "\r\n";
  from->AddFile(path, text);
}

void MemoryMove::AddMix() {
  AddSong(u"C:\\Music\\One.mp3");
  AddSong(u"C:\\Music\\Two.mp3");
  AddPlaylist(u"C:\\Music\\Mix.m3u", {"One.mp3", "C:\\Music\\Two.mp3"});
}

void MemoryMove::AddWeb() {
  from->AddFile(u"C:\\Music\\Web.pls",
                "[playlist]\r\nFile1=http://example.com/a.mp3\r\nFile2=C:\\Music\\One.mp3\r\n"
                "File3=Gone.mp3\r\nNumberOfEntries=3\r\nVersion=2\r\n");
}

std::string LineOf(const MovedSong& song) {
  return Utf8(song.source) + " -> " + Utf8(song.place) + ": " + NameOf(song.state) +
         With(", ", NameOf(song.fault)) + With(" ", Utf8(song.faultPath)) +
         With(", ", NameOf(song.failure)) + With(", ", Utf8(song.systemReason));
}

std::string LineOf(const MovedPlaylist& playlist) {
  return Utf8(playlist.source) + " of type " + std::to_string(playlist.type) + ": " +
         NameOf(playlist.state) + With(", ", NameOf(playlist.fault)) +
         With(", ", Utf8(playlist.systemReason));
}

std::string LineOf(const WorkWarning& warning) {
  return (warning.side == MachineSide::Old ? "old: " : "new: ") + NameOf(warning.kind) +
         With(" ", Utf8(warning.warning.text)) + With(" ", Utf8(warning.subject)) +
         With(", detail ", Utf8(warning.detail)) + With(", wanted ", Utf8(warning.wanted)) +
         With(", found ", warning.found) + With(", expected ", warning.expected);
}

Lines LinesOf(const std::vector<WorkWarning>& warnings) {
  Lines lines;
  for (const WorkWarning& warning : warnings) lines.push_back(LineOf(warning));
  return lines;
}

Lines PlaylistsIn(const MoveResult& move) {
  Lines lines;
  for (const MovedPlaylist& playlist : move.playlists) {
    lines.push_back(LineOf(playlist));
    for (const MovedItem& item : playlist.items) lines.push_back(LineOf(item));
    for (const Mending& mending : playlist.mendings) {
      lines.push_back("  mended: " + NameOf(mending.kind) + With(" ", mending.count));
    }
  }
  return lines;
}

Lines SongsIn(const MoveResult& move) {
  Lines lines;
  for (const MovedSong& song : move.songs) lines.push_back(LineOf(song));
  return lines;
}

Lines AdjustmentsIn(const MoveResult& move) {
  Lines lines;
  for (const Adjustment& change : move.adjustments) {
    lines.push_back("playlist " + std::to_string(change.playlist) + ", entry " +
                    std::to_string(change.entry) + ", " + Utf8(change.key) + ": " +
                    Utf8(change.before) + " -> " + Utf8(change.after) + ", reason " +
                    NameOf(change.reason));
  }
  return lines;
}

}  // namespace norvo
