#include "PlaylistFolder.h"

#include "Files.h"
#include "PlaylistText.h"

namespace norvo::bench {
namespace {

constexpr std::size_t kDigits = 4;

std::string MakeFileName(std::size_t number, PlaylistKind kind) {
  std::string digits = std::to_string(number);
  if (digits.size() < kDigits) digits.insert(0, kDigits - digits.size(), '0');
  return "List " + digits + std::string(ExtensionOf(kind));
}

}  // namespace

std::vector<PlaylistFile> WritePlaylistFolder(const std::filesystem::path& drive,
                                              const PlaylistPlan& plan, SongDeck& deck) {
  const std::filesystem::path folder = drive / "Playlists";
  std::filesystem::create_directories(folder);
  std::vector<PlaylistFile> files;
  files.reserve(plan.playlists);
  for (std::size_t index = 0; index < plan.playlists; ++index) {
    const PlaylistKind kind = plan.kinds[index % plan.kinds.size()];
    const std::string name = MakeFileName(index + 1, kind);
    WriteFile(folder / name, MakePlaylistText(kind, deck.Deal(plan.entries)));
    SetFixedDate(folder / name);
    files.push_back({kind, "C:\\Playlists\\" + name});
  }
  return files;
}

}  // namespace norvo::bench
