#include "cli/ProgramFixture.h"

namespace norvo::cli {
namespace {

/// The sample machine, copied for each test.
class SampleMachineTest : public ProgramTest {
 protected:
  void SetUp() override {
    fs::copy(fs::path(NORVO_SOURCE_DIR) / "examples" / "sample-machine", Machine(),
             fs::copy_options::recursive);
  }

  static nlohmann::json PlaylistAt(const nlohmann::json& document, const std::string& path) {
    for (const auto& playlist : document.at("playlists")) {
      if (playlist.at("path") == path) return playlist;
    }
    ADD_FAILURE() << path << " is not in the report";
    return {};
  }
};

TEST_F(SampleMachineTest, ScanFindsThePlaylistsOfAllTypes) {
  Init();
  const auto document = RunProgram({"scan", "--machine", Machine(), "--json"}).Document();
  EXPECT_EQ(document.at("playlists").size(), 46u);
  const nlohmann::json expected = {{"WMP_ASX", 11},   {"WMP_M3U", 2},     {"WINAMP_M3U", 19},
                                   {"WINAMP_PLS", 6}, {"SONIQUE_PLS", 4}, {"MMJB_M3U", 4}};
  EXPECT_EQ(document.at("byType"), expected);
}

TEST_F(SampleMachineTest, CollectTellsTheOutcomeOfEachPlaylist) {
  const Outcome outcome = RunProgram({"collect", "--init", "--machine", Machine(), "--json"});
  EXPECT_EQ(outcome.code, 1);
  const auto document = outcome.Document();
  const auto& summary = document.at("summary");
  EXPECT_EQ(summary.at("found"), 49);  // three were met and not listed
  EXPECT_EQ(summary.at("empty"), 8);
  EXPECT_EQ(summary.at("unknownType"), 4);
  EXPECT_EQ(summary.at("unreadable"), 1);
  EXPECT_EQ(summary.at("replaced"), 3);
  EXPECT_EQ(summary.at("written").get<int>() + summary.at("notWritten").get<int>(), 33);
  EXPECT_EQ(summary.at("entriesKept"), 109);
  EXPECT_EQ(summary.at("entriesDropped").at("emptyReference"), 5);

  const auto mix = PlaylistAt(document, "C:\\Music\\Pop Hits [2003]\\Pop Hits.m3u");
  EXPECT_EQ(mix.at("kept"), 3);
  EXPECT_EQ(mix.at("dropped").size(), 1u);
  const auto odd = PlaylistAt(document, "C:\\Music\\Commented.asx");
  EXPECT_EQ(odd.at("outcome"), "unknownType");
  const auto named =
      PlaylistAt(document, "C:\\My Documents\\My Music\\My Playlists\\Old.m3u list.asx");
  EXPECT_EQ(named.at("outcome"), "written");
  EXPECT_EQ(named.at("neutralFile"), "C:\\My Documents\\Norvo Media\\KVs\\Old.ini");
}

TEST_F(SampleMachineTest, EveryNeutralFileThatIsNamedIsThere) {
  const auto document =
      RunProgram({"collect", "--init", "--machine", Machine(), "--json"}).Document();
  std::size_t written = 0;
  for (const auto& playlist : document.at("playlists")) {
    if (playlist.at("outcome") != "written") continue;
    ++written;
    const std::string file = playlist.at("neutralFile");
    EXPECT_TRUE(fs::exists(DataArea() / file.substr(file.rfind('\\') + 1))) << file;
  }
  std::size_t files = 0;
  for (const auto& item : fs::directory_iterator(DataArea())) {
    if (item.path().extension() == ".ini") ++files;
  }
  EXPECT_GT(written, 0u);
  EXPECT_EQ(files, written);
}

TEST_F(SampleMachineTest, CollectTwiceGivesTheSameBytes) {
  RunProgram({"collect", "--init", "--machine", Machine()});
  const auto before = Snapshot(Machine());
  RunProgram({"collect", "--init", "--machine", Machine()});
  EXPECT_EQ(Snapshot(Machine()), before);
}

TEST_F(SampleMachineTest, ShowReadsAMachinePathWithBrackets) {
  const Outcome outcome = RunProgram(
      {"show", "--machine", Machine(), "C:\\Music\\Pop Hits [2003]\\Pop Hits.m3u", "--json"});
  EXPECT_EQ(outcome.code, 1);
  EXPECT_EQ(outcome.Document().at("type"), 2);
  EXPECT_EQ(outcome.Document().at("entries").size(), 3u);
}

TEST_F(SampleMachineTest, ShowReadsASystemPathWithUmlauts) {
  const Outcome outcome =
      RunProgram({"show", Place("D/H\xC3\xB6rspiele/H\xC3\xB6rspiele.pls").string(), "--json"});
  EXPECT_EQ(outcome.Document().at("path"), "D:\\H\xC3\xB6rspiele\\H\xC3\xB6rspiele.pls");
  EXPECT_EQ(outcome.Document().at("entries").size(), 2u);
}

}  // namespace
}  // namespace norvo::cli
