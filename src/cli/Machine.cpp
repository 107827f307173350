#include "cli/Machine.h"

#include <utility>
#include <vector>

#include "library/Library.h"
#include "services/Logging.h"
#include "services/Utility.h"
#include "text/Encoding.h"

namespace norvo {
class Machine::ConsoleBox final : public MessageDialog {
 public:
  explicit ConsoleBox(Console& console) : console_(console) {}
  void Show(StringView title, StringView text) override {
    console_.Tell(title.empty() ? ToUtf8(text) : ToUtf8(title) + ": " + ToUtf8(text));
  }

 private:
  Console& console_;
};

Machine::Machine(std::shared_ptr<MachineAccess> access, Console& console)
    : console_(console), access_(std::move(access)), box_(std::make_unique<ConsoleBox>(console)) {
  access_->SetMessageDialog(*box_);
  const std::shared_ptr<norvo::Platform> platform = Platform();
  // What the opening of the machine has to tell comes before there is a log.
  std::vector<String> early;
  platform->SetWarningSink([&early](StringView line) { early.emplace_back(line); });
  component_ = OpenLibrary(platform);
  const auto tell = [this](StringView line) {
    WriteLog(*component_, line);
    console_.LeftOut("Warning: " + ToUtf8(line));
  };
  platform->SetWarningSink(tell);
  for (const String& line : early) tell(line);
}

Machine::~Machine() = default;

String Machine::LogPath() {
  return Utility::AddBackslash(Platform()->Product().Folder()) + u"VBLog.txt";
}

void Machine::StartLog() {
  component_->SetLogMode(log_mode::kFile);
  const String folder = Platform()->Product().Folder();
  hasLog_ = Platform()->Files().FolderExists(folder);
  if (hasLog_) {
    console_.Note("The log is " + Both(LogPath()));
    return;
  }
  console_.LeftOut("No log is written: the product folder " + ToUtf8(folder) +
                   " is missing. norvo-playlists init creates it.");
}

std::string Machine::Both(StringView machinePath) const {
  const std::string path = ToUtf8(machinePath);
  const std::string place = access_->SystemPathOf(machinePath);
  return path + (place.empty() || place == path ? "" : " (" + place + ")");
}

}  // namespace norvo
