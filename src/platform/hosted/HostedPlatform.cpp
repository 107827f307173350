#include "platform/hosted/HostedPlatform.h"

#include <fcntl.h>

#include <cerrno>
#include <iostream>
#include <utility>

#include "automation/RunTimeError.h"
#include "platform/hosted/DriveMap.h"
#include "platform/hosted/HostedFileSystem.h"
#include "platform/hosted/HostedRegistry.h"
#include "platform/hosted/HostedSettings.h"
#include "platform/hosted/HostedShell.h"
#include "services/FolderScanner.h"
#include "services/MediaList.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

// Warnings that wait for somebody to be told; more would tell nothing new.
constexpr std::size_t kMostWaiting = 1000;

// Drives and shell folders fill a few hundred lines at most; what is larger was put there by
// mistake, and would be held in memory as a whole.
constexpr std::size_t kMostSettingsBytes = std::size_t{16} * 1024 * 1024;

class StandardErrorBox final : public MessageDialog {
 public:
  void Show(StringView title, StringView text) override {
    std::cerr << ToUtf8(title) << ": " << ToUtf8(text) << std::endl;
  }
};

class Warnings {
 public:
  void SetSink(std::function<void(StringView)> sink) {
    sink_ = std::move(sink);
    if (!sink_) return;
    for (const String& line : std::exchange(waiting_, {})) sink_(line);
  }

  void Tell(StringView line) {
    if (sink_) {
      sink_(line);
    } else if (waiting_.size() < kMostWaiting) {
      waiting_.emplace_back(line);
    }
  }

 private:
  std::function<void(StringView)> sink_;
  std::vector<String> waiting_;
};

[[noreturn]] void RaiseNoMachine(const std::filesystem::path& folder, StringView reason) {
  throw RunTimeError(error::kPathNotFound, String(DescriptionOf(error::kPathNotFound)) + u": " +
                                               FromUtf8Lossy(folder.string()) + String(reason));
}

bool Exists(const std::filesystem::path& path) {
  std::error_code ignored;
  return std::filesystem::exists(path, ignored);
}

/// The machine's settings, empty without a file. They are UTF-8 text, or else 8-bit text.
IniDocument ReadSettings(const std::filesystem::path& path) {
  const HostFile file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (!file.IsOpen() && errno == ENOENT) return {};
  const String shown = FromUtf8Lossy(path.string());
  if (!file.IsOpen()) RaiseHostCallError(errno, Subject::File, shown);
  const std::optional<HostFacts> facts = LookUp(file);
  if (!facts) RaiseHostCallError(errno, Subject::File, shown);
  // A pipe might be waited for, and a device need not end.
  if (facts->kind != HostFacts::Kind::File) {
    RaiseHostCallError(EINVAL, Subject::File, shown + u" is no file");
  }
  const std::optional<std::string> bytes = ReadToEnd(file, kMostSettingsBytes);
  if (!bytes) RaiseHostCallError(errno, Subject::File, shown);
  if (DetectEncoding(*bytes) == FileEncoding::CodePage) {
    if (const std::optional<String> text = FromUtf8(*bytes)) return IniDocument(*text);
  }
  return IniDocument(DecodeFile(*bytes, Windows1252()));
}

std::filesystem::path CheckedFolder(const std::filesystem::path& folder) {
  std::error_code failure;
  if (!std::filesystem::is_directory(folder, failure)) RaiseNoMachine(folder, u" is no folder");
  if (!Exists(folder / "machine.ini") && !DriveMap::HasDriveFolder(folder)) {
    RaiseNoMachine(folder, u" holds neither machine.ini nor a drive's folder");
  }
  // The process may change its own folder later.
  std::filesystem::path absolute = std::filesystem::absolute(folder, failure);
  return failure ? folder : absolute;
}

}  // namespace

/// All services, in the order in which they need each other.
struct HostedPlatform::Parts {
  explicit Parts(const std::filesystem::path& folder)
      : settings(ReadSettings(folder / "machine.ini")),
        drives(folder, settings, found),
        files(drives, [this](StringView line) { warnings.Tell(line); }),
        registry(folder / "registry.reg", [this](StringView line) { warnings.Tell(line); }) {
    for (const String& line : found) warnings.Tell(line);
  }

  Warnings warnings;
  std::vector<String> found;  // what is odd about the settings
  IniDocument settings;
  DriveMap drives;
  HostedFileSystem files;
  HostedRegistry registry;
  HostedShell shell{settings};
  HostedProduct product{registry};
  HostedSettings storage{files};
  MediaList mediaList{files, storage};
  FolderScanner scanner{files};
  StandardErrorBox standardBox;
  MessageDialog* messages = &standardBox;
};

HostedPlatform::HostedPlatform(const std::filesystem::path& machineFolder)
    : parts_(std::make_unique<Parts>(CheckedFolder(machineFolder))) {}

HostedPlatform::~HostedPlatform() = default;

void HostedPlatform::SetMessageDialog(MessageDialog& messages) {
  parts_->messages = &messages;
}

void HostedPlatform::SetWarningSink(std::function<void(StringView)> sink) {
  parts_->warnings.SetSink(std::move(sink));
}

std::vector<HostedDrive> HostedPlatform::DriveFolders() const {
  std::vector<HostedDrive> folders;
  for (const Drive& each : parts_->drives.List()) {
    folders.push_back({each.letter, each.type, parts_->drives.Find(each.letter)->Folder()});
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

}  // namespace norvo
