#include "model/Entries.h"
#include "writers/NativeWriterFixture.h"

namespace norvo {
namespace {

using namespace std::string_literals;

/// Hears of the native files, and looks at each when its end is told.
class FileFollower final : public Observer {
 public:
  explicit FileFollower(const MemoryPlatform& platform) : platform_(platform) {}
  void OnNativeFile(StringView path, std::int32_t type) override {
    steps.push_back("begin " + std::to_string(type) + " " + Name(path) +
                    (platform_.HasFile(path) ? " there" : ""));
  }
  void OnNativeFileEnd(StringView path, bool whole) override {
    const std::string size =
        platform_.HasFile(path) ? std::to_string(platform_.Bytes(path).size()) : "no file";
    steps.push_back((whole ? "whole " : "torn ") + Name(path) + " " + size);
  }
  Lines steps;

 private:
  static std::string Name(StringView path) {
    return Utf8(path.starts_with(kRoot) ? path.substr(kRoot.size()) : path);
  }
  const MemoryPlatform& platform_;
};

class NativeWriterFailureTest : public NativeWriterFixture {};

TEST_F(NativeWriterFailureTest, AnErrorEndsTheSyntaxInHandAndWhatWasWrittenStays) {
  FileFollower follower(*platform);
  component.SetObserver(&follower);
  NewPlayList(4);
  Add({kStreamType, kStream});
  Add(std::make_shared<ForeignObject>(Values{{u"Entry_EntryType", std::int32_t{4}}}));
  Add({kStreamType, kStream});
  EXPECT_EQ(Write(), Variant(false));
  component.SetObserver(&watcher);
  const std::string asx =
      "<ASX Version = \"3.0\" >\r\n<Param Name = \"AllowShuffle\" Value = \"yes\" />\r\n\r\n"
      "<Entry>\r\n<Ref href = \"http://host/a\"/>\r\n\r\n"
      "<Param Name = \"SourceURL\" Value = \"http://host/a\" />\r\n\r\n</Entry>\r\n\r\n<Entry>\r\n";
  EXPECT_EQ(Text(kAsxFile), asx);
  EXPECT_EQ(Text(kWinampFile), "#EXTM3U\r\nhttp://host/a\r\n");
  EXPECT_EQ(Text(kMusicMatchFile), "no file");  // of the same syntax as the one before
  EXPECT_EQ(Text(kPlsFile), "[playlist]\r\nFile1=http://host/a\r\n");
  EXPECT_EQ(follower.steps,
            Lines({"begin 1 Windows Media Player\\Mix.asx",
                   "torn Windows Media Player\\Mix.asx " + std::to_string(asx.size()),
                   "begin 3 WinAmp\\Mix.m3u", "torn WinAmp\\Mix.m3u 24", "begin 5 Sonique\\Mix.pls",
                   "torn Sonique\\Mix.pls 33"}));
}

TEST_F(NativeWriterFailureTest, ALengthThatCannotBeReadEndsTheSyntaxAlsoWhereItIsNotWritten) {
  NewPlayList(3);
  Add({kStreamType, kStream});
  Add(std::make_shared<ForeignObject>(Values{{u"Entry_EntryType", std::int32_t{3}},
                                             {u"HasExtendedInfo", false},
                                             {u"Entry_DestinationPath", String(u"http://b")}}));
  EXPECT_EQ(Write(), Variant(false));
  EXPECT_EQ(Text(kWinampFile), "#EXTM3U\r\nhttp://host/a\r\n");
  EXPECT_EQ(Text(kMusicMatchFile), "no file");
  EXPECT_EQ(Text(kPlsFile), "[playlist]\r\nFile1=http://host/a\r\n");
}

TEST_F(NativeWriterFailureTest, AnEntryThatIsGoneWhenItsTurnComesEndsTheSyntaxInHand) {
  NewPlayList(3);
  bool armed = false;
  const auto removeFirst = [&] {
    if (!std::exchange(armed, false)) return;
    std::vector<Variant> anyName{String(u"*")};
    Entries()->Call(u"Remove", anyName);
  };
  for (int i = 0; i < 2; ++i) Add(std::make_shared<Meddler>(u"3", removeFirst));
  armed = true;
  EXPECT_EQ(Write(), Variant(false));
  EXPECT_TRUE(Text(kAsxFile).ends_with("</Entry>\r\n\r\n"));
  EXPECT_EQ(Text(kWinampFile), "#EXTM3U\r\n#EXTINF:0,3 - 3\r\n3\r\n");
}

TEST_F(NativeWriterFailureTest, AnEntryOfAnotherKindThanItsTypeSaysEndsTheAsxFileAlone) {
  NewPlayList(1);
  const ObjectRef entry = component.Create(u"PlsEntry");
  SetAll(*entry, {{u"Entry_EntryType", std::int32_t{1}}, kStreamType, kStream});
  Add(entry);
  Write();
  EXPECT_EQ(Text(kAsxFile),
            "<ASX Version = \"\" >\r\n<Entry>\r\n<Ref href = \"http://host/a\"/>\r\n\r\n");
  EXPECT_EQ(Text(kMusicMatchFile), "http://host/a\0\r\n"s);
  EXPECT_EQ(Text(kPlsFile),
            "[playlist]\r\nFile1=http://host/a\r\nNumberOfEntries=1\r\nVersion=2\r\n");
}

TEST_F(NativeWriterFailureTest, AnEntryThatIsShortOfMemoryEndsTheSyntaxToo) {
  NewPlayList(6);
  const auto entry = std::make_shared<ForeignObject>(Values{{u"Entry_EntryType", std::int32_t{6}}});
  Add(entry);
  entry->shortOfMemory = true;
  EXPECT_EQ(Write(), Variant(false));
  EXPECT_EQ(Text(kPlsFile), "[playlist]\r\n");
}

TEST_F(NativeWriterFailureTest, MoreEntriesThanSixteenBitsCountEndEachSyntaxBehindItsHeader) {
  NewPlayList(3);
  const ObjectRef entry = Add({kStreamType, kStream});
  const auto entries = std::dynamic_pointer_cast<norvo::Entries>(Entries());
  ASSERT_NE(entries, nullptr);
  while (entries->TotalSongs() < 32768) entries->Add(entry);
  EXPECT_EQ(Write(), Variant(false));
  EXPECT_EQ(
      Text(kAsxFile),
      "<ASX Version = \"3.0\" >\r\n<Param Name = \"AllowShuffle\" Value = \"yes\" />\r\n\r\n");
  EXPECT_EQ(Text(kWinampFile), "#EXTM3U\r\n");
  EXPECT_EQ(Text(kMusicMatchFile), "no file");
  EXPECT_EQ(Text(kPlsFile), "[playlist]\r\n");
}

TEST_F(NativeWriterFailureTest, TheWatcherHearsOfEachFileBeforeItIsMadeAndWhenItIsWhole) {
  FileFollower follower(*platform);
  component.SetObserver(&follower);
  NewPlayList(5);
  Write();
  component.SetObserver(&watcher);
  EXPECT_EQ(
      follower.steps,
      Lines({"begin 1 Windows Media Player\\Mix.asx", "whole Windows Media Player\\Mix.asx 81",
             "begin 3 WinAmp\\Mix.m3u", "whole WinAmp\\Mix.m3u 9",
             "begin 6 MusicMatch Jukebox\\Mix.m3u", "whole MusicMatch Jukebox\\Mix.m3u 0",
             "begin 5 Sonique\\Mix.pls", "whole Sonique\\Mix.pls 42"}));
}

TEST_F(NativeWriterFailureTest, AFileThatCannotBeMadeIsToldAndTheNextSyntaxTried) {
  FileFollower follower(*platform);
  component.SetObserver(&follower);
  NewPlayList(5);
  platform->AddFolder(String(kRoot) + String(kWinampFile));  // no file: the name counts as free
  platform->FailOn(u"OpenForAppending", 1, error::kPermissionDenied);
  EXPECT_EQ(Write(), Variant(false));
  component.SetObserver(&watcher);
  EXPECT_EQ(follower.steps, Lines({"begin 1 Windows Media Player\\Mix.asx",
                                   "torn Windows Media Player\\Mix.asx no file",
                                   "begin 3 WinAmp\\Mix.m3u", "torn WinAmp\\Mix.m3u no file",
                                   "begin 5 Sonique\\Mix.pls", "whole Sonique\\Mix.pls 42"}));
  EXPECT_EQ(Written(), Lines({Utf8(kPlsFile)}));
  EXPECT_TRUE(log.empty());
}

TEST_F(NativeWriterFailureTest, OnAFullDiskWhatWasWrittenStaysAndTheWatcherHearsThatItIsNotWhole) {
  constexpr int kEntries = 3000;  // some pieces of the larger files
  NewPlayList(3);
  const ObjectRef entry = Add({kStreamType, kStream});
  for (int i = 1; i < kEntries; ++i) Add(entry);
  Write();
  const std::string whole = Text(kWinampFile);
  ASSERT_EQ(whole.size(), 9 + kEntries * std::string("http://host/a\r\n").size());
  const std::size_t appends = platform->Calls(u"Append");
  for (std::size_t k = 1; k <= appends; ++k) {
    FileFollower follower(*platform);
    component.SetObserver(&follower);
    const std::size_t before = Written().size();
    platform->FailOn(u"Append", k, error::kDiskFull);
    EXPECT_EQ(Write(), Variant(false)) << k;
    component.SetObserver(&watcher);
    platform->Log().StopFailing();
    Lines torn;
    for (const std::string& step : follower.steps) {
      if (step.starts_with("torn ")) torn.push_back(step);
    }
    ASSERT_EQ(torn.size(), 1u) << k;
    const bool inM3u = torn[0].find("WinAmp") != std::string::npos;
    // An error in the first M3U file leaves the second one out.
    EXPECT_EQ(Written().size() - before, inM3u ? 3u : 4u) << k;
    const std::string name = torn[0].substr(5, torn[0].rfind(' ') - 5);
    const std::string sound =
        name.substr(0, name.find_first_of("\\")) + "\\Mix" + name.substr(name.rfind('.'));
    const std::string rest = Text(String(name.begin(), name.end()));
    EXPECT_EQ(torn[0].substr(torn[0].rfind(' ') + 1), std::to_string(rest.size()));
    EXPECT_LT(rest.size(), Text(String(sound.begin(), sound.end())).size()) << k;
    EXPECT_TRUE(Text(String(sound.begin(), sound.end())).starts_with(rest)) << k;
    EXPECT_TRUE(rest.empty() || rest.ends_with("\r\n")) << k;
  }
  EXPECT_GT(appends, 8u);
  EXPECT_TRUE(log.empty());
}

}  // namespace
}  // namespace norvo
