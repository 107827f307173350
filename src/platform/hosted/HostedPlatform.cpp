#include "platform/hosted/HostedPlatform.h"

#include <iostream>
#include <utility>

#include "platform/files/DiskPath.h"
#include "platform/hosted/DriveMap.h"
#include "platform/hosted/HostedFileSystem.h"
#include "platform/hosted/HostedRegistry.h"
#include "platform/hosted/HostedSettings.h"
#include "platform/hosted/HostedShell.h"
#include "platform/hosted/SystemPaths.h"
#include "services/FolderScanner.h"
#include "services/MediaList.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

// Warnings that wait for somebody to be told; more would tell nothing new.
constexpr std::size_t kMostWaiting = 1000;

class StandardErrorBox final : public MessageDialog {
 public:
  void Show(StringView title, StringView text) override {
    std::cerr << ToUtf8(title) << ": " << ToUtf8(text) << std::endl;
  }
};

class Warnings {
 public:
  void SetSink(WarningSink sink) {
    sink_ = std::move(sink);
    if (!sink_) return;
    for (const auto& [line, weight] : std::exchange(waiting_, {})) sink_(line, weight);
  }

  void Tell(StringView line, WarningWeight weight = WarningWeight::LeftOut) {
    if (sink_) {
      sink_(line, weight);
    } else if (waiting_.size() < kMostWaiting) {
      waiting_.emplace_back(line, weight);
    }
  }

 private:
  WarningSink sink_;
  std::vector<std::pair<String, WarningWeight>> waiting_;
};

}  // namespace

/// All services, in the order in which they need each other.
struct HostedPlatform::Parts {
  explicit Parts(HostedLayout layout)
      : drives(layout.drives, layout.linksCross),
        files(drives,
              [this](StringView line, WarningWeight weight) { warnings.Tell(line, weight); }),
        registry(FullSystemPath(layout.registryFile),
                 [this](StringView line) { warnings.Tell(line); }),
        shell(std::move(layout.shellFolders)) {
    for (const String& line : layout.warnings) warnings.Tell(line);
  }

  Warnings warnings;
  DriveMap drives;
  HostedFileSystem files;
  HostedRegistry registry;
  HostedShell shell;
  HostedProduct product{registry};
  HostedSettings storage{files};
  MediaList mediaList{files, storage};
  FolderScanner scanner{files};
  StandardErrorBox standardBox;
  MessageDialog* messages = &standardBox;
};

HostedPlatform::HostedPlatform(HostedLayout layout)
    : parts_(std::make_unique<Parts>(std::move(layout))) {}

HostedPlatform::HostedPlatform(const std::filesystem::path& machineFolder)
    : HostedPlatform(ReadLayout(machineFolder)) {}

HostedPlatform::~HostedPlatform() = default;

void HostedPlatform::SetMessageDialog(MessageDialog& messages) {
  parts_->messages = &messages;
}

void HostedPlatform::SetWarningSink(WarningSink sink) {
  parts_->warnings.SetSink(std::move(sink));
}

void HostedPlatform::SetListingSink(
    std::function<void(StringView folder, std::span<const FolderItem> items)> sink) {
  parts_->files.SetListingSink(std::move(sink));
}

std::vector<HostedDrive> HostedPlatform::DriveFolders() const {
  std::vector<HostedDrive> folders;
  for (const Drive& each : parts_->drives.List()) {
    folders.push_back({each.letter, each.type,
                       ToSystemPath(parts_->drives.Find(each.letter)->Folder()).make_preferred()});
  }
  return folders;
}

HostedFileSystem& HostedPlatform::HostedFiles() {
  return parts_->files;
}
FileSystem& HostedPlatform::Files() {
  return parts_->files;
}
norvo::Registry& HostedPlatform::Registry() {
  return parts_->registry;
}
ShellFolders& HostedPlatform::Shell() {
  return parts_->shell;
}
ProductInformation& HostedPlatform::Product() {
  return parts_->product;
}
SettingsStorage& HostedPlatform::Settings() {
  return parts_->storage;
}
MigrationList& HostedPlatform::Migration() {
  return parts_->mediaList;
}
DriveScanner* HostedPlatform::Scanner() {
  return &parts_->scanner;
}
MessageDialog& HostedPlatform::Messages() {
  return *parts_->messages;
}
const CodePage& HostedPlatform::AnsiPage() {
  return Windows1252();
}
std::string HostedPlatform::SystemPathOf(StringView path) {
  const std::u8string found = PathOnSystem(DriveFolders(), path).u8string();
  return std::string(found.begin(), found.end());
}

}  // namespace norvo
