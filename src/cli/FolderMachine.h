#pragma once

#include <memory>
#include <string>

#include "cli/NamedMachine.h"

namespace norvo::cli {

/// The machine of `--machine`: a machine folder, or a disk. See OpenMachine.
std::shared_ptr<NamedMachine> OpenFolderMachine(const CommonArguments& common, Console& console,
                                                DocumentsUse use);

/// A playlist of such a machine; of the one that it lies in where none is named; or of none, which
/// is shown where it lies. See OpenPlaylist.
NamedPlaylist OpenFolderPlaylist(const CommonArguments& common, const std::string& path,
                                 Console& console);

}  // namespace norvo::cli
