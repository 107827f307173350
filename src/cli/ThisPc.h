#pragma once

#include <memory>
#include <string>

#include "cli/Console.h"
#include "cli/NamedMachine.h"

namespace norvo::cli {

/// True on Windows: where none is named, the machine is the PC that the program runs on.
bool IsThisPcAMachine();

/// That PC; only where it is a machine. Its messages go to the console, which must outlive it.
std::shared_ptr<NamedMachine> OpenThisPc(Console& console);

}  // namespace norvo::cli
