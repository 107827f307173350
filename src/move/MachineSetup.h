#pragma once

#include <functional>
#include <vector>

#include "move/SetUpMachine.h"
#include "move/WorkReport.h"
#include "services/Component.h"

namespace norvo {

/// The set-up of a machine by a component that is open already; see SetUpMachine. Of a machine that
/// has no group root yet `onNewRoot` hears which one it gets, before anything is written; it may
/// raise.
std::vector<SetupStep> SetUp(Component& component, const SetupWishes& wishes, MachineSide side,
                             WorkReport& report,
                             const std::function<void(StringView groupRoot)>& onNewRoot = {});

}  // namespace norvo
