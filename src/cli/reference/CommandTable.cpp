#include "cli/reference/CommandTable.h"

#include <CLI/CLI.hpp>

namespace norvo::cli {
namespace {

/// Takes "source" and "destination" off the end of "ROLE:{source,destination}".
std::vector<std::string> TakeChoices(std::string& type) {
  const std::size_t at = type.find(":{");
  if (at == std::string::npos || !type.ends_with('}')) return {};
  const std::string choices = type.substr(at + 2, type.size() - at - 3);
  type.resize(at);
  return CLI::detail::split(choices, ',');
}

Offer OfferFor(const OptionRow& row, bool isWord) {
  if (!row.choices.empty()) return Offer::Choices;
  if (row.value == "DIR") return Offer::Folders;
  // Behind an option a PATH is one of another machine.
  return isWord || row.value.starts_with("FILE") ? Offer::Files : Offer::Nothing;
}

std::vector<std::string> NamesOf(const CLI::Option& option) {
  std::vector<std::string> names;
  for (const std::string& name : option.get_snames()) names.push_back("-" + name);
  for (const std::string& name : option.get_lnames()) names.push_back("--" + name);
  if (names.empty()) names.push_back(option.get_name(true));
  return names;
}

OptionRow RowOf(const CLI::Option& option) {
  OptionRow row;
  row.names = NamesOf(option);
  if (option.get_type_size() != 0) {
    row.value = option.get_type_name();
    row.choices = TakeChoices(row.value);
    row.offer = OfferFor(row, option.get_positional());
  }
  row.text = option.get_description();
  row.isRequired = option.get_required();
  row.isRepeatable = option.get_items_expected_max() > 1;
  for (const CLI::Option* excluded : option.get_excludes()) {
    row.excludes.push_back(excluded->get_name());
  }
  return row;
}

CommandRow RowOf(const CLI::App& command) {
  CommandRow row{command.get_name(), command.get_description(), command.get_footer(), {}, {}};
  for (const CLI::Option* option : command.get_options()) {
    (option->get_positional() ? row.words : row.options).push_back(RowOf(*option));
  }
  return row;
}

}  // namespace

CommandTable CommandTableOf(const CLI::App& program) {
  CommandTable table{RowOf(program), {}};
  for (const CLI::App* command : program.get_subcommands([](const CLI::App*) { return true; })) {
    table.commands.push_back(RowOf(*command));
  }
  return table;
}

std::vector<std::string> NamesOf(const std::vector<OptionRow>& options) {
  std::vector<std::string> names;
  for (const OptionRow& option : options) {
    names.insert(names.end(), option.names.begin(), option.names.end());
  }
  return names;
}

}  // namespace norvo::cli
