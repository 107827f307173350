#include "cli/TypedCommand.h"

namespace norvo::cli {
namespace {

constexpr std::string_view kMark = "{command}";

std::string typedCommand = "the same command";

/// In quotation marks, backslashes at the end are doubled: one alone would quote the mark.
std::string Typed(const std::string& word) {
  if (!word.empty() && word.find_first_of(" \t&|<>^;,=()") == std::string::npos) return word;
  const std::size_t last = word.find_last_not_of('\\');
  const std::size_t kept = last == std::string::npos ? 0 : last + 1;
  return '"' + word + word.substr(kept) + '"';
}

}  // namespace

void KnowCommand(const std::vector<std::string>& words) {
  typedCommand = "norvo-playlists";
  for (const std::string& word : words) typedCommand += ' ' + Typed(word);
}

std::string WithCommand(std::string_view message) {
  std::string text(message);
  const std::size_t mark = text.find(kMark);
  return mark == std::string::npos ? text : text.replace(mark, kMark.size(), typedCommand);
}

}  // namespace norvo::cli
