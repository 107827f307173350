#include "cli/UsageWords.h"

#include <algorithm>
#include <vector>

#include "cli/NearestWord.h"

namespace norvo::cli {
namespace {

using Words = std::vector<std::string>;

std::string Meant(const std::string& word, const Words& known) {
  const std::string nearest = NearestWord(word, known);
  return nearest.empty() ? "" : " Did you mean " + nearest + "?";
}

/// Those that the help tells of; the others have no group.
std::vector<const CLI::App*> CommandsOf(const CLI::App& program) {
  return program.get_subcommands(
      [](const CLI::App* command) { return !command->get_group().empty(); });
}

void AddOptions(const CLI::App& command, Words& names) {
  for (const CLI::Option* option : command.get_options()) {
    if (option->get_group().empty()) continue;
    for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
  }
}

std::string UnknownCommand(const CLI::App& program, const std::string& word) {
  Words names;
  for (const CLI::App* command : CommandsOf(program)) names.push_back(command->get_name());
  return word + " is no command." + Meant(word, names);
}

/// An option that its command does not have, or that stands before the command.
std::string UnknownOption(const CLI::App& program, const CLI::App* command,
                          const std::string& word) {
  Words names;
  AddOptions(program, names);
  if (command != nullptr) AddOptions(*command, names);
  for (const CLI::App* each : CommandsOf(program)) {
    if (command == nullptr) AddOptions(*each, names);
  }
  if (std::find(names.begin(), names.end(), word) != names.end()) {
    return word + " stands before the command. Write it behind.";
  }
  return word + " is no option" + (command == nullptr ? "" : " of " + command->get_name()) + '.' +
         Meant(word, names);
}

/// "--machine" of "--machine=DIR"
std::string NameOf(const std::string& option) {
  return option.substr(0, option.find('='));
}

}  // namespace

std::string UsageText(const CLI::App& program, const CLI::ParseError& error) {
  const Words left = program.remaining(true);
  const auto chosen = program.get_subcommands();
  const CLI::App* const command = chosen.empty() ? nullptr : chosen.front();
  const auto unknown = std::find_if(left.begin(), left.end(), [&](const std::string& word) {
    return word != "--" && (command == nullptr || word.starts_with('-'));
  });
  if (unknown == left.end()) return error.what();
  if (unknown->starts_with('-')) return UnknownOption(program, command, NameOf(*unknown));
  return UnknownCommand(program, *unknown);
}

}  // namespace norvo::cli
