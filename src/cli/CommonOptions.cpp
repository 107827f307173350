#include "cli/CommonOptions.h"

namespace norvo::cli {

void AddOutputOptions(CLI::App& command, CommonArguments& common) {
  command.add_flag("--log", common.log, "Write the debug log, VBLog.txt in the product's folder");
  command.add_flag("--json", common.json, "Report as one JSON document on standard output");
  command.add_flag("--quiet", common.quiet,
                   "No progress and no summary; show and verify still print their tables");
}

void AddCommonOptions(CLI::App& command, CommonArguments& common, bool machineRequired) {
  AddMachineOption(command, common, machineRequired);
  AddOutputOptions(command, common);
}

void AddWaitOption(CLI::App& command, CommonArguments& common) {
  command.add_flag("--wait", common.wait, "Wait while another run works on the machine");
}

void AddReadAheadOption(CLI::App& command, CommonArguments& common) {
  command.add_flag("--no-read-ahead", common.noReadAhead,
                   "Do not read folders and songs before their turn");
}

std::string NamedFolder(const std::string& text) {
  if (!IsThisPcAMachine()) return text;
  constexpr std::string_view kMark = R"(\\?\)";
  const std::size_t drive = text.starts_with(kMark) ? kMark.size() : 0;
  if (text.size() < drive + 2 || text[drive + 1] != ':') return text;
  return text.substr(drive) + (text.size() == drive + 2 ? "\\" : "");
}

CLI::Option* AddFolderOption(CLI::App& command, const std::string& name, std::string& value,
                             const char* what) {
  const auto take = [](std::string& text) -> std::string {
    if (text.empty()) return "the name is empty";
    // "E:\" at the end of a name in quotation marks: what follows is taken for more of the name.
    if (IsThisPcAMachine() && text.find('"') != std::string::npos) {
      return text + R"(: a name that ends with \ stands without quotation marks, or without its \)";
    }
    text = NamedFolder(text);
    return {};
  };
  return command.add_option(name, value, what)
      ->type_name("DIR")
      ->transform(CLI::Validator(take, ""));
}

void AddMachineOption(CLI::App& command, CommonArguments& common, bool required) {
  const bool isOptional = IsThisPcAMachine();
  const char* const what = isOptional
                               ? "Folder that holds the machine, or a disk; else it is this PC"
                               : "Folder that holds the machine, or a mounted disk";
  AddFolderOption(command, "--machine", common.machine, what)->required(required && !isOptional);
  command.add_option("--user", common.user, "Whose documents folder is meant, of several users")
      ->type_name("NAME");
}

}  // namespace norvo::cli
