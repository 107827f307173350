#include "readers/NativeReader.h"

#include <algorithm>

#include "readers/AsxReader.h"
#include "readers/M3uReader.h"
#include "readers/PlsReader.h"

namespace norvo {
namespace {

struct ReaderRow {
  Syntax syntax;
  bool (*read)(Component&, PlaylistRecord&, StringView fileName, StringView folder);
};

constexpr ReaderRow kReaders[] = {
    {Syntax::Asx, ReadASX},
    {Syntax::M3u, ReadM3U},
    {Syntax::BareM3u, ReadMMJB},
    {Syntax::Pls, ReadPLS},
};

}  // namespace

bool ReadNative(Component& component, PlaylistRecord& playlist, Syntax syntax, StringView folder) {
  const auto* const row =
      std::find_if(std::begin(kReaders), std::end(kReaders),
                   [syntax](const ReaderRow& each) { return each.syntax == syntax; });
  const String fileName = playlist.originalFileName;
  return row != std::end(kReaders) && row->read(component, playlist, fileName, folder);
}

}  // namespace norvo
