#include "platform/windows/WindowsPlatform.h"

#include "platform/windows/AnsiPage.h"
#include "platform/windows/WindowsFileSystem.h"
#include "platform/windows/WindowsMessages.h"
#include "platform/windows/WindowsProduct.h"
#include "platform/windows/WindowsRegistry.h"
#include "platform/windows/WindowsSettings.h"
#include "platform/windows/WindowsShell.h"
#include "services/FolderScanner.h"
#include "services/MediaList.h"
#include "text/Encoding.h"

namespace norvo {

/// All services, in the order in which they need each other.
struct WindowsPlatform::Parts {
  WarningSink warningSink;
  WindowsFileSystem files{[this](StringView line) {
    if (warningSink) warningSink(line, WarningWeight::LeftOut);
  }};
  WindowsRegistry registry;
  WindowsShell shell;
  WindowsProduct product{registry};
  WindowsSettings settings{files};
  MediaList mediaList{files, settings};
  FolderScanner scanner{files};
  WindowsMessages boxes;
  MessageDialog* messages = &boxes;
};

WindowsPlatform::WindowsPlatform() : parts_(std::make_unique<Parts>()) {}

WindowsPlatform::~WindowsPlatform() = default;

FileSystem& WindowsPlatform::Files() {
  return parts_->files;
}
norvo::Registry& WindowsPlatform::Registry() {
  return parts_->registry;
}
ShellFolders& WindowsPlatform::Shell() {
  return parts_->shell;
}
ProductInformation& WindowsPlatform::Product() {
  return parts_->product;
}
SettingsStorage& WindowsPlatform::Settings() {
  return parts_->settings;
}
MigrationList& WindowsPlatform::Migration() {
  return parts_->mediaList;
}
DriveScanner* WindowsPlatform::Scanner() {
  return &parts_->scanner;
}
MessageDialog& WindowsPlatform::Messages() {
  return *parts_->messages;
}
const CodePage& WindowsPlatform::AnsiPage() {
  return SystemAnsiPage();
}
std::string WindowsPlatform::SystemPathOf(StringView path) {
  return ToUtf8(path);
}
void WindowsPlatform::SetMessageDialog(MessageDialog& messages) {
  parts_->messages = &messages;
}
void WindowsPlatform::SetWarningSink(WarningSink sink) {
  parts_->warningSink = std::move(sink);
}

}  // namespace norvo
