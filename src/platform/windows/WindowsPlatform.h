#pragma once

#include <memory>

#include "services/Platform.h"

namespace norvo {

/// The Windows machine that the process runs on. Used on one thread at a time; two objects share
/// nothing but the machine.
class WindowsPlatform : public Platform {
 public:
  WindowsPlatform();
  ~WindowsPlatform() override;

  FileSystem& Files() override;
  norvo::Registry& Registry() override;
  ShellFolders& Shell() override;
  ProductInformation& Product() override;
  SettingsStorage& Settings() override;
  MigrationList& Migration() override;
  DriveScanner* Scanner() override;
  MessageDialog& Messages() override;
  /// The system's 8-bit code page.
  const CodePage& AnsiPage() override;
  /// The path itself.
  std::string SystemPathOf(StringView path) override;
  /// Shows the machine's messages from now on, instead of boxes. Not owned.
  void SetMessageDialog(MessageDialog& messages);
  /// Is told of names on the disk that no path can reach. Until it is set nobody is told.
  void SetWarningSink(WarningSink sink) override;

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace norvo
