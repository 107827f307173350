#include "cli/MoveProgress.h"

namespace norvo::cli {
namespace {

const char* WordsFor(WorkPhase phase) {
  switch (phase) {
    case WorkPhase::TakingStock:
      return "taking stock, folder";
    case WorkPhase::Scanning:
      return "looking for playlists, folder";
    case WorkPhase::Collecting:
      return "reading playlist";
    case WorkPhase::Checking:
      return "reading once more";
    case WorkPhase::ReadingTags:
      return "reading the names in song";
    case WorkPhase::Planning:
      return "planning playlist";
    case WorkPhase::PlanningSongs:
      return "planning song";
    case WorkPhase::BringingSongs:
      return "bringing songs";
    case WorkPhase::Restoring:
      return "writing playlist";
    case WorkPhase::Verifying:
      return "verifying playlist";
    case WorkPhase::Counting:
      return "checking all";
  }
  return "";
}

}  // namespace

void ShowProgress(const WorkProgress& work, Progress& bar) {
  const char* const words = WordsFor(work.phase);
  if (work.phase == WorkPhase::BringingSongs) {
    bar.Bytes(words, work.bytesDone, work.bytesTotal, {});
  } else if (work.count == 0) {
    bar.Count(words, work.position, work.current);
  } else {
    bar.Advance(words, work.position, work.count, work.current);
  }
}

}  // namespace norvo::cli
