#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace norvo::cli {

/// What a shell offers for a value.
enum class Offer { Nothing, Choices, Files, Folders };

/// An option, or a word that stands without one.
struct OptionRow {
  std::vector<std::string> names;  ///< "-h", "--help", the short one first; of a plain word "PATH"
  std::string value;               ///< "DIR"; empty for an option without a value
  std::vector<std::string> choices;
  Offer offer = Offer::Nothing;
  std::string text;
  bool isRequired = false;
  bool isRepeatable = false;
  std::vector<std::string> excludes;  ///< options that do not go with it

  bool TakesValue() const { return !value.empty(); }
};

/// A command, or the program itself.
struct CommandRow {
  std::string name;
  std::string text;  ///< in one line
  std::string help;  ///< behind the options; see HelpBlocks
  std::vector<OptionRow> options;
  std::vector<OptionRow> words;
};

/// The program with its commands, in the order of its help.
struct CommandTable {
  CommandRow program;
  std::vector<CommandRow> commands;
};

/// Read from what the commands declare.
CommandTable CommandTableOf(const CLI::App& program);

/// All names of options.
std::vector<std::string> NamesOf(const std::vector<OptionRow>& options);

}  // namespace norvo::cli
