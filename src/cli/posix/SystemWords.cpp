#include "cli/SystemWords.h"

namespace norvo::cli {

const SystemWords kWords = {
    .machinesAreFolders = true,
    .initCommand = "norvo-playlists init --machine DIR",
    .registry = "registry.reg",
    .unwritableRegistry =
        "registry.reg of the machine folder cannot be written. Make it writable, and make sure "
        "that "
        "the disk is not full.",
    .makeWritable = "Make the drive's folder writable",
    .lacksDrive = "the machine folder does not hold",
    .checkRights = "See that the machine folder can be read and written.",
};

}  // namespace norvo::cli
