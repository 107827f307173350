#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "cli/Program.h"
#include "machines/TemporaryFolder.h"

namespace norvo {

namespace fs = std::filesystem;

/// What one run of the program left behind.
struct Outcome {
  int code = -1;
  std::string out;
  std::string err;

  nlohmann::json Document() const { return nlohmann::json::parse(out); }
};

inline Outcome RunProgram(const std::vector<std::string>& words) {
  std::ostringstream out;
  std::ostringstream err;
  const int code = cli::Run(words, out, err);
  return {code, out.str(), err.str()};
}

inline bool Holds(const std::string& text, const std::string& sought) {
  return text.find(sought) != std::string::npos;
}

/// A machine folder of its own for each test.
class ProgramTest : public ::testing::Test {
 protected:
  fs::path Root() const { return folder_.Path(); }
  std::string Machine() const { return (folder_.Path() / "machine").string(); }
  fs::path Place(const std::string& below) const { return fs::path(Machine()) / below; }
  fs::path DataArea() const { return Place("C/My Documents/Norvo Media/KVs"); }

  void SetUp() override { fs::create_directories(Place("C/Music")); }

  void WriteFile(const fs::path& path, const std::string& bytes) const {
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
  }
  void WriteSong(const std::string& name) const {
    WriteFile(Place("C/Music/" + name), std::string(1000, '\xFF'));
  }
  static std::string ReadFile(const fs::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  }

  /// Every file below a folder and its bytes.
  static std::map<std::string, std::string> Snapshot(const fs::path& folder) {
    std::map<std::string, std::string> files;
    for (const auto& item : fs::recursive_directory_iterator(folder)) {
      files[item.path().string()] = item.is_regular_file() ? ReadFile(item.path()) : "";
    }
    return files;
  }

  /// Two songs, and an M3U with both and a missing one.
  void WriteMix() const {
    WriteSong("One.mp3");
    WriteSong("Two.mp3");
    WriteFile(Place("C/Music/Mix.m3u"),
              "#EXTM3U\r\n#EXTINF:61,Ann - One\r\nC:\\Music\\One.mp3\r\n#EXTINF:62,Bob - Two\r\n"
              "Two.mp3\r\n#EXTINF:63,Cid - Three\r\nThree.mp3\r\n");
  }

  Outcome Init() const { return RunProgram({"init", "--machine", Machine()}); }

 private:
  TemporaryFolder folder_;
};

}  // namespace norvo
