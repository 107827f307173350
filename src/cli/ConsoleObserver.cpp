#include "cli/ConsoleObserver.h"

#include "automation/RunTimeError.h"
#include "cli/EndWish.h"
#include "cli/ErrorWords.h"
#include "cli/WarningWords.h"
#include "text/Encoding.h"

namespace norvo::cli {
bool ConsoleObserver::IsCancelled() {
  return IsEndWished();
}

void ConsoleObserver::OnProgress(const WorkProgress& progress) {
  Progress& bar = console_.Bar();
  switch (progress.phase) {
    case WorkPhase::TakingStock:
    case WorkPhase::Scanning:
      return bar.Count("folders", progress.position, progress.current);
    case WorkPhase::Verifying:
    case WorkPhase::Counting:
      return bar.Advance("verifying", progress.position, progress.count, progress.current);
    default:
      return bar.Advance(what_, progress.position, progress.count, progress.current);
  }
}

void ConsoleObserver::OnWarning(const WorkWarning& warning) {
  // All that was wished for is done.
  const bool isNote = warning.kind == WorkWarning::Kind::SettingsOfUser ||
                      warning.kind == WorkWarning::Kind::LinkNotFollowed ||
                      warning.kind == WorkWarning::Kind::LogFolderNotMade;
  if (isNote) return console_.Note(TextOf(warning));
  const bool isUnread = IsOfUnreadFile(warning);
  if (isUnread && !unread_.insert(warning.warning.path).second) return;
  const bool isDenied =
      (isUnread && MayBeDenied(warning.warning.reason)) ||
      (warning.kind == WorkWarning::Kind::TagsNotRead && MayBeDenied(warning.detail));
  console_.LeftOut(TextOf(warning) + (isDenied ? std::string(". ") + kFileAdvice : std::string()));
}

void ConsoleObserver::OnLog(MachineSide, const LogFile& log) {
  const std::string shown = ToUtf8(log.path);
  const bool differs = !log.systemPath.empty() && log.systemPath != shown;
  console_.Note("The log is " + shown + (differs ? " (" + log.systemPath + ")" : ""));
}

void ConsoleObserver::TellSkipped(const std::vector<SkippedPlaylist>& playlists) {
  std::size_t copies = 0;
  for (const SkippedPlaylist& playlist : playlists) {
    copies += playlist.reason == SkippedPlaylist::Reason::RestoredCopy;
    if (playlist.reason != SkippedPlaylist::Reason::UnknownType) continue;  // told as it was met
    console_.LeftOut(ToUtf8(playlist.path) +
                     ": skipped: its first lines tell no playlist type; migrate reads such lists, "
                     "too, with more patience");
  }
  if (copies == 0) return;
  console_.Note(
      "Playlists skipped, since restore or migrate has made them and nobody has changed them: " +
      std::to_string(copies));
}

}  // namespace norvo::cli
