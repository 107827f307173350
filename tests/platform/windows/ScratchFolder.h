#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <vector>

#include "automation/RunTimeError.h"
#include "platform/windows/SystemPath.h"
#include "platform/windows/UniqueHandle.h"
#include "platform/windows/WideText.h"
#include "platform/windows/WindowsPlatform.h"
#include "support/TextPrinting.h"
#include "text/Number.h"

namespace norvo {

/// A machine, and a fresh folder on it that is gone after the test.
class ScratchFolder : public ::testing::Test {
 protected:
  ScratchFolder() {
    wchar_t temp[MAX_PATH + 1] = {};
    ::GetTempPathW(MAX_PATH + 1, temp);
    do {
      folder_ = FromWide(temp) + u"norvo-test-" + FormatInteger(++number_);
      if (number_ > kMostFolders) throw std::runtime_error("no folder for the test can be made");
    } while (!::CreateDirectoryW(ToWide(folder_), nullptr));
    platform_.SetWarningSink(
        [this](StringView line, WarningWeight) { warnings_.emplace_back(line); });
  }
  ~ScratchFolder() override { RemoveTree(System(Path(u""))); }

  /// Full path of a place in the folder.
  String Path(StringView inside) const {
    return inside.empty() ? folder_ : folder_ + u"\\" + String(inside);
  }

  void MakeFolder(StringView inside) {
    ASSERT_TRUE(::CreateDirectoryW(ToWide(System(Path(inside))), nullptr)) << Utf8(inside);
  }
  void Put(StringView inside, const std::string& bytes) {
    const FileHandle file(::CreateFileW(ToWide(System(Path(inside))), GENERIC_WRITE, 0, nullptr,
                                        CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    DWORD written = 0;
    const auto size = static_cast<DWORD>(bytes.size());
    ASSERT_TRUE(::WriteFile(file.Get(), bytes.data(), size, &written, nullptr)) << Utf8(inside);
  }
  std::string Get(StringView inside) const {
    const FileHandle file(::CreateFileW(ToWide(System(Path(inside))), GENERIC_READ, kShareAll,
                                        nullptr, OPEN_EXISTING, 0, nullptr));
    if (!file.IsOpen()) return "(none)";
    std::string bytes(::GetFileSize(file.Get(), nullptr), '\0');
    DWORD got = 0;
    ::ReadFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &got, nullptr);
    bytes.resize(got);
    return bytes;
  }
  bool Exists(StringView inside) const {
    return ::GetFileAttributesW(ToWide(System(Path(inside)))) != INVALID_FILE_ATTRIBUTES;
  }
  void SetReadOnly(StringView inside) {
    ASSERT_TRUE(::SetFileAttributesW(ToWide(System(Path(inside))), FILE_ATTRIBUTE_READONLY));
  }

  FileSystem& Files() { return platform_.Files(); }
  WindowsPlatform& Machine() { return platform_; }

  /// Names in a folder; those of folders end in "/".
  Lines List(StringView path, std::vector<StringView> endings = {}) {
    Lines names;
    for (const FolderItem& item : Files().ListFolder(path, endings)) {
      names.push_back(Utf8(item.name) + (item.isFolder ? "/" : ""));
    }
    std::sort(names.begin(), names.end());
    return names;
  }
  std::string NameOf(StringView path) {
    const std::optional<FileFacts> facts = Files().FactsOf(path);
    return facts ? Utf8(facts->name) : "(none)";
  }

  /// Number of the run-time error that the work raises; 0 without one.
  template <class Work>
  static std::int32_t ErrorOf(Work&& work) {
    try {
      work();
    } catch (const RunTimeError& failure) {
      return failure.Number();
    }
    return 0;
  }

  /// A letter that no drive has, with its colon.
  String MissingDrive() {
    const DWORD present = ::GetLogicalDrives();
    unsigned index = 25;
    while ((present >> index & 1) != 0) --index;
    return String(1, static_cast<char16_t>(u'A' + index)) + u':';
  }

  /// The path as the system takes it, whatever the class under test thinks of it.
  static String System(const String& path) { return u"\\\\?\\" + path; }

  /// Removes a file, or a folder with all below, by its path as the system takes it. Links are
  /// removed, never followed.
  static void RemoveTree(const String& path) {
    const DWORD attributes = ::GetFileAttributesW(ToWide(path));
    ::SetFileAttributesW(ToWide(path), FILE_ATTRIBUTE_NORMAL);
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
      ::DeleteFileW(ToWide(path));
      return;
    }
    WIN32_FIND_DATAW found = {};
    if ((attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) {
      const SearchHandle search(::FindFirstFileW(ToWide(path + u"\\*"), &found));
      do {
        const String name = FromWide(found.cFileName);
        if (name != u"." && name != u"..") RemoveTree(path + u"\\" + name);
      } while (::FindNextFileW(search.Get(), &found));
    }
    ::RemoveDirectoryW(ToWide(path));
  }

  std::vector<String> warnings_;

 private:
  static constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

  static constexpr int kMostFolders = 10000;

  WindowsPlatform platform_;
  String folder_;
  int number_ = 0;
};

}  // namespace norvo
