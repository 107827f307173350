#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace norvo::cli {

/// The whole program: runs the command line (UTF-8, without the program's name) and gives the exit
/// code. Progress is drawn only when `err` is a terminal. Whatever
/// goes wrong is told on `err` and by the exit code.
int Run(const std::vector<std::string>& words, std::ostream& out, std::ostream& err,
        bool errIsTerminal = false) noexcept;

}  // namespace norvo::cli
