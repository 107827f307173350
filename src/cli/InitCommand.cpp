#include <nlohmann/json.hpp>

#include "cli/Commands.h"
#include "cli/Machine.h"
#include "cli/Report.h"
#include "move/Setup.h"

namespace norvo {

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

}  // namespace norvo
