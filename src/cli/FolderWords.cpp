#include "cli/FolderWords.h"

#include "platform/files/DiskPath.h"

namespace norvo::cli {
namespace {

std::string ReasonOf(const TakenFolder& taken) {
  switch (taken.kind) {
    case TakenFolder::Kind::NamedDrive:
      return "as asked for";
    case TakenFolder::Kind::MadeMachine:
      return "drives and registry.reg found";
    case TakenFolder::Kind::DrivesAlone:
      return "drives found, and nothing else";
    case TakenFolder::Kind::WindowsDisk:
      return taken.sign + " found";
    case TakenFolder::Kind::OtherDisk:
      return "no machine found, so it is taken as a disk";
    case TakenFolder::Kind::Empty:
      return "the folder was empty, so a machine is made there";
    default:
      return {};
  }
}

}  // namespace

std::string TextOf(const TakenFolder& taken) {
  const std::string reason = ReasonOf(taken);
  if (reason.empty()) return {};
  return std::string(1, static_cast<char>(taken.letter)) + ": = " + ShownPath(taken.driveFolder) +
         " (" + reason + ")";
}

}  // namespace norvo::cli
