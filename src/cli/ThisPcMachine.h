#pragma once

#include <memory>

#include "cli/Console.h"
#include "cli/NamedMachine.h"

namespace norvo::cli {

/// This PC, as the machine that a command works on; only where it is one. Its messages go to the
/// console, which must outlive it.
std::shared_ptr<NamedMachine> OpenThisPcMachine(const CommonArguments& common, Console& console);

}  // namespace norvo::cli
