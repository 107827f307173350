#pragma once

#include "model/GenericKeys.h"

namespace norvo {

class AsxEntry;

/// @{
/// The object as an entry of the library, null when it is none: of any class, and of the one for
/// ASX playlists. Those may be asked without the names of their properties, which nobody can see;
/// objects of a host are asked by name, one property after the other.
FormatEntry* OwnEntry(AutomationObject& entry);
AsxEntry* OwnAsxEntry(AutomationObject& entry);
/// @}

/// Reads one property of many entries as a text.
class EntryText {
 public:
  /// A property that `EntryKeys` has.
  explicit EntryText(StringView property);

  /// Adds the property's value; raises what `AutomationObject::Get` and `ToText` raise.
  void Append(AutomationObject& entry, String& text);

 private:
  const EntryKey& row_;
  PropertyReader read_;
};

}  // namespace norvo
