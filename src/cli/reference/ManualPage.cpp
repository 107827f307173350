#include "cli/reference/ManualPage.h"

#include <algorithm>
#include <cctype>

#include "cli/HelpBlocks.h"

namespace norvo::cli {
namespace {

constexpr const char* kManual =
    "The manual tells how a whole move goes, and what to do about all that it leaves out: "
    "/usr/share/doc/norvo-playlists/html/docs/manual/index.html from Debian's package, "
    "docs/manual/index.md in the sources.";

/// Columns that are left of a terminal's 80 beside the page's margin.
constexpr std::size_t kExampleColumns = 73;

/// As text: nothing in it is a request or an escape of the page's language, a hyphen is what a
/// shell takes for one.
std::string Escaped(const std::string& text) {
  std::string escaped;
  if (text.starts_with('.') || text.starts_with('\'')) escaped = "\\&";
  for (const char c : text) {
    if (c == '\\') {
      escaped += "\\e";
    } else if (c == '-') {
      escaped += "\\-";
    } else if (c == '\'') {
      escaped += "\\(aq";
    } else {
      escaped += c;
    }
  }
  return escaped;
}

std::string Bold(const std::string& text) {
  return "\\fB" + Escaped(text) + "\\fR";
}

std::string Italic(const std::string& text) {
  return "\\fI" + Escaped(text) + "\\fR";
}

std::string ValueInTag(const OptionRow& option) {
  if (option.choices.empty()) return Italic(option.value);
  std::string choices;
  for (const std::string& choice : option.choices) {
    choices += (choices.empty() ? "" : "|") + Bold(choice);
  }
  return choices;
}

std::string OptionTag(const OptionRow& option) {
  std::string tag;
  for (const std::string& name : option.names) tag += (tag.empty() ? "" : ", ") + Bold(name);
  return tag + (option.TakesValue() ? ' ' + ValueInTag(option) : "");
}

std::string WordTag(const OptionRow& word) {
  return Italic(word.names.front()) + (word.isRepeatable ? "...\\&" : "");
}

std::string Synopsis(const CommandRow& command) {
  std::string line = ".B norvo\\-playlists " + Escaped(command.name) + "\n";
  for (const OptionRow& option : command.options) {
    if (option.isRequired) line += OptionTag(option) + '\n';
  }
  line += "[" + Italic("OPTION") + "]...\\&\n";
  for (const OptionRow& word : command.words) {
    line += (word.isRequired ? WordTag(word) : "[" + WordTag(word) + "]") + '\n';
  }
  return line;
}

std::string Rows(const std::vector<OptionRow>& rows, std::string (*tag)(const OptionRow&)) {
  std::string text;
  for (const OptionRow& row : rows) text += ".TP\n" + tag(row) + '\n' + Escaped(row.text) + '\n';
  return text;
}

/// An example, continued on a second line where it is too long for one.
std::string Example(const std::string& line) {
  const std::string example = line.substr(line.find_first_not_of(' '));
  if (example.size() <= kExampleColumns) return Escaped(example) + '\n';
  const std::size_t at = example.rfind(" --", kExampleColumns - 2);
  return Escaped(example.substr(0, at) + " \\") + "\n    " + Escaped(example.substr(at + 1)) + '\n';
}

std::string Text(const std::vector<HelpBlock>& blocks) {
  std::string text;
  bool isInExamples = false;
  for (const HelpBlock& block : blocks) {
    if (block.isLiteral != isInExamples) text += block.isLiteral ? ".PP\n.EX\n" : ".EE\n";
    isInExamples = block.isLiteral;
    text += block.isLiteral ? Example(block.text) : ".PP\n" + Escaped(block.text) + '\n';
  }
  return text + (isInExamples ? ".EE\n" : "");
}

std::string CommandPart(const CommandRow& command) {
  return ".SS " + Escaped(command.name) + '\n' + Escaped(command.text) + ".\n" +
         Rows(command.words, WordTag) + Rows(command.options, OptionTag) +
         Text(HelpBlocks(command.help));
}

/// What a page tells behind the name: a half sentence.
std::string InOneLine(std::string text) {
  if (text.ends_with('.')) text.pop_back();
  text.front() = static_cast<char>(std::tolower(static_cast<unsigned char>(text.front())));
  return text;
}

/// Takes the paragraph that tells the exit codes out of the help; pages have a section for them.
std::vector<HelpBlock> TakeExitCodes(std::vector<HelpBlock>& blocks) {
  const auto tells = [](const HelpBlock& block) { return block.text.starts_with("Exit codes: "); };
  const auto at = std::find_if(blocks.begin(), blocks.end(), tells);
  if (at == blocks.end()) return {};
  std::vector<HelpBlock> taken{*at};
  blocks.erase(at);
  return taken;
}

}  // namespace

std::string ManualPage(const CommandTable& table, const std::string& version) {
  const CommandRow& program = table.program;
  std::string page =
      ".TH NORVO\\-PLAYLISTS 1 \"\" \"" + Escaped(version) + "\" \"User Commands\"\n";
  // Names of files and options are not to be hyphenated.
  page += ".nh\n.ad l\n";
  page += ".SH NAME\nnorvo\\-playlists \\- " + Escaped(InOneLine(program.text)) + '\n';
  page += ".SH SYNOPSIS\n";
  for (const CommandRow& command : table.commands) page += Synopsis(command) + ".br\n";
  std::vector<HelpBlock> help = HelpBlocks(program.help);
  const std::vector<HelpBlock> exitCodes = TakeExitCodes(help);
  page += ".SH DESCRIPTION\n" + Text(help);
  page += ".SH OPTIONS\n" + Rows(program.options, OptionTag);
  page += ".SH COMMANDS\n";
  for (const CommandRow& command : table.commands) page += CommandPart(command);
  page += ".SH EXIT STATUS\n" + Text(exitCodes);
  page += ".SH SEE ALSO\n" + Escaped(kManual) + '\n';
  return page;
}

}  // namespace norvo::cli
