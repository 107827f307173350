#pragma once

#include "text/Text.h"

namespace own {

struct Platform {
  Text name;
};

}  // namespace own
