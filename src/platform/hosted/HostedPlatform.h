#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "platform/hosted/HostedLayout.h"
#include "services/FileSystem.h"
#include "services/Platform.h"

namespace norvo {

class HostedFileSystem;

/// A Windows machine that is held in folders: its drives are folders, its registry is a text file.
/// Used on one thread at a time; two machines share nothing.
class HostedPlatform final : public Platform {
 public:
  /// A machine of these folders. Nothing is read before it is asked for.
  explicit HostedPlatform(HostedLayout layout);
  /// The machine that one folder holds, see ReadLayout; raises as that does.
  explicit HostedPlatform(const std::filesystem::path& machineFolder);
  ~HostedPlatform() override;

  /// Shows the machine's messages from now on, instead of the standard error stream. Not owned.
  void SetMessageDialog(MessageDialog& messages);
  /// Is told what is odd about the machine, such as names that no Windows path can express; also
  /// what was found before the call. Until it is set nobody is told.
  void SetWarningSink(WarningSink sink) override;

  /// Is told of each folder that is listed from now on, by its path as it was asked for, and of
  /// what the listing gives. It must neither raise nor call the machine.
  void SetListingSink(
      std::function<void(StringView folder, std::span<const FolderItem> items)> sink);

  /// The drives of the layout, in the order of their letters.
  std::vector<HostedDrive> DriveFolders() const;

  /// The same service as `Files`, with what it offers beyond the interface.
  HostedFileSystem& HostedFiles();

  FileSystem& Files() override;
  norvo::Registry& Registry() override;
  ShellFolders& Shell() override;
  ProductInformation& Product() override;
  SettingsStorage& Settings() override;
  MigrationList& Migration() override;
  DriveScanner* Scanner() override;
  MessageDialog& Messages() override;
  const CodePage& AnsiPage() override;
  std::string SystemPathOf(StringView path) override;

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace norvo
