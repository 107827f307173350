#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace norvo::cli {

/// What is wrong with a command line, for the person who wrote it. A command or an option that is
/// unknown is named, with the known one that it resembles.
std::string UsageText(const CLI::App& program, const CLI::ParseError& error);

}  // namespace norvo::cli
