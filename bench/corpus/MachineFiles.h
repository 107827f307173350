#pragma once

#include <filesystem>

namespace norvo::bench {

/** Writes the machine description, the registry with the product's settings and the sub-names. */
void WriteMachineFiles(const std::filesystem::path& machine);

}  // namespace norvo::bench
