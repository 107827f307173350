#pragma once

#include <vector>

#include "cli/Console.h"
#include "move/SetUpMachine.h"

namespace norvo::cli {

/// What a set-up wrote and found.
void SaySetup(const std::vector<SetupStep>& steps, Console& console);
Json SetupDocument(const std::vector<SetupStep>& steps);

}  // namespace norvo::cli
