#include "cli/SystemWords.h"

namespace norvo::cli {

const SystemWords kWords = {
    .machinesAreFolders = false,
    .initCommand = "norvo-playlists init",
    .registry = "the registry",
    .unwritableRegistry =
        "The registry cannot be written below HKEY_LOCAL_MACHINE\\SOFTWARE\\Norvo. "
        "Run the program as an administrator.",
    .makeWritable = "See that you may write there",
    .lacksDrive = "this machine does not have",
    .checkRights = "See that you may read and write there.",
};

}  // namespace norvo::cli
