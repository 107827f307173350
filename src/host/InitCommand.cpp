#include <nlohmann/json.hpp>

#include "host/Commands.h"
#include "host/Machine.h"
#include "host/Report.h"
#include "host/Setup.h"

namespace norvo::host {

Json RunInit(const CommonArguments& common, const InitArguments& arguments, Console& console) {
  Machine machine(OpenMachine(common.machine), console);
  const SetupWishes wishes{arguments.role, arguments.groupRoot, true};
  const std::vector<SetupStep> steps = SetUp(machine.Library(), wishes, console);
  SaySetup(steps, console);
  if (common.log) machine.StartLog();
  Json document = SetupDocument(steps);
  AddLog(document, machine);
  return document;
}

}  // namespace norvo::host
