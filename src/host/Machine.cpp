#include "host/Machine.h"

#include <vector>

#include "automation/RunTimeError.h"
#include "library/Library.h"
#include "services/Logging.h"
#include "services/Utility.h"
#include "text/Encoding.h"

namespace norvo::host {
namespace {

std::shared_ptr<HostedPlatform> OpenPlatform(const std::filesystem::path& folder) {
  try {
    return std::make_shared<HostedPlatform>(folder);
  } catch (const RunTimeError& failure) {
    throw HostError(ToUtf8(failure.Description()) +
                    ". A machine folder holds a folder per drive, named by its letter (such as "
                    "C), or a machine.ini that names the drives. Name one with --machine.");
  }
}

}  // namespace

class Machine::ConsoleBox final : public MessageDialog {
 public:
  explicit ConsoleBox(Console& console) : console_(console) {}
  void Show(StringView title, StringView text) override {
    console_.Tell(title.empty() ? ToUtf8(text) : ToUtf8(title) + ": " + ToUtf8(text));
  }

 private:
  Console& console_;
};

Machine::Machine(const std::filesystem::path& folder, Console& console)
    : console_(console),
      platform_(OpenPlatform(folder)),
      box_(std::make_unique<ConsoleBox>(console)),
      layout_(platform_->DriveFolders()) {
  platform_->SetMessageDialog(*box_);
  // What the opening of the machine has to tell comes before there is a log.
  std::vector<String> early;
  platform_->SetWarningSink([&early](StringView line) { early.emplace_back(line); });
  component_ = OpenLibrary(platform_);
  const auto tell = [this](StringView line) {
    WriteLog(*component_, line);
    console_.LeftOut("Warning: " + ToUtf8(line));
  };
  platform_->SetWarningSink(tell);
  for (const String& line : early) tell(line);
}

Machine::~Machine() = default;

String Machine::LogPath() {
  return Utility::AddBackslash(platform_->Product().Folder()) + u"VBLog.txt";
}

void Machine::StartLog() {
  component_->SetLogMode(log_mode::kFile);
  const String folder = platform_->Product().Folder();
  hasLog_ = platform_->Files().FolderExists(folder);
  if (hasLog_) {
    console_.Note("The log is " + Both(LogPath()));
    return;
  }
  console_.LeftOut("No log is written: the product folder " + ToUtf8(folder) +
                   " is missing. norvo-playlists init creates it.");
}

std::string Machine::Both(StringView machinePath) const {
  const std::filesystem::path place = layout_.HostPathOf(machinePath);
  return ToUtf8(machinePath) + (place.empty() ? "" : " (" + place.string() + ")");
}

}  // namespace norvo::host
