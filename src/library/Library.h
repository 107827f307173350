#pragma once

#include <memory>

#include "services/Component.h"

namespace norvo {

/// The library over one machine, with every public class to be created by name: `helperMan`,
/// `PlayList`, `PlayLists`, `Entries`, `Entry`, `AsxEntry`, `M3UEntry`, `PlsEntry`, `ArtistList`,
/// `ArtistItem`.
std::unique_ptr<Component> OpenLibrary(std::shared_ptr<Platform> platform);

}  // namespace norvo
