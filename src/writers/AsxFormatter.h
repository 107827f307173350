#pragma once

#include <functional>

#include "model/PlaylistRecord.h"

namespace norvo {

/// The lines of a native ASX file. Values that are empty give no line, but for an entry's
/// reference. Texts go in as they are: nothing is escaped, as the player that reads them expects.
class AsxFormatter {
 public:
  using Write = std::function<void(StringView line)>;

  /// The playlist must outlive this.
  AsxFormatter(const PlaylistRecord& playlist, Write write);

  void Begin();
  /// The entry's values are read by name; those of an entry of another kind than `AsxEntry` from
  /// its plain fields.
  void Entry(AutomationObject& entry);
  void End() { write_(u"</ASX>"); }

 private:
  void Element(StringView opening, const String& text, StringView closing);
  void Param(StringView name, const String& value);
  void PlaylistParams();
  void AsxTexts(AutomationObject& entry);
  void AsxParams(AutomationObject& entry, const String& path);
  void PlainParams(AutomationObject& entry, const String& path);

  const PlaylistRecord& playlist_;
  Write write_;
  bool fromAsx_;
};

}  // namespace norvo
