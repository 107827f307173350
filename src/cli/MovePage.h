#pragma once

#include <string>

#include "cli/MoveDocument.h"

namespace norvo::cli {

/// A move as a page to keep: one HTML document that needs nothing else, neither files nor scripts.
/// `date` is told as it is.
std::string MovePage(const MoveResult& move, const MoveTerms& terms, const std::string& date);

}  // namespace norvo::cli
