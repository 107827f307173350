#include "cli/MachineWords.h"

namespace norvo::cli {
namespace {

const MachineWords* ofOldMachine = &kFolderWords;
const MachineWords* ofNewMachine = &kFolderWords;

}  // namespace

const MachineWords kFolderWords = {
    .initCommand = "norvo-playlists init --machine DIR",
    .registry = "registry.reg",
    .unwritableRegistry =
        "registry.reg of the machine folder cannot be written. Make it writable, and make sure "
        "that the disk is not full.",
    .makeWritable = "Make the drive's folder writable",
    .makeSettable = "See that it can be written and run again, or choose that folder in the player",
    .seeDenied = "",
    .nameDocuments =
        "Name one with --documents, or in its machine.ini, section [ShellFolders], such as "
        "5=C:\\My "
        "Documents.",
    .lacksDrive = "the machine folder does not hold",
    .checkRights = "See that the machine folder can be read and written.",
};

const MachineWords kThisPcWords = {
    .initCommand = "norvo-playlists init",
    .registry = "the registry",
    .unwritableRegistry =
        "The registry cannot be written below HKEY_LOCAL_MACHINE\\SOFTWARE\\Norvo. "
        "Run this as an administrator: {command}",
    .makeWritable = "See that you may write there",
    .makeSettable = "Choose that folder in the player, or run this as an administrator: {command}",
    .seeDenied = "Next: for what the system has denied, run this as an administrator: {command}",
    .nameDocuments =
        "Connect the disk or share that they stand on, or give them another place in Windows, in "
        "the properties of the folder Documents.",
    .lacksDrive = "this PC does not have",
    .checkRights = "See that you may read and write there.",
};

const MachineWords& Words(MachineSide side) {
  return side == MachineSide::Old ? *ofOldMachine : *ofNewMachine;
}

void ChooseWords(const MachineWords& ofOld, const MachineWords& ofNew) {
  ofOldMachine = &ofOld;
  ofNewMachine = &ofNew;
}

}  // namespace norvo::cli
