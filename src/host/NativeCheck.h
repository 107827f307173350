#pragma once

#include <cstdint>
#include <vector>

#include "services/Component.h"

namespace norvo::host {

/// A reference of a native playlist, as the library reads it back.
struct CheckedReference {
  enum class Kind { Found, Missing, Address };

  Kind kind = Kind::Missing;
  String reference;  ///< of a file the full path
};

/// Reads a native playlist with the library and looks at each reference, in order. Where the
/// library's readers give up, the host's own, more patient one has a look: at a list that has more
/// lines than they take, and at references that they miss, such as "https://" addresses. `whole` is
/// set to false when it could not be read to its end at all. The component's observer does
/// not hear of the library's reading.
std::vector<CheckedReference> CheckNative(Component& library, const String& path, bool& whole);

}  // namespace norvo::host
