#pragma once

#include <cstdint>
#include <span>

#include "model/FormatEntry.h"
#include "model/PlaylistRecord.h"

namespace norvo {

/// The keys of a generic file that stand for a property each; those of its sections are in
/// model/GenericSections.h.

/// Key of the global section by which a file is known as a generic one.
inline constexpr StringView kVersionKey = u"PavaneVersion";

/// When a key of an entry section is written and read.
enum class KeyUse {
  Always,
  AsxEntries,         ///< both for ASX entries alone
  WrittenForAsxOnly,  ///< read for all
  NeverRead
};

/// A key of an entry section and the entry's property behind it.
struct EntryKey {
  /// Adds the property's value to a text.
  using Reader = void (*)(FormatEntry&, String&);
  /// Gives the property a text, which becomes what the property takes; raises what `Let` raises.
  using Writer = void (*)(FormatEntry&, StringView);

  StringView key;
  StringView property;  ///< its name, by which objects of a host are asked
  /// @{
  /// The same of an entry of the library, without a value of its own; of keys with a use of ASX
  /// entries the entry is one. `set` is null for what is never read.
  Reader append;
  Writer set;
  /// @}
  KeyUse use = KeyUse::Always;

  bool IsWritten(bool forAsx) const;
  bool IsRead(bool forAsx) const;
};

/// In the order of the section. The last one is always written, and leaves an empty line behind it.
std::span<const EntryKey> EntryKeys();

/// A key of the global section that only ASX playlists have, and the property behind it.
struct AsxGlobalKey {
  StringView key;
  String PlaylistRecord::*property;
};

/// In the order of the section.
std::span<const AsxGlobalKey> AsxGlobalKeys();

}  // namespace norvo
