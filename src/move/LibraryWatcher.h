#pragma once

#include <cstddef>

#include "move/WorkReport.h"
#include "services/Observer.h"

namespace norvo {

/// Follows a component's work for a call: hands its progress and its warnings on to the report, and
/// ends the work when the caller has cancelled it. A player's setting that could not be changed is
/// a warning of the call.
class LibraryWatcher : public Observer {
 public:
  /// `phase` is what the component does with single playlists.
  LibraryWatcher(WorkReport& report, MachineSide side, WorkPhase phase)
      : report_(report), side_(side), phase_(phase) {}

  void OnWarning(const Warning& warning) override;
  void OnFolder(StringView path) override;
  void OnPlaylistBegin(StringView path, std::size_t position, std::size_t count) override;
  void OnPlayerSettingLost(StringView player, StringView place, StringView value,
                           StringView reason) override;

  std::size_t Folders() const { return folders_; }
  /// The last warning's text, for a message about work that failed as a whole.
  const String& LastWarning() const { return lastWarning_; }
  /// WorkCancelled when the caller has ended the component's work.
  void ThrowIfCancelled() const;

 protected:
  WorkReport& Report() { return report_; }

 private:
  void Progress(const WorkProgress& progress);

  WorkReport& report_;
  MachineSide side_;
  WorkPhase phase_;
  std::size_t folders_ = 0;
  String lastWarning_;
  bool cancelled_ = false;
};

}  // namespace norvo
