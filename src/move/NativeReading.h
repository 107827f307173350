#pragma once

#include "lists/ReferenceFinder.h"
#include "move/SeenLists.h"
#include "move/VerifyPlaylists.h"
#include "services/Component.h"

namespace norvo {

/// Reads native playlists with the library and looks at each reference, in order. Where the
/// library's readers give up, the patient reader has a look: at a list that has more lines than
/// they take, and at references that they miss, such as "https://" addresses.
class NativeReader {
 public:
  /// The component must outlive this, and so must `seen`, which is told of all that the patient
  /// reader has read; nobody may move songs meanwhile.
  NativeReader(Component& library, SeenLists& seen)
      : library_(library), seen_(seen), finder_(library) {}

  /// The component's observer does not hear of the library's reading.
  VerifiedPlaylist Read(const String& path);

 private:
  std::vector<VerifiedReference> ReadPatiently(const String& path);

  Component& library_;
  SeenLists& seen_;
  ReferenceFinder finder_;
};

}  // namespace norvo
