#pragma once

#include "text/Text.h"

namespace norvo {

/// A setting by which a player was pointed at its playlists.
struct PlayerSetting {
  String player;
  String place;
  String value;
};

}  // namespace norvo
