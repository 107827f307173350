#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "move/ForwardedFiles.h"
#include "services/Platform.h"
#include "text/Fingerprint.h"

namespace norvo {

/// A machine whose settings files, once written through this, are read from memory: the steps of a
/// move hand each other generic files and lists by way of the disk, where they must stand anyway.
/// Up to a limit, beyond which they are read from the disk again. Everything else is the machine's.
///
/// While playlists are restored it also remembers which files are not there: every entry of a
/// generic file asks for its old address, of which the new machine mostly has none.
class SettingsMemory final : public Platform {
 public:
  explicit SettingsMemory(std::shared_ptr<Platform> machine);

  /// From now on until `ForgetMissing` a file that is not there is asked for once, unless it is
  /// created through this: for work during which nobody else writes there.
  void RememberMissing() { memory_.RememberMissing(); }
  void ForgetMissing() { memory_.ForgetMissing(); }

  /// From now on what was written is read from the disk.
  void ForgetWritten() { memory_.ForgetWritten(); }

  /// The machine's own: asked anew each time.
  FileSystem& Fresh() { return machine_->Files(); }

  FileSystem& Files() override { return files_; }
  norvo::Registry& Registry() override { return machine_->Registry(); }
  ShellFolders& Shell() override { return machine_->Shell(); }
  ProductInformation& Product() override { return machine_->Product(); }
  SettingsStorage& Settings() override { return storage_; }
  MigrationList& Migration() override { return machine_->Migration(); }
  DriveScanner* Scanner() override { return machine_->Scanner(); }
  MessageDialog& Messages() override { return machine_->Messages(); }
  const CodePage& AnsiPage() override { return machine_->AnsiPage(); }
  std::string SystemPathOf(StringView path) override { return machine_->SystemPathOf(path); }
  void SetWarningSink(WarningSink sink) override { machine_->SetWarningSink(std::move(sink)); }

 private:
  /// The files that were written, by the folded full path.
  class Memory {
   public:
    void Keep(String path, const std::string& bytes);
    void Forget(const String& path);
    void ForgetWritten();
    const std::string* Find(const String& path) const;

    void RememberMissing() { remembersMissing_ = true; }
    void ForgetMissing();
    bool RemembersMissing() const { return remembersMissing_; }
    bool IsMissing(const String& path) const { return missing_.contains(FingerprintOf(path)); }
    void NoteMissing(const String& path) { missing_.insert(FingerprintOf(path)); }

   private:
    std::unordered_map<String, std::string> files_;
    std::size_t bytes_ = 0;
    bool remembersMissing_ = false;
    std::unordered_set<Fingerprint, FingerprintHash> missing_;
  };

  class Storage final : public SettingsStorage {
   public:
    Storage(Platform& machine, Memory& memory) : machine_(machine), memory_(memory) {}
    std::optional<std::string> Read(StringView path) override;
    void Write(StringView path, const std::string& bytes) override;

   private:
    Platform& machine_;
    Memory& memory_;
  };

  /// Forgets what is deleted or grows.
  class Disk final : public ForwardedFiles {
   public:
    Disk(FileSystem& files, Memory& memory) : ForwardedFiles(files), memory_(memory) {}

    std::optional<FileFacts> FactsOf(StringView path) override;
    void RemoveFile(StringView path, bool force) override;
    std::unique_ptr<AppendFile> OpenForAppending(StringView path, bool create) override;

   private:
    Memory& memory_;
  };

  std::shared_ptr<Platform> machine_;
  Memory memory_;
  Storage storage_;
  Disk files_;
};

}  // namespace norvo
