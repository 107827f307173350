#pragma once

namespace norvo::com {

/// One object that this module has given out or holds; while there is any, the module stays loaded.
class LiveObject {
 public:
  LiveObject();
  ~LiveObject();
  LiveObject(const LiveObject&) = delete;
  LiveObject& operator=(const LiveObject&) = delete;
};

/// How many there are in this process.
long CountLiveObjects();

/// A host keeps the module loaded, or lets go of it again.
void LockModule(bool lock);
/// Neither an object nor a host needs the module.
bool IsModuleIdle();

}  // namespace norvo::com
