#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "cli/Json.h"
#include "move/CollectPlaylists.h"
#include "move/PlayerSetting.h"

namespace norvo::cli {

/// "WMP_ASX" and so on; "unknown" for a code that is none.
std::string TypeName(std::int32_t type);
/// "ASX of Windows Media Player" and so on; "unknown" for a code that is none.
std::string TypeTitle(std::int32_t type);

/// Why an item became no entry: "no such file" and so on.
const char* DropText(ItemOutcome outcome);
/// "left out "C:\gone.mp3": no such file"
std::string LeftOutText(const DroppedItem& drop);
Json DropDocument(const DroppedItem& drop);

/// How many items were dropped for each reason.
class DropCounts {
 public:
  void Add(const std::vector<DroppedItem>& drops);
  /// "19 (15 no such file, 4 not a media file)"
  std::string Text() const;
  Json Document() const;

 private:
  static constexpr ItemOutcome kReasons[] = {ItemOutcome::Missing, ItemOutcome::NotMedia,
                                             ItemOutcome::Empty, ItemOutcome::NotRegistered};
  std::array<std::size_t, std::size(kReasons)> counts_{};
};

/// "WinAmp: C:\Program Files\Winamp\Winamp.ini, cwd = C:\My Documents\..."
std::string SettingText(const PlayerSetting& setting);
Json SettingsDocument(const std::vector<PlayerSetting>& settings);

}  // namespace norvo::cli
