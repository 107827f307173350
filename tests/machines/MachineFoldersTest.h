#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "machines/TemporaryFolder.h"
#include "move/MoveFaults.h"
#include "support/TextPrinting.h"

namespace norvo {

namespace fs = std::filesystem;

/// A folder of the test's own for the folders of a move.
class MachineFoldersTest : public ::testing::Test {
 protected:
  fs::path At(const std::string& path) const { return folder_.Path() / path; }

  static void Put(const fs::path& path, const std::string& bytes) {
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
  }
  static std::string Get(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  /// Everything in a folder and below: a file's bytes, what a link leads to, "a folder".
  static std::map<std::string, std::string> Tree(const fs::path& folder) {
    std::map<std::string, std::string> tree;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
      std::string& what = tree[entry.path().lexically_relative(folder).string()];
      if (entry.is_symlink()) {
        what = "a link to " + fs::read_symlink(entry.path()).string();
      } else {
        what = entry.is_directory() ? "a folder" : "a file: " + Get(entry.path());
      }
    }
    return tree;
  }
  /// A disk with two songs and a playlist of them.
  void PutDisk(const std::string& folder) const {
    Put(At(folder) / "Music" / "One.mp3", "the first song");
    Put(At(folder) / "Music" / "Two.mp3", std::string(1500000, '2'));
    Put(At(folder) / "Music" / "Mix.m3u", "#EXTM3U\r\nOne.mp3\r\nC:\\Music\\Two.mp3\r\n");
  }

 private:
  TemporaryFolder folder_;
};

}  // namespace norvo
