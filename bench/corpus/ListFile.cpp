#include "ListFile.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "Files.h"

namespace norvo::bench {
namespace {

struct Section {
  std::string_view name;
  std::optional<PlaylistKind> kind;
};

constexpr std::array<Section, 6> kSections = {{{"WMP_ASX", std::nullopt},
                                               {"WMP_M3U", std::nullopt},
                                               {"WINAMP_M3U", PlaylistKind::kWinampM3u},
                                               {"WINAMP_PLS", PlaylistKind::kWinampPls},
                                               {"MMJB_M3U", PlaylistKind::kMusicMatch},
                                               {"SONIQUE_PLS", std::nullopt}}};

std::vector<std::string_view> PathsOf(const Section& section,
                                      const std::vector<PlaylistFile>& files) {
  std::vector<std::string_view> paths;
  for (const PlaylistFile& file : files) {
    if (section.kind == file.kind) paths.push_back(file.machinePath);
  }
  return paths;
}

std::string MakeSection(std::string_view name, const std::vector<std::string_view>& paths) {
  std::string text = "\r\n[" + std::string(name) + "]\r\n";
  for (std::size_t index = 0; index < paths.size(); ++index) {
    text += "File" + std::to_string(index + 1) + '=' + std::string(paths[index]) + "\r\n";
  }
  return text;
}

std::string MakeListText(const std::vector<PlaylistFile>& files) {
  std::string header = "[C:\\My Documents\\Norvo Media\\]\r\n";
  std::string sections;
  for (const Section& section : kSections) {
    const std::vector<std::string_view> paths = PathsOf(section, files);
    header += std::string(section.name) + " Total=" + std::to_string(paths.size()) + "\r\n";
    if (!paths.empty()) sections += MakeSection(section.name, paths);
  }
  return header + sections;
}

}  // namespace

void WriteListFile(const std::filesystem::path& machine, const std::vector<PlaylistFile>& files) {
  const std::filesystem::path folder = machine / "C" / "My Documents" / "Norvo Media" / "KVs";
  std::filesystem::create_directories(folder);
  WriteFile(folder / "PlayLists.txt", MakeListText(files));
}

}  // namespace norvo::bench
