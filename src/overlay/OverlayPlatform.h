#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "overlay/OverlayFiles.h"
#include "overlay/OverlayRegistry.h"
#include "overlay/OverlayServices.h"
#include "services/FolderScanner.h"

namespace norvo {

/// A machine that is shown as it would be, and never changed: it shows the machine below, and keeps
/// in memory whatever is written to it. Files that are only planned can be pretended to stand.
///
/// What it cannot know: a file or folder below that refuses to be written refuses nothing here; a
/// file that a link below makes reachable by two paths is changed for the path that was used; names
/// of a folder below that differ in case alone become one file when it is written. A file below
/// that is appended to is taken over whole, with the limit of `ReadWholeFile`. The migration list
/// takes every record and keeps none.
class OverlayPlatform final : public Platform {
 public:
  explicit OverlayPlatform(std::shared_ptr<Platform> below) : below_(std::move(below)) {}
  OverlayPlatform(const OverlayPlatform&) = delete;
  OverlayPlatform& operator=(const OverlayPlatform&) = delete;

  /// From now on the machine below is asked about each path once, and its answer is kept until
  /// `Forget`: for work during which nobody else writes there.
  void Remember() { files_.Remember(); }
  void Forget() { files_.Forget(); }

  /// From now on a file with these facts, and the folders above it, stand at the path as far as
  /// questions go, over anything that was there; its name is the path's own, in the spelling of
  /// `facts.name` where the two differ in case alone. Opening it, for reading or appending, and
  /// reading it as a settings file raise error 57: the file stands, but it has no content. Writing
  /// it whole or deleting it takes the pretence back. Error 75 when a folder stands at the path, a
  /// file stands above it or no file can have its name; error 76 when the machine lacks the drive.
  void Pretend(StringView path, const FileFacts& facts) { files_.Pretend(path, facts); }
  /// The path is again as it was before it was pretended; nothing happens when it was not.
  void TakeBack(StringView path) { files_.TakeBack(path); }
  /// Forgets everything that was pretended; what was written stays.
  void TakeBackAll() { files_.TakeBackAll(); }

  /// Content of a file that was written or opened for appending here; nothing for others, and for
  /// one that was deleted afterwards.
  std::optional<std::string> Written(StringView path) const { return files_.Written(path); }
  /// Full paths of these files, in the order of their first writing.
  std::vector<String> WrittenPaths() const { return files_.WrittenPaths(); }

  /// Shows the messages from now on, instead of the machine below. Not owned.
  void SetMessageDialog(MessageDialog& messages) { messages_ = &messages; }

  FileSystem& Files() override { return files_; }
  norvo::Registry& Registry() override { return registry_; }
  ShellFolders& Shell() override { return shell_; }
  ProductInformation& Product() override { return product_; }
  SettingsStorage& Settings() override { return files_; }
  MigrationList& Migration() override { return migration_; }
  DriveScanner* Scanner() override { return &scanner_; }
  MessageDialog& Messages() override {
    return messages_ == nullptr ? below_->Messages() : *messages_;
  }
  const CodePage& AnsiPage() override { return below_->AnsiPage(); }
  /// Does nothing: the machine below tells its own warnings, to whoever opened it.
  void SetWarningSink(WarningSink) override {}

 private:
  std::shared_ptr<Platform> below_;
  OverlayFiles files_{*below_};
  OverlayRegistry registry_{*below_};
  OverlayShell shell_{*below_, files_};
  OverlayProduct product_{*below_, registry_};
  ForgetfulMigrationList migration_;
  FolderScanner scanner_{files_};
  MessageDialog* messages_ = nullptr;
};

}  // namespace norvo
