#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/files/DiskPath.h"
#include "platform/files/SystemCalls.h"
#include "support/FreshFolder.h"
#include "support/Links.h"

namespace norvo {

/// A folder of its own, open as the root of paths, and a folder beside it. Gone after the test.
class FilesTest : public ::testing::Test {
 protected:
  using Kind = FileFailure::Kind;

  FilesTest() {
    std::filesystem::create_directories(At(""));
    std::filesystem::create_directories(Beside(""));
    root_ = std::move(*OpenRoot(ToDiskPath(At(""))));
  }

  const SystemFile& Root() const { return root_; }
  std::filesystem::path At(const std::string& path) const {
    return base_.Path() / "root" / ToSystemPath(path);
  }
  std::filesystem::path Beside(const std::string& path) const {
    return base_.Path() / "beside" / ToSystemPath(path);
  }

  static void Put(const std::filesystem::path& path, const std::string& bytes) {
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
  }
  static std::string Get(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  /// Open for reading; fails the test when it cannot be.
  SystemFile Open(const std::string& path) const {
    FileResult<SystemFile> file = OpenBeneath(Root(), path, OpenMode::Read);
    EXPECT_TRUE(file) << path;
    return file ? std::move(*file) : SystemFile();
  }
  Kind WhyNotOpen(const std::string& path, OpenMode mode) const {
    return OpenBeneath(Root(), path, mode).Failure().kind;
  }
  /// All names in a folder, sorted, each behind the letter of its kind.
  std::string NamesIn(const std::string& folder) const;

 private:
  FreshFolder base_{"norvo-files"};
  SystemFile root_;
};

inline std::string FilesTest::NamesIn(const std::string& folder) const {
  std::vector<std::string> names;
  FileResult<SystemFile> opened = OpenBeneath(Root(), folder, OpenMode::List);
  EXPECT_TRUE(opened) << folder;
  if (!opened) return {};
  EXPECT_FALSE(ForEachName(std::move(*opened), [&names](std::string_view name, ListedKind kind) {
    names.push_back("FDLO"[static_cast<std::size_t>(kind)] + std::string(name));
  }));
  std::sort(names.begin(), names.end());
  std::string list;
  for (const std::string& name : names) list += name + ' ';
  return list;
}

}  // namespace norvo
