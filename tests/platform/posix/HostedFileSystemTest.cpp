#include <stdlib.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>

#include "automation/RunTimeError.h"
#include "support/ChildProcess.h"
#include "support/RefusedCalls.h"
#include "support/TestMachine.h"

namespace norvo {
namespace {

class HostedFilesOnPosixTest : public TestMachine {
 protected:
  std::vector<std::string> List(StringView path) {
    std::vector<std::string> names;
    for (const FolderItem& item : Files().ListFolder(path, {})) names.push_back(ToUtf8(item.name));
    return names;
  }
};

TEST_F(HostedFilesOnPosixTest, AFolderWithoutPermissionRaisesPermissionDenied) {
  if (::geteuid() == 0) GTEST_SKIP() << "nothing is denied to root";
  std::filesystem::create_directory(Disk("C/closed"));
  std::filesystem::permissions(Disk("C/closed"), std::filesystem::perms::none);
  EXPECT_EQ(NumberRaisedBy([&] { List(u"C:\\closed"); }), 70);
  EXPECT_EQ(NumberRaisedBy([&] { Files().OpenForReading(u"C:\\closed\\a"); }), 70);
  std::filesystem::permissions(Disk("C/closed"), std::filesystem::perms::owner_all);
}

#ifdef __linux__
TEST_F(HostedFilesOnPosixTest, WhatTheDiskCannotTellOfIsNotMissing) {
  Put(Disk("C/Music/a.mp3"), "");
  const auto numbersWhenRefusedBy = [&](int reason) {
    return ExitOfChild([&] {
      const std::uint32_t number = static_cast<std::uint32_t>(reason);
      if (!Files().FolderExists(u"C:\\Music") || !RefuseCalls({{SYS_statx, number}})) return kSkip;
      const int ofFile = NumberRaisedBy([&] { Files().FactsOf(u"C:\\Music\\b.mp3"); });
      const int ofFolder = NumberRaisedBy([&] { Files().FolderExists(u"C:\\Other"); });
      const bool guesses = NumberRaisedBy([&] { Files().SystemFolder(); }) == 0;
      return guesses && ofFile == ofFolder ? ofFile : 1;
    });
  };
  const int failed = numbersWhenRefusedBy(EIO);
  if (failed == kSkip) GTEST_SKIP() << "no call can be refused here";
  EXPECT_EQ(failed, error::kDeviceInputOutput);
  EXPECT_EQ(numbersWhenRefusedBy(ENOMEM), error::kOutOfMemory);
  EXPECT_EQ(numbersWhenRefusedBy(EACCES), 0) << "nobody here can have it";
}

TEST_F(HostedFilesOnPosixTest, ADeniedLookIsToldOnceOfAFolder) {
  Put(Disk("C/Music/a.mp3"), "");
  const int refused = ExitOfChild([&] {
    if (!Files().FolderExists(u"C:\\Music") || !RefuseCalls({{SYS_statx, EACCES}})) return kSkip;
    for (const StringView path : {u"C:\\Music\\b.mp3", u"C:\\Music\\c.mp3", u"C:\\Other\\d.mp3"}) {
      if (Files().FileExists(path)) return 1;
    }
    if (warnings_.size() != 2) return 2;
    const char* const text =
        "C:\\Music\\b.mp3: the system denies a look at it; it counts as not there, and so does "
        "what else is denied in its folder";
    return warnings_[0] == text ? 0 : 3;
  });
  if (refused == kSkip) GTEST_SKIP() << "no call can be refused here";
  EXPECT_EQ(refused, 0);
}
#endif

TEST_F(HostedFilesOnPosixTest, NamesThatNoPathCanExpressCostOneWarningEach) {
  Put(Disk("C/m") / "bad\xFF.mp3", "x");
  Put(Disk("C/m") / "two\nlines.mp3", "x");
  Put(Disk("C/m") / "back\\slash.mp3", "x");
  Put(Disk("C/m") / "...", "x");
  Put(Disk("C/m/good.mp3"), "x");
  EXPECT_EQ(List(u"C:\\m"), std::vector<std::string>{"good.mp3"});
  EXPECT_EQ(warnings_.size(), 4u);
  for (const std::string& line : warnings_) {
    EXPECT_NE(line.find("C:\\m"), std::string::npos);
    EXPECT_EQ(line.find('\n'), std::string::npos);
  }
  List(u"C:\\m");
  EXPECT_EQ(warnings_.size(), 4u) << "the same names are not reported again";
}

TEST_F(HostedFilesOnPosixTest, LocalDatesCountDaysFromTheEndOf1899) {
  const char* const old = ::getenv("TZ");
  const std::string kept = old == nullptr ? "" : old;
  ::setenv("TZ", "EST5EDT,M3.2.0,M11.1.0", 1);
  ::tzset();
  EXPECT_DOUBLE_EQ(Files().LocalDate(0).days, 25569.0 - 5.0 / 24);
  // 5/14/2003 14:12:00 UTC is 10:12:00 in summer time.
  EXPECT_DOUBLE_EQ(Files().LocalDate(1052921520).days, 37755 + (10 * 60 + 12) / 1440.0);
  // 12/29/1899 06:00:00 local: the fraction is written backward.
  EXPECT_DOUBLE_EQ(Files().LocalDate(-2209161600 - 86400 + 11 * 3600).days, -1.25);
  old == nullptr ? ::unsetenv("TZ") : ::setenv("TZ", kept.c_str(), 1);
  ::tzset();
}

}  // namespace
}  // namespace norvo
