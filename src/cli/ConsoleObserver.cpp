#include "cli/ConsoleObserver.h"

#include "cli/WarningWords.h"
#include "text/Encoding.h"

namespace norvo::cli {

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
  console_.LeftOut(TextOf(warning));
}

void ConsoleObserver::OnLog(MachineSide, const LogFile& log) {
  const std::string shown = ToUtf8(log.path);
  const bool differs = !log.systemPath.empty() && log.systemPath != shown;
  console_.Note("The log is " + shown + (differs ? " (" + log.systemPath + ")" : ""));
}

}  // namespace norvo::cli
