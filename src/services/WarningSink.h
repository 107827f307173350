#pragma once

#include <functional>

#include "text/Text.h"

namespace norvo {

/// How much hangs on what a platform tells of its own accord.
enum class WarningWeight {
  LeftOut,  ///< something that was asked for counts as not there
  Notice    ///< something was met that is not followed; nobody has asked for it
};

/// Is told one line, which lives as long as the call.
using WarningSink = std::function<void(StringView line, WarningWeight weight)>;

}  // namespace norvo
