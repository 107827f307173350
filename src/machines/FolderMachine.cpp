#include "machines/FolderMachine.h"

#include "automation/RunTimeError.h"
#include "cli/Console.h"
#include "text/Encoding.h"

namespace norvo {
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

FolderMachine::FolderMachine(const std::filesystem::path& folder)
    : platform_(OpenPlatform(folder)), layout_(platform_->DriveFolders()) {}

std::string FolderMachine::SystemPathOf(StringView machinePath) const {
  return layout_.HostPathOf(machinePath).string();
}

String FolderMachine::MachinePathOf(const std::string& named) const {
  if (IsMachinePath(named)) return FromUtf8Lossy(named);
  const std::optional<String> inside = layout_.MachinePathOf(named);
  if (!inside) {
    throw HostError(named + " is no file of the machine. Name a path of the machine, such as " +
                    R"(C:\Music\Mix.m3u, or of a file in its folder.)");
  }
  return *inside;
}

std::shared_ptr<MachineAccess> OpenMachine(const std::string& folder) {
  return std::make_shared<FolderMachine>(folder);
}

}  // namespace norvo
