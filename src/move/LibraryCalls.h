#pragma once

#include <cstdint>
#include <vector>

#include "services/Component.h"

namespace norvo {

/// The library's classes, driven by name as a script drives them. Errors of the library come out as
/// RunTimeError.

String TextOf(AutomationObject& object, StringView property);
std::int32_t NumberOf(AutomationObject& object, StringView property);

/// The entries of a `PlayList`, in order.
std::vector<ObjectRef> EntriesOf(AutomationObject& playlist);

/// Reads a native playlist as one of that type. False when it could not be read to its end; what
/// was read before stays.
bool ReadInto(AutomationObject& playlist, const String& path, std::int32_t type);

/// Runs the controller's queue; the modes are those of controller/QueueMode.h.
void RunQueue(AutomationObject& controller, std::int32_t mode);

}  // namespace norvo
