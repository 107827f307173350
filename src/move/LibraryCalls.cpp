#include "move/LibraryCalls.h"

#include "automation/Conversions.h"

namespace norvo {

String TextOf(AutomationObject& object, StringView property) {
  return ToText(object.Get(property));
}

std::int32_t NumberOf(AutomationObject& object, StringView property) {
  return ToInt32(object.Get(property));
}

std::vector<ObjectRef> EntriesOf(AutomationObject& playlist) {
  const ObjectRef entries = ToObject(playlist.Get(u"PlayListEntries"));
  const std::int32_t count = NumberOf(*entries, u"TotalSongs");
  std::vector<ObjectRef> found;
  found.reserve(static_cast<std::size_t>(count));
  for (std::int32_t i = 1; i <= count; ++i) {
    found.push_back(ToObject(entries->Call(u"Item", i)));
  }
  return found;
}

bool ReadInto(AutomationObject& playlist, const String& path, std::int32_t type) {
  playlist.Let(u"PlayListType", type);
  return ToBoolean(playlist.Call(u"ReadPlayList", path));
}

void RunQueue(AutomationObject& controller, std::int32_t mode) {
  controller.Call(u"GenericQueue", mode);
}

}  // namespace norvo
