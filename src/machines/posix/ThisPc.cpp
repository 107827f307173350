#include "machines/ThisPc.h"

namespace norvo {

bool IsThisPcAMachine() {
  return false;
}

std::shared_ptr<ThisPc> OpenThisPc() {
  return nullptr;
}

}  // namespace norvo
