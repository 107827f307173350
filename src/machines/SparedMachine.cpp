#include "machines/SparedMachine.h"

#include <utility>
#include <vector>

#include "move/ForwardedFiles.h"
#include "overlay/OverlayPlatform.h"
#include "services/FolderScanner.h"
#include "services/Utility.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

class FilesWithout final : public ForwardedFiles {
 public:
  /// `files` must outlive this.
  FilesWithout(FileSystem& files, std::span<const String> folders) : ForwardedFiles(files) {
    for (const String& folder : folders) {
      hidden_.push_back(
          {Utility::AddBackslash(ParentFolder(folder)), String(LastComponent(folder))});
    }
  }

  std::vector<FolderItem> ListFolder(StringView path,
                                     std::span<const StringView> endings) override {
    std::vector<FolderItem> items = ForwardedFiles::ListFolder(path, endings);
    const String folder = Utility::AddBackslash(path);
    for (const Hidden& hidden : hidden_) {
      if (!EqualsIgnoreCase(folder, hidden.parent)) continue;
      std::erase_if(items, [&hidden](const FolderItem& item) {
        return item.isFolder && EqualsIgnoreCase(item.name, hidden.name);
      });
    }
    return items;
  }
  /// A root that is hidden takes its drive along.
  std::vector<Drive> Drives() override {
    std::vector<Drive> drives = ForwardedFiles::Drives();
    for (const Hidden& hidden : hidden_) {
      if (!hidden.name.empty()) continue;
      std::erase_if(drives, [&hidden](const Drive& drive) {
        return ToUpper(hidden.parent.front()) == drive.letter;
      });
    }
    return drives;
  }

 private:
  struct Hidden {
    String parent;
    String name;  // empty for the root of a drive
  };
  std::vector<Hidden> hidden_;
};

class Spared final : public Platform {
 public:
  Spared(std::shared_ptr<Platform> machine, std::span<const String> hidden)
      : machine_(std::move(machine)), overlay_(machine_), files_(overlay_.Files(), hidden) {}

  FileSystem& Files() override { return files_; }
  norvo::Registry& Registry() override { return overlay_.Registry(); }
  ShellFolders& Shell() override { return overlay_.Shell(); }
  ProductInformation& Product() override { return overlay_.Product(); }
  SettingsStorage& Settings() override { return overlay_.Settings(); }
  MigrationList& Migration() override { return overlay_.Migration(); }
  DriveScanner* Scanner() override { return &scanner_; }
  MessageDialog& Messages() override { return overlay_.Messages(); }
  const CodePage& AnsiPage() override { return overlay_.AnsiPage(); }
  std::string SystemPathOf(StringView path) override { return machine_->SystemPathOf(path); }
  void SetWarningSink(WarningSink sink) override { machine_->SetWarningSink(std::move(sink)); }

 private:
  std::shared_ptr<Platform> machine_;
  OverlayPlatform overlay_;
  FilesWithout files_;
  FolderScanner scanner_{files_};
};

}  // namespace

std::shared_ptr<Platform> SparedMachine(std::shared_ptr<Platform> machine,
                                        std::span<const String> hidden) {
  return std::make_shared<Spared>(std::move(machine), hidden);
}

}  // namespace norvo
