#include "move/LibraryWatcher.h"

#include <utility>

#include "automation/RunTimeError.h"

namespace norvo {

void LibraryWatcher::OnWarning(const Warning& warning) {
  if (cancelled_) return;  // it tells of the end that was asked for
  lastWarning_ = warning.text;
  WorkWarning told;
  told.side = side_;
  told.warning = warning;
  report_.Warn(std::move(told));
}

void LibraryWatcher::OnFolder(StringView path) {
  if (phase_ == WorkPhase::Restoring) return;  // the folders of generic files are few
  Progress({WorkPhase::Scanning, ++folders_, 0, 0, 0, path});
}

void LibraryWatcher::OnPlaylistBegin(StringView path, std::size_t position, std::size_t count) {
  Progress({phase_, position, count, 0, 0, path});
}

void LibraryWatcher::OnPlayerSettingLost(StringView, StringView place, StringView value,
                                         StringView reason) {
  WorkWarning told;
  told.kind = WorkWarning::Kind::PlayerNotPointed;
  told.side = side_;
  told.subject = place;
  told.detail = reason;
  told.wanted = value;
  report_.Warn(std::move(told));
}

/// A run-time error out of an observer's call ends the component's work, and nothing else does.
void LibraryWatcher::Progress(const WorkProgress& progress) {
  try {
    report_.Progress(progress);
  } catch (const WorkCancelled&) {
    cancelled_ = true;
    throw RunTimeError(error::kInvalidArgument);
  }
}

void LibraryWatcher::ThrowIfCancelled() const {
  if (cancelled_) throw WorkCancelled();
}

}  // namespace norvo
