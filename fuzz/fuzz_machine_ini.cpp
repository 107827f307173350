// Any bytes as a machine's settings: its drives are known ones, each once, in the order of their
// letters, and what it tells of folders stands in the bytes.
#include "Fuzzing.h"
#include "platform/hosted/MachineSettings.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace norvo;
  const MachineSettings settings = ReadMachineSettings(std::string(AsBytes(data, size)));
  const std::vector<MachineSettings::Drive> none;
  std::size_t unknown = 0;
  char16_t last = 0;
  for (const MachineSettings::Drive& drive : settings.drives ? *settings.drives : none) {
    Require(drive.letter >= u'A' && drive.letter <= u'Z' && drive.letter > last);
    last = drive.letter;
    Require(drive.folder.size() < size && Trim(drive.folder) == drive.folder);
    unknown += drive.type == DriveType::Unknown ? 1 : 0;
  }
  Require(settings.warnings.size() == unknown);
  for (const auto& [identifier, path] : settings.shellFolders) Require(path.size() < size);
  return 0;
}
