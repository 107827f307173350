#pragma once

#include <string>

namespace norvo {

/// The moment for people, on this system's clock: "2026-11-22 14:05".
std::string ShownNow();

}  // namespace norvo
