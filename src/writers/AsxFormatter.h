#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "model/EntryText.h"
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
  /// The values of a host's own object are read by name, one after the other; those of an entry of
  /// another kind than `AsxEntry` from its plain fields.
  void Entry(AutomationObject& entry);
  void End() { write_(u"</ASX>"); }

 private:
  /// A line of an entry with one of its properties in it.
  struct EntryLine {
    StringView before;
    std::optional<EntryText> text;  // none: the entry's place
    StringView behind;
  };

  void Element(StringView opening, const String& text, StringView closing);
  void Param(StringView name, const String& value);
  void PlaylistParams();
  void AddressLines(AutomationObject& entry, const String& path);
  void Line(EntryLine& line, AutomationObject& entry, const String& path);

  const PlaylistRecord& playlist_;
  Write write_;
  bool fromAsx_;
  EntryText duration_{u"Entry_Duration"};
  std::vector<EntryLine> entryLines_;
  String line_;  // in the making
};

}  // namespace norvo
