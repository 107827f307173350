#pragma once

#include <vector>

#include "services/Component.h"

namespace norvo {

/// A reference of a native playlist, as the library reads it back.
struct CheckedReference {
  enum class Kind { Found, Missing, Address };

  Kind kind = Kind::Missing;
  String reference;  ///< of a file the full path
};

/// What a native playlist refers to, in its order.
struct CheckedPlaylist {
  std::vector<CheckedReference> references;
  bool whole = false;  ///< it could be read to its end
};

/// Reads a native playlist with the library and looks at each reference, in order. Where the
/// library's readers give up, the host's own, more patient one has a look: at a list that has more
/// lines than they take, and at references that they miss, such as "https://" addresses. The
/// component's observer does not hear of the library's reading.
CheckedPlaylist CheckNative(Component& library, const String& path);

}  // namespace norvo
