#pragma once

#include <algorithm>
#include <utility>

#include "cli/ProgramFixture.h"
#include "text/CodePage.h"
#include "text/Encoding.h"

namespace norvo {

/// The three texts of an ID3v1 tag, each at most 30 bytes in the 8-bit page.
struct Tag {
  std::string title;
  std::string artist;
  std::string album;

  std::string Bytes() const {
    const auto field = [](std::string text) {
      text.resize(30, '\0');
      return text;
    };
    return "TAG" + field(title) + field(artist) + field(album) + "1999" + field("") + '\x0C';
  }
};

/// Where a player's native playlists stand, and their extension.
struct PlayerFolder {
  const char* name;
  const char* extension;
};
inline constexpr PlayerFolder kPlayers[] = {{"Windows Media Player", ".asx"},
                                            {"WinAmp", ".m3u"},
                                            {"MusicMatch Jukebox", ".m3u"},
                                            {"Sonique", ".pls"}};

inline const std::string kRoot = R"(C:\My Documents\Norvo Media\)";

using Texts = std::vector<std::string>;

/// The lines of a text that an earlier one lacks, in their order.
inline Texts ChangedLines(const std::string& before, const std::string& after) {
  const auto linesOf = [](const std::string& text) {
    std::istringstream stream(text);
    Texts lines;
    for (std::string line; std::getline(stream, line);) {
      line.erase(line.find_last_not_of('\r') + 1);
      lines.push_back(line);
    }
    return lines;
  };
  const Texts old = linesOf(before);
  Texts lines = linesOf(after);
  std::erase_if(lines, [&old](const std::string& line) {
    return line.empty() || std::find(old.begin(), old.end(), line) != old.end();
  });
  return lines;
}

/// The lines by which the generic file of an M3U or PLS becomes one of the kind that tells most.
inline const Texts kAsCarried{"PlaylistType=1", "ASX Version=3.0", "AllowShuffle=yes"};

/// An old machine, made in the test, and beside it the new one, which is not there yet. All paths
/// are paths of the machines.
class MoveTest : public ProgramTest {
 protected:
  static constexpr const char* kMix = R"(C:\Music\Mix.m3u)";
  static constexpr const char* kOne = R"(C:\Music\One.mp3)";
  static constexpr const char* kTwo = R"(C:\Music\Two.mp3)";

  std::string Old() const { return (Root() / "old").string(); }
  std::string New() const { return (Root() / "new").string(); }
  fs::path OldPlace(const std::string& path) const { return PlaceIn(Old(), path); }
  fs::path NewPlace(const std::string& path) const { return PlaceIn(New(), path); }

  void SetUp() override { fs::create_directories(OldPlace("C:\\")); }

  void WriteOld(const std::string& path, const std::string& bytes) const {
    WriteFile(OldPlace(path), bytes);
  }
  void WriteNew(const std::string& path, const std::string& bytes) const {
    WriteFile(NewPlace(path), bytes);
  }
  /// Songs of the old machine, no two alike.
  void AddSong(const std::string& path) const { WriteOld(path, "The song " + path); }
  void AddSong(const std::string& path, const Tag& tag) const {
    WriteOld(path, "The song " + path + tag.Bytes());
  }

  /// Texts of playlists with these references.
  using References = std::vector<std::string>;
  static std::string M3u(const References& references) { return "#EXTM3U\r\n" + Bare(references); }
  static std::string Bare(const References& references) {
    std::string text;
    for (const std::string& reference : references) text += reference + "\r\n";
    return text;
  }
  static std::string Pls(const References& references) {
    std::string text = "[playlist]\r\n";
    for (std::size_t i = 0; i < references.size(); ++i) {
      text += "File" + std::to_string(i + 1) + "=" + references[i] + "\r\n";
    }
    return text + "NumberOfEntries=" + std::to_string(references.size()) + "\r\nVersion=2\r\n";
  }
  static std::string AsxEntry(const std::string& reference, const std::string& more = {}) {
    return "<Entry>\r\n<Ref href = \"" + reference + "\" />\r\n" + more + "</Entry>\r\n";
  }
  static std::string AsxParam(const std::string& name, const std::string& value) {
    return "<Param Name = \"" + name + "\" Value = \"" + value + "\" />\r\n";
  }
  static std::string Asx(const std::string& entries) {
    return "<Asx Version = \"3.0\" >\r\n" + entries + "</Asx>\r\n";
  }

  /// One song with a tag, in a playlist of its own; gives the song's path.
  std::string AddMix(const std::string& name, const Tag& tag = {}) const {
    const std::string path = "C:\\Music\\" + name;
    tag.Bytes() == Tag().Bytes() ? AddSong(path) : AddSong(path, tag);
    WriteOld(kMix, M3u({path}));
    return path;
  }

  Outcome Migrate(std::vector<std::string> more = {}) const {
    more.insert(more.begin(), {"migrate", "--from", Old(), "--to", New()});
    return RunProgram(more);
  }
  nlohmann::json Moved(std::vector<std::string> more = {}) const {
    more.emplace_back("--json");
    return Migrate(std::move(more)).Document();
  }

  /// The one record of a list in which a field has a value.
  static nlohmann::json RecordOf(const nlohmann::json& list, const char* field,
                                 const std::string& value) {
    std::vector<nlohmann::json> found;
    for (const auto& record : list) {
      if (record.at(field) == value) found.push_back(record);
    }
    EXPECT_EQ(found.size(), 1u) << field << ' ' << value << " in " << list.dump(1);
    return found.empty() ? nlohmann::json::object() : found.front();
  }
  static nlohmann::json PlaylistOf(const nlohmann::json& moved, const std::string& path) {
    return RecordOf(moved.at("playlists"), "path", path);
  }
  static std::string PlaceOf(const nlohmann::json& moved, const std::string& source) {
    return RecordOf(moved.at("media"), "source", source).value("place", "");
  }
  /// "2 FileName: old -> new", in order.
  static Texts AdjustmentsOf(const nlohmann::json& moved) {
    Texts texts;
    for (const auto& row : moved.at("adjustments")) {
      texts.push_back(
          std::to_string(row.at("entry").get<int>()) + ' ' + row.at("key").get<std::string>() +
          ": " + row.at("before").get<std::string>() + " -> " + row.at("after").get<std::string>());
    }
    return texts;
  }

  std::string NativePath(const PlayerFolder& player, const std::string& name) const {
    return kRoot + "PlayLists\\" + player.name + '\\' + name + player.extension;
  }

  /// The references of a native playlist, as the players see them: texts in the 8-bit page.
  References ReferencesIn(const std::string& path) const {
    std::istringstream lines(ReadFile(NewPlace(path)));
    References references;
    for (std::string line; std::getline(lines, line);) {
      line.erase(line.find_last_not_of(std::string("\r\0", 2)) + 1);
      const std::optional<std::string> reference = ReferenceOf(line, fs::path(path).extension());
      if (reference) references.push_back(ToUtf8(Windows1252().Decode(*reference)));
    }
    return references;
  }

  /// Each player has the playlist, which holds just these songs of the old machine, with their
  /// content, and addresses as they are, in this order.
  void ExpectMoved(const std::string& name, const References& items) const {
    for (const PlayerFolder& player : kPlayers) {
      const std::string native = NativePath(player, name);
      ASSERT_TRUE(fs::is_regular_file(NewPlace(native))) << native;
      const References references = ReferencesIn(native);
      ASSERT_EQ(references.size(), items.size()) << native;
      for (std::size_t i = 0; i < items.size(); ++i) ExpectLeadsTo(references[i], items[i]);
    }
  }

  void ExpectLeadsTo(const std::string& reference, const std::string& item) const {
    if (!fs::exists(OldPlace(item))) {
      EXPECT_EQ(reference, item);
    } else if (fs::is_regular_file(NewPlace(reference))) {
      EXPECT_EQ(ReadFile(NewPlace(reference)), ReadFile(OldPlace(item))) << reference;
    } else {
      ADD_FAILURE() << reference << " does not exist";
    }
  }

  /// The places of all files on the new machine, but for its registry.
  std::vector<std::string> NewFiles() const {
    std::vector<std::string> files;
    for (const auto& [path, bytes] : Snapshot(New())) {
      if (fs::is_regular_file(path) && !path.ends_with("registry.reg")) {
        files.push_back(path.substr(New().size() + 1));
      }
    }
    return files;
  }
  /// The files of the new machine in a folder and below.
  std::vector<std::string> NewFilesIn(const std::string& path) const {
    std::vector<std::string> files = NewFiles();
    const std::string start = NewPlace(path).string().substr(New().size() + 1) + '/';
    std::erase_if(files, [&](const std::string& file) { return !file.starts_with(start); });
    for (std::string& file : files) file.erase(0, start.size());
    return files;
  }

 private:
  static fs::path PlaceIn(const std::string& machine, std::string path) {
    std::replace(path.begin(), path.end(), '\\', '/');
    if (path.size() > 1 && path[1] == ':') path.erase(1, 1);
    return fs::path(machine) / path;
  }

  static std::optional<std::string> ReferenceOf(const std::string& line, const fs::path& kind) {
    if (kind == ".m3u") return line.starts_with('#') ? std::nullopt : std::optional(line);
    const std::string mark = kind == ".pls" ? "File" : "<Ref href = \"";
    if (!line.starts_with(mark)) return std::nullopt;
    const std::size_t begin = kind == ".pls" ? line.find('=') + 1 : mark.size();
    const std::size_t end = kind == ".pls" ? line.size() : line.find('"', begin);
    return line.substr(begin, end - begin);
  }
};

}  // namespace norvo
