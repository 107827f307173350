#pragma once

#include "cli/Console.h"
#include "machines/FolderMove.h"
#include "move/MoveResult.h"

namespace norvo::cli {

/// Says what a person is left to do after a move that is over: on the new PC, whose registry lacks
/// what stands in the registry's file, and about what the system has denied.
void SayNextSteps(const MoveResult& move, const RegistryPlace& registry, Console& console);

}  // namespace norvo::cli
