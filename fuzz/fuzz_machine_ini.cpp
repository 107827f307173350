// Any bytes as a machine's settings: its drives are known ones, each once, with a place, and its
// shell folders are what the settings tell.
#include <filesystem>
#include <fstream>
#include <set>

#include "Fuzzing.h"
#include "platform/hosted/HostedLayout.h"

namespace {

namespace fs = std::filesystem;
using namespace norvo;

/// A machine folder of its own, in memory where the system has such folders.
class MachineFolder {
 public:
  MachineFolder() {
    const fs::path shared = "/dev/shm";
    std::string made =
        ((fs::is_directory(shared) ? shared : fs::temp_directory_path()) / "norvo-fuzz-XXXXXX");
    Require(::mkdtemp(made.data()) != nullptr);
    path_ = made;
  }
  ~MachineFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }
  MachineFolder(const MachineFolder&) = delete;
  MachineFolder& operator=(const MachineFolder&) = delete;

  HostedLayout Read(std::string_view settings) {
    std::ofstream(path_ / "machine.ini", std::ios::binary) << settings;
    return ReadLayout(path_);
  }

 private:
  fs::path path_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static MachineFolder machine;
  const HostedLayout layout = machine.Read(AsBytes(data, size));
  std::set<char16_t> letters;
  std::size_t unknown = 0;
  for (const HostedDrive& drive : layout.drives) {
    Require(drive.letter >= u'A' && drive.letter <= u'Z' && letters.insert(drive.letter).second);
    Require(drive.folder.is_absolute());
    unknown += drive.type == DriveType::Unknown ? 1 : 0;
  }
  Require(layout.warnings.size() == unknown);
  for (const auto& [identifier, path] : layout.shellFolders) Require(path.size() <= size);
  return 0;
}
