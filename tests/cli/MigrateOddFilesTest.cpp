#include <sys/stat.h>

#include <functional>

#include "move/MixFixture.h"

namespace norvo::cli {
namespace {

/// What might be waited for, need not end, or would fill the memory, where a text is expected.
class MigrateOddFilesTest : public MixTest {
 protected:
  struct Odd {
    const char* name;
    std::function<void(const fs::path&)> make;
  };
  static std::vector<Odd> Odds() {
    return {
        {"a pipe", [](const fs::path& path) { ASSERT_EQ(::mkfifo(path.c_str(), 0666), 0); }},
        {"a device", [](const fs::path& path) { fs::create_symlink("/dev/zero", path); }},
        {"a folder", [](const fs::path& path) { fs::create_directory(path); }},
        {"a huge file", [](const fs::path& path) { MakeHuge(path); }},
    };
  }
  static void MakeHuge(const fs::path& path) {
    fs::create_directories(path.parent_path());
    std::ofstream(path).close();
    fs::resize_file(path, std::uintmax_t{100} << 30);
  }

  /// A move with each of them at a path ends with this code, and names the path.
  void ExpectNamed(const fs::path& path, const std::string& shown, int code,
                   const std::vector<std::string>& more = {}) {
    for (const Odd& odd : Odds()) {
      fs::create_directories(path.parent_path());
      fs::remove_all(path);
      odd.make(path);
      const Outcome outcome = Migrate(more);
      EXPECT_EQ(outcome.code, code) << odd.name << " at " << path << ": " << outcome.err;
      EXPECT_TRUE(Holds(outcome.out + outcome.err, shown)) << odd.name << ": " << outcome.err;
      fs::remove_all(path);
    }
  }
};

TEST_F(MigrateOddFilesTest, AsTheSettingsOfAMachineOrOfTheWorkFolderAreRefusedByName) {
  for (const char* const folder : {"old", "new", "work"}) {
    const std::string path = (Root() / folder / "machine.ini").string();
    ExpectNamed(path, path + " cannot be read: it is ", 2, {"--work", (Root() / "work").string()});
  }
  EXPECT_EQ(Migrate({"--work", (Root() / "work").string()}).code, 0);
}

TEST_F(MigrateOddFilesTest, AsARegistryAreRefusedByName) {
  for (const std::string& machine : {Old(), New()}) {
    ExpectNamed(machine + "/registry.reg", machine + "/registry.reg", 2);
  }
  EXPECT_EQ(Migrate().code, 0);
}

TEST_F(MigrateOddFilesTest, AsTheLedgerAreNamedAndTheNextMoveIsWhole) {
  const std::string path = kRoot + R"(KVs\Restored.txt)";
  for (const Odd& odd : Odds()) {
    fs::remove_all(New());
    fs::create_directories(NewPlace(path).parent_path());
    odd.make(NewPlace(path));
    const Outcome outcome = Migrate();
    EXPECT_NE(outcome.code, 0) << odd.name;
    EXPECT_TRUE(Holds(outcome.out + outcome.err, path)) << odd.name << ": " << outcome.err;
    fs::remove_all(NewPlace(path));
    EXPECT_EQ(Migrate().code, 0) << odd.name;
    ExpectMoved("Mix", {kOne, kTwo});
  }
}

TEST_F(MigrateOddFilesTest, ThatAreListsOfAHugeSizeAreLeftOutByName) {
  for (const char* const ending : {".m3u", ".pls", ".asx", ".wpl", ".xspf"}) {
    const std::string path = std::string(R"(C:\Music\Huge)") + ending;
    MakeHuge(OldPlace(path));
    const auto moved = Moved();
    EXPECT_EQ(moved.at("exitCode"), 1) << ending;
    const nlohmann::json list = PlaylistOf(moved, path);
    EXPECT_EQ(list.at("reasonCode"), "unreadable") << ending;
    EXPECT_EQ(list.at("reason"), "it cannot be read: File larger than 64 MB") << ending;
    fs::remove(OldPlace(path));
  }
}

}  // namespace
}  // namespace norvo::cli
