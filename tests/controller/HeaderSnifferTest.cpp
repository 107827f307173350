#include "controller/HeaderSniffer.h"

#include "automation/Conversions.h"
#include "controller/HelperManFixture.h"
#include "readers/PlaylistFixture.h"

namespace norvo {
namespace {

class HeaderSnifferTest : public HelperManFixture {
 protected:
  std::int32_t Sniff(StringView member, StringView path) {
    return ToInt32(CallWith(Controller(), member, String(path)));
  }
  std::int32_t M3u(std::string_view text) {
    platform->AddFile(u"C:\\a.m3u", text);
    return Sniff(u"ParseM3UHeader", u"C:\\a.m3u");
  }
  std::int32_t Pls(std::string_view text) {
    platform->AddFile(u"C:\\a.pls", text);
    return Sniff(u"ParsePLSHeader", u"C:\\a.pls");
  }
};

struct SniffRow {
  std::string text;
  std::int32_t type;
};

TEST_F(HeaderSnifferTest, TheFirstFourLinesTellTheTypeOfAnM3uFile) {
  const SniffRow rows[] = {
      {"<Asx Version=\"3.0\">\r\n", 2},
      {"<ASX>", 2},
      {"text <asx text", 2},
      {"#EXTM3U\r\n", 3},
      {"text #extm3u text", 3},
      {"EXTM3U\r\n", 0},
      {"C:\\Music\\a.mp3\r\n", 6},
      {"c:\\", 6},
      {"1:\\x", 6},
      {" C:\\Music\\a.mp3\r\n", 0},
      {"C:/Music/a.mp3\r\n", 0},
      {"\\\\server\\a.mp3", 0},
      {"a.mp3", 0},
      {"", 0},
      {"\r\n\r\n\r\n#EXTM3U\r\n", 3},
      {"\r\n\r\n\r\n\r\n#EXTM3U\r\n", 0},
      {"a\r\nb\r\nc\r\nC:\\a.mp3", 6},
      {"a\r\nb\r\nc\r\nd\r\nC:\\a.mp3", 0},
      {"# x\n# y\n\n<Asx", 2},
      {"# x\n# y\n\n\n<Asx", 0},
      // The first line that tells decides; on one line the marks are tried in turn.
      {"C:\\a.mp3\r\n#EXTM3U\r\n<Asx>", 6},
      {"#EXTM3U\r\nC:\\a.mp3\r\n<Asx>", 3},
      {"C:\\#EXTM3U<Asx", 2},
      {"C:\\#EXTM3U", 3},
      {"\xEF\xBB\xBF#EXTM3U", 3},
      {"\xEF\xBB\xBF"
       "C:\\a.mp3",
       6},
      {std::string("\xFF\xFE<\0A\0s\0x\0", 10), 2},
      {std::string("\xFE\xFF\0#\0E\0X\0T\0M\0003\0U", 16), 3},
      {std::string(1'000'000, 'x') + "<Asx", 2},
      {std::string(1'000'000, '\0'), 0},
  };
  for (const SniffRow& row : rows) {
    EXPECT_EQ(M3u(row.text), row.type) << "text: " << row.text.substr(0, 60);
  }
  EXPECT_EQ(LogLines(), Lines());
}

TEST_F(HeaderSnifferTest, KeysTellTheTypeOfAPlsFile) {
  const SniffRow rows[] = {
      {"[playlist]\r\nCachedInfo=1\r\n", 5},
      {"[playlist]\r\nCachedInfo=\r\nVersion=2\r\n", 5},
      {"[playlist]\r\nVersion=2\r\nCachedInfo=1\r\n", 5},
      {"[playlist]\r\nVersion=2\r\n", 4},
      {"[PLAYLIST]\r\nVERSION=2\r\n", 4},
      {"[playlist]\r\nVersion= 2 \r\n", 4},
      {"[playlist]\r\nVersion=\r\n", 0},
      {"[playlist]\r\nVersion=1\r\n", 0},
      {"[playlist]\r\nVersion=2.0\r\n", 0},
      {"[playlist]\r\nVersion=02\r\n", 0},
      {"[playlist]\r\nNumberOfEntries=1\r\n", 5},
      {"[other]\r\nVersion=1\r\n", 5},
      {"Version=1\r\n", 5},
      {"", 5},
      {"\xEF\xBB\xBF[playlist]\r\nVersion=2\r\n", 4},
  };
  for (const SniffRow& row : rows) EXPECT_EQ(Pls(row.text), row.type) << "text: " << row.text;
  EXPECT_EQ(LogLines(), Lines());
}

TEST_F(HeaderSnifferTest, TheExtensionTellsWhereTheHeaderIsLookedFor) {
  const std::string text = "#EXTM3U\r\n[playlist]\r\nVersion=2\r\n";
  const std::pair<StringView, std::int32_t> rows[] = {
      {u"C:\\a.m3u", 3}, {u"C:\\a.ASX", 3}, {u"C:\\a.Pls", 4}, {u"C:\\a.txt", 3}, {u"C:\\a", 3}};
  for (const auto& [path, type] : rows) {
    platform->AddFile(path, text);
    EXPECT_EQ(TypeByHeader(component, path), type) << Utf8(path);
  }
}

TEST_F(HeaderSnifferTest, AnAsxIsListedAsOneWhateverItsHeaderTells) {
  platform->AddFile(u"C:\\a.asx", "#EXTM3U\r\n");
  platform->AddFile(u"C:\\a.m3u", "#EXTM3U\r\n");
  EXPECT_EQ(ListedType(component, u"C:\\a.asx"), 1);
  EXPECT_EQ(ListedType(component, u"C:\\gone.Asx", 3), 1);
  EXPECT_EQ(ListedType(component, u"C:\\a.m3u"), 3);
  EXPECT_EQ(ListedType(component, u"C:\\a.m3u", 6), 6);
}

TEST_F(HeaderSnifferTest, AFileThatCannotBeReadHasNoM3uType) {
  EXPECT_EQ(Sniff(u"ParseM3UHeader", u"C:\\gone.m3u"), 0);
  EXPECT_EQ(Sniff(u"ParseM3UHeader", u""), 0);
  platform->AddFolder(u"C:\\folder.m3u");
  EXPECT_EQ(Sniff(u"ParseM3UHeader", u"C:\\folder.m3u"), 0);
  platform->AddFile(u"C:\\a.m3u", "#EXTM3U");
  platform->Files().Deny(u"C:\\a.m3u");
  EXPECT_EQ(Sniff(u"ParseM3UHeader", u"C:\\a.m3u"), 0);
}

TEST_F(HeaderSnifferTest, AMissingPlsFileHasNeitherKey) {
  EXPECT_EQ(Sniff(u"ParsePLSHeader", u"C:\\gone.pls"), 5);
}

TEST_F(HeaderSnifferTest, TheTypeOfALongFileIsToldByItsBeginning) {
  std::string text = "#EXTM3U\r\n";
  for (int i = 0; i < 100'000; ++i) text += "C:\\Music\\a.mp3\r\n";
  platform->AddFile(u"C:\\a.m3u", text);
  platform->Log().Clear();
  EXPECT_EQ(Sniff(u"ParseM3UHeader", u"C:\\a.m3u"), 3);
  EXPECT_EQ(platform->Calls(u"ReadAt"), 1u);
}

}  // namespace
}  // namespace norvo
