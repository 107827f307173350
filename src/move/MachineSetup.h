#pragma once

#include <vector>

#include "move/SetUpMachine.h"
#include "move/WorkReport.h"
#include "services/Component.h"

namespace norvo {

/// The set-up of a machine by a component that is open already; see SetUpMachine.
std::vector<SetupStep> SetUp(Component& component, const SetupWishes& wishes, MachineSide side,
                             WorkReport& report);

}  // namespace norvo
