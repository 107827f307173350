// Writes a machine folder with music, playlists and the product's settings, for measurements.

#include <cstdio>
#include <exception>
#include <span>
#include <stdexcept>
#include <string>

#include "corpus/CorpusOptions.h"
#include "corpus/ListFile.h"
#include "corpus/MachineFiles.h"
#include "corpus/MusicFolder.h"
#include "corpus/PlainFiles.h"
#include "corpus/PlaylistFolder.h"
#include "corpus/SongDeck.h"

namespace norvo::bench {
namespace {

void MakeCorpus(const CorpusOptions& options) {
  const std::filesystem::path drive = options.machine / "C";
  Random random(options.seed);
  WriteMachineFiles(options.machine);
  const std::vector<Song> songs = MakeSongs(options.files, random);
  WriteMusicFolder(drive, songs);
  SongDeck deck(songs, random);
  const std::vector<PlaylistFile> playlists = WritePlaylistFolder(drive, options.plan, deck);
  if (options.writesList) WriteListFile(options.machine, playlists);
  WritePlainFiles(drive, options.plainFiles, options.foldersDepth);
}

int Run(std::span<const char* const> arguments) {
  try {
    MakeCorpus(ParseCorpusOptions(arguments));
    return 0;
  } catch (const std::invalid_argument& error) {
    std::fprintf(stderr, "make_corpus: %s\n%s", error.what(), std::string(CorpusUsage()).c_str());
    return 2;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "make_corpus: %s\n", error.what());
    return 1;
  }
}

}  // namespace
}  // namespace norvo::bench

int main(int argc, char** argv) {
  const std::span<const char* const> all(argv, static_cast<std::size_t>(argc));
  return norvo::bench::Run(all.subspan(all.empty() ? 0 : 1));
}
