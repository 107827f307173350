// Reads one PLS of Winamp's and holds it open, prints how many entries it has: of two lengths,
// the difference in memory is what an entry takes. Usage: open_program MACHINE-FOLDER PLAYLIST
#include <exception>
#include <iostream>

#include "automation/Conversions.h"
#include "library/Library.h"
#include "model/PlaylistTypes.h"
#include "platform/hosted/HostedPlatform.h"

namespace norvo::bench {
namespace {

std::int32_t EntriesOf(const char* machine, const std::string& path) {
  const auto library = OpenLibrary(std::make_shared<HostedPlatform>(machine));
  const ObjectRef playlist = library->Create("PlayList");
  playlist->Let("PlayListType", playlist_type::kWinampPls);
  playlist->Call("ReadPlayList", path);
  return ToInt32(ToObject(playlist->Get("PlayListEntries"))->Get("TotalSongs"));
}

}  // namespace
}  // namespace norvo::bench

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: open_program MACHINE-FOLDER PLAYLIST\n";
    return 2;
  }
  try {
    std::cout << norvo::bench::EntriesOf(argv[1], argv[2]) << '\n';
    return 0;
  } catch (const std::exception& failure) {
    std::cerr << "open_program: " << failure.what() << '\n';
    return 2;
  }
}
