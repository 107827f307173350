#pragma once

#include "cli/Console.h"
#include "cli/NamedMachine.h"
#include "move/MoveError.h"
#include "text/Encoding.h"

namespace norvo::cli {

/// Runs a call on a machine; of a scan that fails it says where, in the paths of both systems.
template <class Call>
auto NamingScanFailure(Platform& machine, Call&& call) {
  try {
    return call();
  } catch (const MoveError& error) {
    if (error.Fault() != MoveFault::ScanFailed) throw;
    throw CommandError("The scan failed. " + error.Detail() + " See that " +
                       BothPaths(machine, FromUtf8Lossy(error.Subject())) + " can be written.");
  }
}

}  // namespace norvo::cli
