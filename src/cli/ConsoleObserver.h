#pragma once

#include "cli/Console.h"
#include "move/WorkObserver.h"

namespace norvo::cli {

/// Shows a call's work on the console: its progress, its warnings, where its log is.
class ConsoleObserver : public WorkObserver {
 public:
  /// `what` names what single playlists are in the progress: "playlist". The console must outlive
  /// this.
  explicit ConsoleObserver(Console& console, const char* what = "playlist")
      : console_(console), what_(what) {}

  void OnProgress(const WorkProgress& progress) override;
  void OnWarning(const WorkWarning& warning) override;
  void OnLog(MachineSide side, const LogFile& log) override;

 protected:
  Console& Out() { return console_; }

 private:
  Console& console_;
  const char* what_;
};

}  // namespace norvo::cli
