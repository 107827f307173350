#pragma once

#include <set>
#include <vector>

#include "cli/Console.h"
#include "move/ScanPlaylists.h"
#include "move/WorkObserver.h"

namespace norvo::cli {

/// Shows a call's work on the console: its progress, its warnings, where its log is.
class ConsoleObserver : public WorkObserver {
 public:
  /// `what` names what single playlists are in the progress: "playlist". The console must outlive
  /// this.
  explicit ConsoleObserver(Console& console, const char* what = "playlist")
      : console_(console), what_(what) {}

  /// The user wishes the program's end.
  bool IsCancelled() override;
  void OnProgress(const WorkProgress& progress) override;
  /// Of a file that cannot be read, once.
  void OnWarning(const WorkWarning& warning) override;
  void OnLog(MachineSide side, const LogFile& log) override;

  /// Why these are not listed; those that cannot be read are told of already.
  void TellSkipped(const std::vector<SkippedPlaylist>& playlists);

 protected:
  Console& Out() { return console_; }
  /// Whether it was told of the file that it cannot be read.
  bool IsToldUnread(const String& path) const { return unread_.contains(path); }

 private:
  Console& console_;
  const char* what_;
  std::set<String> unread_;
};

}  // namespace norvo::cli
