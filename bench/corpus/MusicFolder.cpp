#include "MusicFolder.h"

#include "Files.h"
#include "SongFile.h"

namespace norvo::bench {

void WriteMusicFolder(const std::filesystem::path& drive, const std::vector<Song>& songs) {
  std::filesystem::path lastFolder;
  for (const Song& song : songs) {
    const std::filesystem::path path = drive.string() + song.PathBelowDrive('/');
    if (path.parent_path() != lastFolder) {
      lastFolder = path.parent_path();
      std::filesystem::create_directories(lastFolder);
    }
    WriteFile(path, MakeSongFile(song));
  }
}

}  // namespace norvo::bench
