#include "FailingCalls.h"
#include "ScratchFolder.h"
#include "platform/windows/AnsiPage.h"
#include "platform/windows/WindowsError.h"
#include "platform/windows/WindowsRegistry.h"

namespace norvo {
namespace {

/// Each service of the machine, while one of its calls to the system fails.
class FailingWindowsTest : public ScratchFolder {
 protected:
  FailingWindowsTest() { Machine().Registry().CreateKey(Hive::CurrentUser, kKey); }
  ~FailingWindowsTest() override {
    ::RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Norvo\\Failing");
    ::RegDeleteKeyW(HKEY_CURRENT_USER, L"Software\\Norvo");
  }

  SettingsStorage& Settings() { return Machine().Settings(); }
  WindowsRegistry& Keys() { return registry_; }

  /// A call has failed so that nobody knows what there is: no answer may come of it.
  static bool IsUntold(const FailingRun& run) {
    return run.HasFailed() &&
           (run.Fault().reason == ERROR_IO_DEVICE || run.Fault().reason == ERROR_NOT_ENOUGH_MEMORY);
  }
  static void ExpectTheReason(const FailingRun& run, Subject subject) {
    const std::int32_t number = ErrorNumber(run.Fault().reason, subject);
    EXPECT_TRUE(run.Number() == 0 || run.Number() == number) << run.Where() << ": " << run.Number();
  }
  /// A folder that may not be looked at is to be created, and is in the way then.
  static void ExpectTheReasonOfWriting(const FailingRun& run) {
    const bool looked = run.Failed() == "GetFileAttributesW" && !IsUntold(run);
    if (!looked || run.Number() != 75) ExpectTheReason(run, Subject::New);
  }
  /// An error where nobody knows what there is, and else an answer.
  static void ExpectTheReasonIfUntold(const FailingRun& run, Subject subject) {
    EXPECT_EQ(run.Number(), IsUntold(run) ? ErrorNumber(run.Fault().reason, subject) : 0)
        << run.Where();
  }

  static constexpr StringView kKey = u"Software\\Norvo\\Failing";

 private:
  WindowsRegistry registry_;
};

TEST_F(FailingWindowsTest, ASettingsFileIsTheOldOneOrTheNewOne) {
  ForEachFailure(20, [&](FailingRun& run) {
    Put(u"a.ini", "old");
    run.Try([&] { Settings().Write(Path(u"a.ini"), "new"); });
    EXPECT_EQ(Get(u"a.ini"), run.Number() == 0 ? "new" : "old") << run.Where();
    EXPECT_TRUE(run.HasFailed() || run.Number() == 0) << run.Number();
    if (run.Failed() != "DeleteFileW") {
      EXPECT_EQ(List(Path(u"")), Lines{"a.ini"}) << run.Where();
    }
    ExpectTheReasonOfWriting(run);
  });
  Settings().Write(Path(u"a.ini"), "new");
  EXPECT_EQ(List(Path(u"")), Lines{"a.ini"}) << "what was left over is taken over";
}

TEST_F(FailingWindowsTest, ASettingsFileInNewFoldersIsWholeOrNotThere) {
  ForEachFailure(20, [&](FailingRun& run) {
    run.Try([&] { Settings().Write(Path(u"New\\Sub\\a.ini"), "new"); });
    EXPECT_EQ(Get(u"New\\Sub\\a.ini"), run.Number() == 0 ? "new" : "(none)") << run.Where();
    ExpectTheReasonOfWriting(run);
    RemoveTree(System(Path(u"New")));
  });
}

TEST_F(FailingWindowsTest, AReadOnlySettingsFileIsNeverReplaced) {
  ForEachFailure(6, [&](FailingRun& run) {
    Put(u"a.ini", "old");
    SetReadOnly(u"a.ini");
    run.Try([&] { Settings().Write(Path(u"a.ini"), "new"); });
    EXPECT_EQ(Get(u"a.ini"), "old") << run.Where();
    EXPECT_NE(run.Number(), 0) << run.Where();
    ::SetFileAttributesW(ToWide(Path(u"a.ini")), FILE_ATTRIBUTE_NORMAL);
  });
}

TEST_F(FailingWindowsTest, ASettingsFileIsReadWholeOrNotAtAll) {
  const std::string bytes(100000, 'x');
  Put(u"a.ini", bytes);
  ForEachFailure(20, [&](FailingRun& run) {
    std::optional<std::string> read;
    run.Try([&] { read = Settings().Read(Path(u"a.ini")); });
    EXPECT_EQ(read.value_or(bytes), bytes) << run.Where();
    EXPECT_EQ(run.HasFailed(), !read) << run.Where();
    EXPECT_NE(run.HasFailed(), run.Number() == 0) << run.Where();
  });
}

TEST_F(FailingWindowsTest, WhatIsAppendedStandsAtTheEndOrRaises) {
  for (const bool create : {false, true}) {
    ForEachFailure(8, [&](FailingRun& run) {
      Put(u"log.txt", "one");
      run.Try([&] { Files().OpenForAppending(Path(u"log.txt"), create)->Append("two"); });
      EXPECT_EQ(Get(u"log.txt"), run.HasFailed() ? "one" : "onetwo") << run.Where();
      EXPECT_NE(run.HasFailed(), run.Number() == 0) << run.Where();
      ExpectTheReason(run, Subject::File);
    });
  }
}

TEST_F(FailingWindowsTest, AFileThatCannotBeMadeRaises) {
  ForEachFailure(8, [&](FailingRun& run) {
    run.Try([&] { Files().OpenForAppending(Path(u"log.txt"), true)->Append("one"); });
    EXPECT_NE(run.HasFailed(), run.Number() == 0) << run.Where();
    ExpectTheReason(run, Subject::New);
    ::DeleteFileW(ToWide(System(Path(u"log.txt"))));
  });
}

TEST_F(FailingWindowsTest, AFileIsReadWholeOrRaises) {
  Put(u"a.bin", "0123456789");
  ForEachFailure(16, [&](FailingRun& run) {
    std::string read(10, '\0');
    run.Try([&] {
      const std::unique_ptr<BinaryFile> file = Files().OpenForReading(Path(u"a.bin"));
      EXPECT_EQ(file->Size(), 10u) << run.Where();
      EXPECT_EQ(file->ReadAt(0, read), 10u) << run.Where();
      EXPECT_EQ(read, "0123456789") << run.Where();
    });
    EXPECT_NE(run.HasFailed(), run.Number() == 0) << run.Where();
    // Whatever the reason, a reading that fails is a disk that fails.
    if (run.Failed() == "ReadFile") {
      EXPECT_EQ(run.Number(), 57) << run.Where();
    } else {
      ExpectTheReason(run, Subject::File);
    }
  });
}

TEST_F(FailingWindowsTest, AFolderIsListedWholeOrRaises) {
  MakeFolder(u"folder");
  for (const StringView name : {u"folder\\a", u"folder\\b", u"folder\\c"}) Put(name, "");
  ForEachFailure(20, [&](FailingRun& run) {
    Lines names;
    run.Try([&] { names = List(Path(u"folder")); });
    EXPECT_EQ(names, run.HasFailed() ? Lines() : (Lines{"a", "b", "c"})) << run.Where();
    EXPECT_NE(run.HasFailed(), run.Number() == 0) << run.Where();
    ExpectTheReason(run, Subject::Folder);
  });
}

TEST_F(FailingWindowsTest, AFileIsNotMissingWhereTheSystemCannotTell) {
  Put(u"a.mp3", "12345");
  ForEachFailure(4, [&](FailingRun& run) {
    std::optional<FileFacts> facts;
    run.Try([&] { facts = Files().FactsOf(Path(u"a.mp3")); });
    EXPECT_EQ(facts.has_value(), !run.HasFailed()) << run.Where();
    ExpectTheReasonIfUntold(run, Subject::File);
  });
}

TEST_F(FailingWindowsTest, AFolderIsNotMissingWhereTheSystemCannotTell) {
  MakeFolder(u"folder");
  ForEachFailure(4, [&](FailingRun& run) {
    bool there = false;
    run.Try([&] { there = Files().FolderExists(Path(u"folder")); });
    EXPECT_EQ(there, !run.HasFailed()) << run.Where();
    ExpectTheReasonIfUntold(run, Subject::File);
  });
}

TEST_F(FailingWindowsTest, AFolderIsCreatedOrRaises) {
  ForEachFailure(2, [&](FailingRun& run) {
    run.Try([&] { Files().CreateFolder(Path(u"folder")); });
    EXPECT_EQ(Exists(u"folder"), run.Number() == 0) << run.Where();
    EXPECT_NE(run.HasFailed(), run.Number() == 0) << run.Where();
    ExpectTheReason(run, Subject::New);
    RemoveTree(System(Path(u"folder")));
  });
}

TEST_F(FailingWindowsTest, AFileIsRemovedOrStaysAsItWas) {
  for (const bool readOnly : {false, true}) {
    ForEachFailure(6, [&](FailingRun& run) {
      Put(u"a", "x");
      if (readOnly) SetReadOnly(u"a");
      const DWORD before = ::GetFileAttributesW(ToWide(Path(u"a")));
      run.Try([&] { Files().RemoveFile(Path(u"a"), true); });
      EXPECT_EQ(Exists(u"a"), run.Number() != 0) << run.Where();
      // A system that takes the mark away and never gives it back is another matter.
      if (Exists(u"a") && !run.Fault().onwards) {
        EXPECT_EQ(::GetFileAttributesW(ToWide(Path(u"a"))), before) << run.Where();
      }
      EXPECT_TRUE(run.HasFailed() || run.Number() == 0) << run.Number();
      ::SetFileAttributesW(ToWide(Path(u"a")), FILE_ATTRIBUTE_NORMAL);
    });
  }
}

TEST_F(FailingWindowsTest, AValueOfTheRegistryIsRightOrNothing) {
  const RegistryValue text = String(u"text");
  ASSERT_TRUE(Keys().Write(Hive::CurrentUser, kKey, u"a", text));
  ForEachFailure(12, [&](FailingRun& run) {
    std::optional<RegistryValue> read;
    run.Try([&] { read = Keys().Read(Hive::CurrentUser, kKey, u"a"); });
    EXPECT_EQ(read, run.HasFailed() ? std::nullopt : std::optional(text)) << run.Where();
    ExpectTheReasonIfUntold(run, Subject::File);
  });
}

TEST_F(FailingWindowsTest, AKeyIsNotMissingWhereTheSystemCannotTell) {
  ForEachFailure(6, [&](FailingRun& run) {
    bool there = false;
    run.Try([&] { there = Keys().KeyExists(Hive::CurrentUser, kKey); });
    EXPECT_EQ(there, !run.HasFailed()) << run.Where();
    ExpectTheReasonIfUntold(run, Subject::File);
  });
}

TEST_F(FailingWindowsTest, AValueIsWrittenOrSaidNotToBe) {
  ForEachFailure(8, [&](FailingRun& run) {
    ASSERT_TRUE(Keys().Write(Hive::CurrentUser, kKey, u"a", String(u"old")));
    bool written = false;
    run.Try([&] { written = Keys().Write(Hive::CurrentUser, kKey, u"a", String(u"new")); });
    EXPECT_EQ(written, !run.HasFailed()) << run.Where();
    EXPECT_EQ(Keys().Read(Hive::CurrentUser, kKey, u"a"),
              RegistryValue(String(written ? u"new" : u"old")))
        << run.Where();
    EXPECT_EQ(run.Number(), 0) << run.Where();
  });
}

TEST_F(FailingWindowsTest, AKeyIsCreatedOrSaidNotToBe) {
  const String key = String(kKey) + u"\\Sub";
  ForEachFailure(2, [&](FailingRun& run) {
    bool created = false;
    run.Try([&] { created = Keys().CreateKey(Hive::CurrentUser, key); });
    EXPECT_EQ(created, !run.HasFailed()) << run.Where();
    EXPECT_EQ(Keys().KeyExists(Hive::CurrentUser, key), created) << run.Where();
    ::RegDeleteKeyW(HKEY_CURRENT_USER, ToWide(key));
  });
}

TEST_F(FailingWindowsTest, AVersionIsTheFilesOrNone) {
  const String program = Files().SystemFolder() + u"kernel32.dll";
  const String version = Files().FileVersion(program);
  ASSERT_FALSE(version.empty());
  ForEachFailure(12, [&](FailingRun& run) {
    String told;
    run.Try([&] { told = Files().FileVersion(program); });
    EXPECT_TEXT(told, run.HasFailed() ? String() : version) << run.Where();
    ExpectTheReasonIfUntold(run, Subject::File);
  });
}

TEST_F(FailingWindowsTest, TheDrivesAreAllToldOrItRaises) {
  const std::size_t drives = Files().Drives().size();
  ForEachFailure(4, [&](FailingRun& run) {
    std::size_t told = 0;
    run.Try([&] { told = Files().Drives().size(); });
    EXPECT_EQ(told, run.HasFailed() ? 0 : drives) << run.Where();
    EXPECT_NE(run.HasFailed(), run.Number() == 0) << run.Where();
    ExpectTheReason(run, Subject::Folder);
  });
}

TEST_F(FailingWindowsTest, PathsOfTheSystemAreWholeOrRaise) {
  const String folder = Files().SystemFolder();
  const String relative = Files().AbsolutePathName(u"a");
  const String product = Machine().Product().Folder();
  ForEachFailure(12, [&](FailingRun& run) {
    String told;
    String full;
    String own;
    run.Try([&] {
      told = Files().SystemFolder();
      full = Files().AbsolutePathName(u"a");
      own = Machine().Product().Folder();
    });
    EXPECT_TRUE(told.empty() || told == folder) << run.Where() << Utf8(told);
    EXPECT_TRUE(full.empty() || full == relative) << run.Where() << Utf8(full);
    EXPECT_TRUE(own.empty() || own == product) << run.Where() << Utf8(own);
    EXPECT_EQ(own.empty(), run.Number() != 0) << run.Where();
  });
}

TEST_F(FailingWindowsTest, AFolderOfTheShellIsToldOrNot) {
  const String documents = Machine().Shell().SpecialFolderPath(ShellFolders::kDocuments);
  ForEachFailure(4, [&](FailingRun& run) {
    WindowsPlatform fresh;
    String told;
    run.Try([&] {
      const auto answer = fresh.Shell().FolderPath(ShellFolders::kDocuments);
      told = answer ? answer->path : fresh.Shell().SpecialFolderPath(ShellFolders::kDocuments);
    });
    EXPECT_TRUE(told == documents || (told.empty() && run.HasFailed())) << run.Where();
  });
}

TEST_F(FailingWindowsTest, ATextIsConvertedWholeOrRaises) {
  const String text = u"Road Trip";
  ForEachFailure(16, [&](FailingRun& run) {
    std::string bytes;
    String back;
    run.Try([&] {
      bytes = SystemAnsiPage().Encode(text);
      back = SystemAnsiPage().Decode(bytes);
    });
    EXPECT_TRUE(bytes.empty() || bytes == "Road Trip") << run.Where();
    EXPECT_TRUE(back.empty() || back == text) << run.Where();
    EXPECT_NE(run.HasFailed(), run.Number() == 0) << run.Where();
  });
}

}  // namespace
}  // namespace norvo
