#pragma once

#include <cstdint>
#include <optional>
#include <ostream>
#include <string>
#include <variant>
#include <vector>

namespace norvo {

/// What every command takes. Texts are the bytes that the shell handed over.
struct CommonArguments {
  std::string machine;  ///< empty for `migrate`, and for `show` without one
  bool log = false;
  bool json = false;
  bool quiet = false;
};

struct InitArguments {
  std::optional<std::int32_t> role;
  std::optional<std::string> groupRoot;
};

struct ScanArguments {};

struct CollectArguments {
  bool init = false;
};

struct ShowArguments {
  std::string path;
  std::int32_t type = 0;  ///< 0: told by the file
};

struct RestoreArguments {};

struct VerifyArguments {
  std::vector<std::string> paths;  ///< empty: all playlists of the restored ones' folder
};

/// How songs are brought to the new machine.
enum class MediaMode { Copy, Link, None };

struct MigrateArguments {
  std::string from;
  std::string to;
  std::string work;  ///< empty for none
  MediaMode media = MediaMode::Copy;
  bool trial = false;
};

struct CommandLine {
  CommonArguments common;
  std::variant<InitArguments, ScanArguments, CollectArguments, ShowArguments, RestoreArguments,
               VerifyArguments, MigrateArguments>
      command;
};

/// The command line, without the program's name. Nothing when there is no command to run: the help
/// or the version was asked for and stands on `out`, or the usage is wrong, which `err` tells; then
/// `code` is the exit code.
std::optional<CommandLine> ParseCommandLine(const std::vector<std::string>& words,
                                            std::ostream& out, std::ostream& err, int& code);

}  // namespace norvo
