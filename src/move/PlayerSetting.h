#pragma once

#include "text/Text.h"

namespace norvo {

/// A setting by which a player was pointed at its playlists.
struct PlayerSetting {
  String player;  ///< its name
  String place;   ///< registry key and value, or settings file and key
  String value;   ///< the folder of the player's restored playlists
};

}  // namespace norvo
