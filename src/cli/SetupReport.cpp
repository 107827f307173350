#include "cli/SetupReport.h"

#include <nlohmann/json.hpp>

#include "text/Encoding.h"
#include "text/Number.h"

namespace norvo::cli {
namespace {

std::string ValueText(const RegistryValue& value) {
  if (const auto* const text = std::get_if<String>(&value)) return '"' + ToUtf8(*text) + '"';
  if (const auto* const number = std::get_if<std::int32_t>(&value)) return std::to_string(*number);
  return ToUtf8(FormatNumber(std::get<double>(value)));
}

std::string KeyText(const SetupStep& step) {
  const char* const hive =
      step.hive == Hive::CurrentUser ? "HKEY_CURRENT_USER\\" : "HKEY_LOCAL_MACHINE\\";
  return hive + ToUtf8(step.path);
}

std::string StepText(const SetupStep& step) {
  switch (step.kind) {
    case SetupStep::Kind::Value:
      return "registry value " + KeyText(step) + ", " + ToUtf8(step.name) + " = " +
             ValueText(step.value);
    case SetupStep::Kind::Key:
      return "registry key " + KeyText(step);
    case SetupStep::Kind::ProductFolder:
      return "product folder " + ToUtf8(step.path);
    case SetupStep::Kind::GroupRootFolder:
      return "group root folder " + ToUtf8(step.path);
    case SetupStep::Kind::SubNamesFile:
      break;
  }
  return "file " + ToUtf8(step.path);
}

}  // namespace

void SaySetup(const std::vector<SetupStep>& steps, Console& console) {
  for (const SetupStep& step : steps) {
    console.Say((step.written ? "Written:        " : "Already there:  ") + StepText(step));
  }
}

Json SetupDocument(const std::vector<SetupStep>& steps) {
  Json written = Json::array();
  Json there = Json::array();
  for (const SetupStep& step : steps) (step.written ? written : there).push_back(StepText(step));
  return {{"written", written}, {"alreadyThere", there}};
}

}  // namespace norvo::cli
