#pragma once

#include <filesystem>
#include <optional>
#include <span>

#include "platform/hosted/HostedLayout.h"
#include "text/Text.h"

namespace norvo {

/// The ways from the paths of a machine with these drives to those of this system, and back.

/// Where a machine path is on this system, as far as it exists; empty on a drive that there is not.
std::filesystem::path PathOnSystem(std::span<const HostedDrive> drives, StringView machinePath);

/// What the machine calls an existing file of this system; nothing when it lies in no drive or its
/// name cannot be a Windows name.
std::optional<String> PathOnMachine(std::span<const HostedDrive> drives,
                                    const std::filesystem::path& systemPath);

}  // namespace norvo
