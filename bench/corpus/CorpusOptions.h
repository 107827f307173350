#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string_view>

#include "PlaylistFolder.h"

namespace norvo::bench {

/** What the command line asks for. */
struct CorpusOptions {
  std::filesystem::path machine;
  std::uint64_t seed = 1;
  std::size_t files = 1000;
  std::size_t plainFiles = 0;
  std::size_t foldersDepth = 3;
  bool writesList = false;
  PlaylistPlan plan;
};

/** One line per option, for the help text. */
std::string_view CorpusUsage();

/** Reads the arguments after the program's name; throws std::invalid_argument. */
CorpusOptions ParseCorpusOptions(std::span<const char* const> arguments);

}  // namespace norvo::bench
