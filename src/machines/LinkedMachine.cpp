#include "machines/LinkedMachine.h"

#include <fstream>
#include <system_error>

#include "cli/Console.h"

namespace norvo {
namespace {

namespace fs = std::filesystem;

// By this first line such a machine is told from those of others.
constexpr const char* kMark = "; Made anew by each run of norvo-playlists.";

fs::path SettingsOf(const fs::path& folder) {
  return folder / "machine.ini";
}

/// A drive's type as machine.ini spells it.
const char* TypeSetting(DriveType type) {
  switch (type) {
    case DriveType::Fixed:
      return "fixed";
    case DriveType::Removable:
      return "removable";
    case DriveType::CdRom:
      return "cdrom";
    case DriveType::Network:
      return "network";
    case DriveType::RamDisk:
      return "ramdisk";
    case DriveType::Unknown:
      break;
  }
  return "unknown";
}

[[noreturn]] void Fail(const fs::path& path, const std::string& reason) {
  throw HostError(path.string() + ": " + reason);
}

}  // namespace

LinkedMachine::LinkedMachine(fs::path folder) : folder_(std::move(folder)) {
  std::ifstream file(SettingsOf(folder_), std::ios::binary);
  std::string line;
  if (!file.is_open() || (std::getline(file, line) && line.starts_with(kMark))) return;
  Fail(folder_, "holds a machine of its own. Name an empty folder, or that of an earlier run.");
}

void LinkedMachine::AddDrive(char16_t letter, DriveType type, const fs::path& contents) {
  const std::string name(1, static_cast<char>(letter));
  drives_ += name + '=' + TypeSetting(type) + "\r\n";
  const fs::path link = folder_ / name;
  std::error_code failure;
  if (fs::is_symlink(link, failure)) fs::remove(link, failure);  // from an earlier run
  fs::create_directory_symlink(fs::absolute(contents), link, failure);
  if (failure) Fail(link, failure.message());
}

void LinkedMachine::AddOwnDrive(char16_t letter) {
  const std::string name(1, static_cast<char>(letter));
  drives_ += name + "=fixed\r\n";
  folders_ = "[ShellFolders]\r\n5=" + name + ":\\My Documents\r\n";
  std::error_code failure;
  fs::create_directory(folder_ / name, failure);
  if (failure) Fail(folder_ / name, failure.message());
}

void LinkedMachine::Finish() {
  const fs::path path = SettingsOf(folder_);
  std::ofstream file(path, std::ios::binary);
  file << kMark << "\r\n" << drives_ << folders_;
  file.close();
  if (!file) Fail(path, "cannot be written. See that its folder is writable.");
}

}  // namespace norvo
