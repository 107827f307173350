#pragma once

#include "cli/Command.h"
#include "cli/Console.h"
#include "machines/LockWishes.h"

namespace norvo::cli {

/// What `--wait` asks for; the waiting is told on the console, which must outlive the result.
LockWishes LockWishesOf(const CommonArguments& common, Console& console);

}  // namespace norvo::cli
