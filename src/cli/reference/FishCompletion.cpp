#include "cli/reference/Completions.h"
#include "cli/reference/ShellText.h"

namespace norvo::cli {
namespace {

constexpr const char* kComplete = "complete -c norvo-playlists";

/// What fish reads in single quotes, where a backslash is one only with another.
std::string FishQuoted(const std::string& text) {
  std::string quoted = "'";
  for (const char c : text) {
    if (c == '\\' || c == '\'') quoted += '\\';
    quoted += c;
  }
  return quoted + '\'';
}

std::string FishValueOf(const OptionRow& option) {
  switch (option.offer) {
    case Offer::Choices:
      return " -x -a " + FishQuoted(Joined(option.choices, " "));
    case Offer::Folders:
      return " -x -a '(__fish_complete_directories)'";
    case Offer::Files:
      return " -r -F";
    default:
      return option.TakesValue() ? " -x" : "";
  }
}

std::string OptionLine(const OptionRow& option, const std::string& condition) {
  std::string line = kComplete + condition;
  for (const std::string& name : option.names) {
    line += name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
  }
  return line + FishValueOf(option) + " -d " + FishQuoted(option.text) + '\n';
}

std::string CommandLines(const CommandRow& command) {
  const std::string condition = " -n '__fish_seen_subcommand_from " + command.name + "'";
  std::string lines = kComplete;
  lines +=
      " -n __fish_use_subcommand -a " + command.name + " -d " + FishQuoted(command.text) + '\n';
  for (const OptionRow& option : command.options) lines += OptionLine(option, condition);
  for (const OptionRow& word : command.words) {
    if (word.offer == Offer::Files) lines += kComplete + condition + " -F\n";
  }
  return lines;
}

}  // namespace

std::string FishCompletion(const CommandTable& table) {
  std::string script = "# fish completion for norvo-playlists\n";
  script += kComplete + std::string(" -f\n");
  for (const OptionRow& option : table.program.options) {
    script += OptionLine(option, " -n __fish_use_subcommand");
  }
  for (const CommandRow& command : table.commands) script += CommandLines(command);
  return script;
}

}  // namespace norvo::cli
