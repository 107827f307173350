#pragma once

#include <string>

namespace own {

using Text = std::string;

}  // namespace own
