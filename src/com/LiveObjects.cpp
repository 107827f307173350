#include "com/LiveObjects.h"

#include <atomic>

namespace norvo::com {
namespace {

std::atomic<long> liveObjects{0};
std::atomic<long> locks{0};

}  // namespace

LiveObject::LiveObject() {
  ++liveObjects;
}
LiveObject::~LiveObject() {
  --liveObjects;
}

long CountLiveObjects() {
  return liveObjects;
}

void LockModule(bool lock) {
  locks += lock ? 1 : -1;
}

bool IsModuleIdle() {
  return liveObjects == 0 && locks == 0;
}

}  // namespace norvo::com
