#include "CorpusOptions.h"

#include <charconv>
#include <stdexcept>
#include <string>

namespace norvo::bench {
namespace {

[[noreturn]] void Reject(std::string_view what, std::string_view text) {
  throw std::invalid_argument(std::string(what) + ": " + std::string(text));
}

template <typename Number>
Number ParseNumber(std::string_view text) {
  Number number = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || stop != end) Reject("not a number", text);
  return number;
}

PlaylistKind ParseKind(std::string_view name) {
  if (name == "m3u") return PlaylistKind::kWinampM3u;
  if (name == "pls") return PlaylistKind::kWinampPls;
  if (name == "mmjb") return PlaylistKind::kMusicMatch;
  Reject("unknown playlist kind", name);
}

std::vector<PlaylistKind> ParseKinds(std::string_view names) {
  std::vector<PlaylistKind> kinds;
  for (;;) {
    const std::size_t comma = names.find(',');
    kinds.push_back(ParseKind(names.substr(0, comma)));
    if (comma == std::string_view::npos) return kinds;
    names.remove_prefix(comma + 1);
  }
}

void SetOption(CorpusOptions& options, std::string_view name, std::string_view value) {
  if (name == "--dir") {
    options.machine = value;
  } else if (name == "--seed") {
    options.seed = ParseNumber<std::uint64_t>(value);
  } else if (name == "--files") {
    options.files = ParseNumber<std::size_t>(value);
  } else if (name == "--playlists") {
    options.plan.playlists = ParseNumber<std::size_t>(value);
  } else if (name == "--entries") {
    options.plan.entries = ParseNumber<std::size_t>(value);
  } else if (name == "--kinds") {
    options.plan.kinds = ParseKinds(value);
  } else if (name == "--plain-files") {
    options.plainFiles = ParseNumber<std::size_t>(value);
  } else if (name == "--folders-depth") {
    options.foldersDepth = ParseNumber<std::size_t>(value);
  } else {
    Reject("unknown option", name);
  }
}

}  // namespace

std::string_view CorpusUsage() {
  return "usage: make_corpus --dir DIR [options]\n"
         "  --seed N           seed of every random choice (1)\n"
         "  --files N          MP3 files below C:\\Music (1000)\n"
         "  --playlists N      playlists in C:\\Playlists (0)\n"
         "  --entries N        entries of each playlist (0)\n"
         "  --kinds LIST       kinds in turn, from m3u,pls,mmjb (m3u)\n"
         "  --plain-files N    empty files below C:\\Data (0)\n"
         "  --folders-depth N  nesting of the folders below C:\\Data (3)\n"
         "  --list             write the list file that a scan would leave\n";
}

CorpusOptions ParseCorpusOptions(std::span<const char* const> arguments) {
  CorpusOptions options;
  for (std::size_t index = 0; index < arguments.size(); ++index) {
    const std::string_view name = arguments[index];
    if (name == "--list") {
      options.writesList = true;
      continue;
    }
    if (index + 1 == arguments.size()) Reject("no value, or unknown option", name);
    SetOption(options, name, arguments[++index]);
  }
  if (options.machine.empty()) throw std::invalid_argument("--dir is missing");
  return options;
}

}  // namespace norvo::bench
