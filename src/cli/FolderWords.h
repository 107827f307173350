#pragma once

#include <string>

#include "machines/TakenFolder.h"

namespace norvo::cli {

/// What a folder was taken as, and by what it was decided: "C: = /mnt/new-disk (Windows found)".
/// Empty where it cannot be meant otherwise: it is missing, or its machine.ini tells.
std::string TextOf(const TakenFolder& taken);

}  // namespace norvo::cli
