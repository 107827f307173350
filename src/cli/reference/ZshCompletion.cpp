#include "cli/reference/Completions.h"
#include "cli/reference/ShellText.h"

namespace norvo::cli {
namespace {

constexpr const char* kZshStart = R"(#compdef norvo-playlists

_norvo-playlists() {
  local curcontext="$curcontext" state line
  typeset -A opt_args
)";

constexpr const char* kCommands = R"(  case $state in
    command)
      local -a commands=(
)";

constexpr const char* kArguments = R"(      )
      _describe command commands
      ;;
    arguments)
      case $line[1] in
)";

constexpr const char* kZshEnd = R"(      esac
      ;;
  esac
}

_norvo-playlists "$@"
)";

/// A text inside of a specification, in which brackets and colons have a meaning.
std::string Inside(const std::string& text) {
  std::string inside;
  for (const char c : text) {
    if (std::string("[]:\\").find(c) != std::string::npos) inside += '\\';
    inside += c;
  }
  return inside;
}

std::string ActionOf(const OptionRow& row) {
  switch (row.offer) {
    case Offer::Choices:
      return "(" + Joined(row.choices, " ") + ")";
    case Offer::Folders:
      return "_files -/";
    case Offer::Files:
      return "_files";
    default:
      return " ";
  }
}

/// One for each name of an option. Those that do not go with it are not offered any more, nor its
/// other names.
std::string OptionSpecifications(const OptionRow& option, const std::string& indent) {
  std::vector<std::string> others = option.excludes;
  if (!option.isRepeatable) others.insert(others.end(), option.names.begin(), option.names.end());
  std::string lines;
  for (const std::string& name : option.names) {
    std::string line = option.isRepeatable ? "*" : "(" + Joined(others, " ") + ")";
    line += name + (option.TakesValue() && name.starts_with("--") ? "=" : "");
    line += "[" + Inside(option.text) + "]";
    if (option.TakesValue()) line += ":" + Inside(option.value) + ":" + ActionOf(option);
    lines += " \\\n" + indent + Quoted(line);
  }
  return lines;
}

std::string WordSpecification(const OptionRow& word, const std::string& indent) {
  const std::string place = word.isRepeatable ? "*:" : "1:";
  return " \\\n" + indent + Quoted(place + Inside(word.text) + ":" + ActionOf(word));
}

std::string CommandCase(const CommandRow& command) {
  const std::string indent(12, ' ');
  std::string text = "        " + command.name + ")\n          _arguments -S";
  for (const OptionRow& option : command.options) text += OptionSpecifications(option, indent);
  for (const OptionRow& word : command.words) text += WordSpecification(word, indent);
  return text + "\n          ;;\n";
}

}  // namespace

std::string ZshCompletion(const CommandTable& table) {
  std::string script = kZshStart;
  script += "  _arguments -C -S";
  for (const OptionRow& option : table.program.options) {
    script += OptionSpecifications(option, "    ");
  }
  script += " \\\n    '1:command:->command' \\\n    '*::argument:->arguments'\n";
  script += kCommands;
  for (const CommandRow& command : table.commands) {
    script += "        " + Quoted(command.name + ":" + command.text) + '\n';
  }
  script += kArguments;
  for (const CommandRow& command : table.commands) script += CommandCase(command);
  return script + kZshEnd;
}

}  // namespace norvo::cli
