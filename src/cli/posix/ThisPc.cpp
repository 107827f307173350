#include "cli/ThisPc.h"

namespace norvo::cli {

bool IsThisPcAMachine() {
  return false;
}

std::shared_ptr<NamedMachine> OpenThisPc(Console&) {
  throw CommandError("This system is no Windows PC. Name a machine with --machine.");
}

}  // namespace norvo::cli
