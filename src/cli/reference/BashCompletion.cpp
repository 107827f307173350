#include "cli/reference/Completions.h"
#include "cli/reference/ShellText.h"

namespace norvo::cli {
namespace {

// Bash takes the "=" of --role=source for a word of its own.
constexpr const char* kBashStart = R"(# bash completion for norvo-playlists

_norvo_playlists() {
  local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
  if [[ $word == = ]]; then
    word=
  elif [[ $previous == = ]]; then
    previous=${COMP_WORDS[COMP_CWORD - 2]}
  fi
  COMPREPLY=()
  if ((COMP_CWORD == 1)); then
)";

constexpr const char* kValues = R"(  fi
  case "${COMP_WORDS[1]} $previous" in
)";

constexpr const char* kWords = R"(  esac
  case "${COMP_WORDS[1]}" in
)";

constexpr const char* kBashEnd = R"(  esac
}
complete -F _norvo_playlists norvo-playlists
)";

std::string Reply(const std::string& offer) {
  return "mapfile -t COMPREPLY < <(compgen " + offer + " -- \"$word\")";
}

std::string OfferOf(const OptionRow& row) {
  const std::string paths = "compopt -o filenames 2>/dev/null; ";
  switch (row.offer) {
    case Offer::Choices:
      return Reply("-W " + Quoted(Joined(row.choices, " ")));
    case Offer::Folders:
      return paths + Reply("-d");
    case Offer::Files:
      return paths + Reply("-f");
    default:
      return ":";
  }
}

std::string ValueCases(const CommandRow& command) {
  std::string cases;
  for (const OptionRow& option : command.options) {
    if (!option.TakesValue()) continue;
    for (const std::string& name : option.names) {
      cases +=
          "    " + Quoted(command.name + ' ' + name) + ") " + OfferOf(option) + "; return ;;\n";
    }
  }
  return cases;
}

/// Options, and behind a blank the plain words that the command takes.
std::string WordCase(const CommandRow& command) {
  const std::string options = Reply("-W " + Quoted(Joined(NamesOf(command.options), " ")));
  std::string text = "    " + command.name + ")\n";
  if (command.words.empty()) return text + "      " + options + " ;;\n";
  return text + "      if [[ $word == -* ]]; then " + options + "\n      else " +
         OfferOf(command.words.front()) + "; fi ;;\n";
}

}  // namespace

std::string BashCompletion(const CommandTable& table) {
  std::vector<std::string> first = NamesOf(table.program.options);
  for (const CommandRow& command : table.commands) first.push_back(command.name);
  std::string script = kBashStart;
  script += "    " + Reply("-W " + Quoted(Joined(first, " "))) + "\n    return\n" + kValues;
  for (const CommandRow& command : table.commands) script += ValueCases(command);
  script += kWords;
  for (const CommandRow& command : table.commands) script += WordCase(command);
  return script + kBashEnd;
}

}  // namespace norvo::cli
