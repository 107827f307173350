#pragma once

#include <sys/stat.h>

#include <chrono>
#include <memory>

#include "cli/ProgramFixture.h"
#include "overlay/OverlayPlatform.h"
#include "platform/hosted/HostedPlatform.h"
#include "services/FolderWalk.h"
#include "support/RaisedErrors.h"
#include "support/TextPrinting.h"
#include "text/Encoding.h"

namespace norvo {

using Paths = std::vector<String>;

/// What is told of a file that is only pretended.
inline FileFacts Planned(StringView name = {}) {
  return {String(name), 4711, 1000, 2'000'000'000'000};
}

/// One overlay over a machine in a folder. After each test the folder must be as it was when the
/// overlay was made: bytes, kinds and times.
class OverlayFixture : public ProgramTest {
 protected:
  void SetUp() override {
    ProgramTest::SetUp();
    WriteFile(Place("C/Music/One.mp3"), "one");
    WriteFile(Place("C/Music/Mix.m3u"), "#EXTM3U\r\n");
    WriteFile(Place("C/Old.txt"), "old");
    WriteFile(
        Place("registry.reg"),
        "Windows Registry Editor Version 5.00\r\n\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Norvo]\r\n"
        "\"Text\"=\"below\"\r\n\"Number\"=dword:00000007\r\n\r\n");
  }

  void TearDown() override {
    ASSERT_TRUE(overlay_) << "nothing was tested";
    EXPECT_EQ(StateBelow(), before_);
  }

  OverlayPlatform& Overlay() {
    if (!overlay_) {
      SetTimesBack();
      before_ = StateBelow();
      below_ = std::make_shared<HostedPlatform>(Machine());
      overlay_ = std::make_shared<OverlayPlatform>(below_);
    }
    return *overlay_;
  }
  std::shared_ptr<OverlayPlatform> SharedOverlay() {
    Overlay();
    return overlay_;
  }
  /// The machine below once more, with the times of its files.
  fs::path CopyOfMachine() {
    Overlay();
    const fs::path copy = Root() / "copy";
    fs::copy(Machine(), copy, fs::copy_options::recursive);
    for (const auto& [path, bytes] : Snapshot(Machine())) {
      fs::last_write_time(copy / fs::relative(path, Machine()), fs::last_write_time(path));
    }
    return copy;
  }
  FileSystem& Files() { return Overlay().Files(); }
  FileSystem& FilesBelow() { return below_->Files(); }
  HostedPlatform& Below() {
    Overlay();
    return *below_;
  }

  std::string Read(StringView path) {
    const std::unique_ptr<BinaryFile> file = Files().OpenForReading(path);
    std::string bytes(static_cast<std::size_t>(file->Size()) + 10, '\0');
    bytes.resize(file->ReadAt(0, bytes));
    return bytes;
  }
  void Append(StringView path, std::string_view bytes, bool create = true) {
    Files().OpenForAppending(path, create)->Append(bytes);
  }
  void Write(StringView path, const std::string& bytes) { Overlay().Settings().Write(path, bytes); }

  /// "Folder\" and "file" in name order.
  Paths Names(StringView folder, std::vector<StringView> endings = {}) {
    Paths names;
    for (const FolderItem& item : ListSorted(Files(), folder, endings)) {
      names.push_back(item.isFolder ? item.name + u"\\" : item.name);
    }
    return names;
  }

 private:
  /// Everything in the machine's folder, the folder itself included: kind, bytes, and the times of
  /// the last write and of the last change of any other sort.
  std::map<std::string, std::string> StateBelow() const {
    std::map<std::string, std::string> state = Snapshot(Machine());
    state[Machine()] = "";
    for (auto& [path, bytes] : state) {
      struct stat facts = {};
      EXPECT_EQ(::lstat(path.c_str(), &facts), 0) << path;
      std::ostringstream text;
      text << facts.st_mode << ' ' << facts.st_ino << ' ' << facts.st_mtim.tv_sec << '.'
           << facts.st_mtim.tv_nsec << ' ' << facts.st_ctim.tv_sec << '.' << facts.st_ctim.tv_nsec
           << ' ' << bytes;
      bytes = text.str();
    }
    return state;
  }

  /// A disk's clock is coarse: what was just made and is written again might keep its time.
  void SetTimesBack() const {
    const auto past = fs::file_time_type::clock::now() - std::chrono::hours(1000);
    for (const auto& [path, bytes] : Snapshot(Machine())) fs::last_write_time(path, past);
    fs::last_write_time(Machine(), past);
  }

  std::map<std::string, std::string> before_;
  std::shared_ptr<HostedPlatform> below_;
  std::shared_ptr<OverlayPlatform> overlay_;
};

}  // namespace norvo
