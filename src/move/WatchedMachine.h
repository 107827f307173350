#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <optional>

#include "move/ForwardedFiles.h"
#include "services/Platform.h"

namespace norvo {

/// A machine that notes what the library keeps to itself: which files could not be opened for
/// reading, and how many texts did not fit the 8-bit page. Everything is the machine's own.
class WatchedMachine final : public Platform {
 public:
  explicit WatchedMachine(std::shared_ptr<Platform> machine)
      : machine_(std::move(machine)), files_(machine_->Files()), page_(machine_->AnsiPage()) {}

  /// Why a file that is there could not be opened, as the error described it; told once of each.
  std::optional<String> TakeUnread(StringView path) { return files_.TakeUnread(path); }
  /// Texts so far that were written with other characters than they have.
  std::size_t Replaced() const { return page_.Replaced(); }

  FileSystem& Files() override { return files_; }
  norvo::Registry& Registry() override { return machine_->Registry(); }
  ShellFolders& Shell() override { return machine_->Shell(); }
  ProductInformation& Product() override { return machine_->Product(); }
  SettingsStorage& Settings() override { return machine_->Settings(); }
  MigrationList& Migration() override { return machine_->Migration(); }
  DriveScanner* Scanner() override { return machine_->Scanner(); }
  MessageDialog& Messages() override { return machine_->Messages(); }
  const CodePage& AnsiPage() override { return page_; }
  std::string SystemPathOf(StringView path) override { return machine_->SystemPathOf(path); }
  void SetWarningSink(WarningSink sink) override { machine_->SetWarningSink(std::move(sink)); }

 private:
  class WatchedFiles final : public ForwardedFiles {
   public:
    using ForwardedFiles::ForwardedFiles;
    std::unique_ptr<BinaryFile> OpenForReading(StringView path) override;
    std::optional<String> TakeUnread(StringView path);

   private:
    std::map<String, String> unread_;  // reasons, by path
  };

  class WatchedPage final : public CodePage {
   public:
    explicit WatchedPage(const CodePage& page) : page_(page) {}
    std::size_t Replaced() const { return replaced_; }
    void AppendDecoded(String& text, std::string_view bytes) const override {
      page_.AppendDecoded(text, bytes);
    }
    std::string Encode(StringView text) const override;
    bool Fits(StringView text) const override { return page_.Fits(text); }
    std::optional<std::string> EncodeFitting(StringView text) const override {
      return page_.EncodeFitting(text);
    }

   private:
    const CodePage& page_;
    mutable std::size_t replaced_ = 0;
  };

  std::shared_ptr<Platform> machine_;
  WatchedFiles files_;
  WatchedPage page_;
};

}  // namespace norvo
