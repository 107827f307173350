#include "platform/nt/NtPath.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/TextPrinting.h"

namespace norvo {
namespace {

using Kind = FileFailure::Kind;

std::string Native(const std::string& path) {
  const FileResult<String> native = ToNtPath(path);
  return native ? Utf8(*native) : "failure " + std::to_string(native.Failure().code);
}
Kind WhyNot(const std::string& path) {
  return ToNtPath(path).Failure().kind;
}

TEST(NtPath, IsMadeFromADriveAShareOrTheMarkOfBoth) {
  EXPECT_EQ(Native("E:/Move/a.mp3"), "\\??\\E:\\Move\\a.mp3");
  EXPECT_EQ(Native("E:\\Move\\a.mp3"), "\\??\\E:\\Move\\a.mp3");
  EXPECT_EQ(Native("E:/"), "\\??\\E:\\");
  EXPECT_EQ(Native("//server/share/x"), "\\??\\UNC\\server\\share\\x");
  EXPECT_EQ(Native("//server/share"), "\\??\\UNC\\server\\share\\");
  EXPECT_EQ(Native("//?/E:/Move"), "\\??\\E:\\Move");
  EXPECT_EQ(Native("\\\\?\\UNC\\server\\share\\x"), "\\??\\UNC\\server\\share\\x");
  EXPECT_EQ(Native("//?/Volume{1-2}/x"), "\\??\\Volume{1-2}\\x");
}

TEST(NtPath, KeepsNamesThatTheSystemsOwnCallsWouldBend) {
  EXPECT_EQ(Native("E:/Mr. T./ a /NUL.txt"), "\\??\\E:\\Mr. T.\\ a \\NUL.txt");
  EXPECT_EQ(Native("E:/NUL"), "\\??\\E:\\NUL");
}

TEST(NtPath, ResolvesPointsByTheTextAlone) {
  EXPECT_EQ(Native("E:/a/./b//../c/"), "\\??\\E:\\a\\c");
  EXPECT_EQ(Native("E:/../../a"), "\\??\\E:\\a");
  EXPECT_EQ(Native("//server/share/../../x"), "\\??\\UNC\\server\\share\\x");
}

TEST(NtPath, BeginsAtTheFolderOfTheProcess) {
  const std::string here = std::filesystem::current_path().string();
  ASSERT_EQ(here.substr(1, 2), ":\\");
  const std::string drive = here.substr(0, 2);
  const std::string folder = here.size() == 3 ? drive : here;
  EXPECT_EQ(Native("a/b"), "\\??\\" + folder + "\\a\\b");
  EXPECT_EQ(Native("./a"), "\\??\\" + folder + "\\a");
  EXPECT_EQ(Native(drive + "a"), "\\??\\" + folder + "\\a");
  EXPECT_EQ(Native("/a"), "\\??\\" + drive + "\\a");
}

TEST(NtPath, IsNoneForWhatCanBeNoFiles) {
  EXPECT_EQ(WhyNot(""), Kind::NotFound);
  for (const std::string path :
       {"E:/a:b", "E:/a?", "//server", "//", "//./pipe/x", "//./E:/x", "E:/\xFF", "//?/", "///x"}) {
    EXPECT_EQ(WhyNot(path), Kind::InvalidName) << path;
  }
  EXPECT_EQ(WhyNot(std::string("E:/a\0b", 6)), Kind::InvalidName);
}

TEST(NtPath, IsAsLongAsTheSystemsPathsCanBe) {
  std::string path = "E:";
  while (path.size() < 32000) path += "/" + std::string(200, 'n');
  EXPECT_EQ(Native(path).size(), path.size() + 4);
  while (path.size() < 33000) path += "/" + std::string(200, 'n');
  EXPECT_EQ(WhyNot(path), Kind::NameTooLong);
}

}  // namespace
}  // namespace norvo
