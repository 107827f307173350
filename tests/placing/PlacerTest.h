#pragma once

#include <fcntl.h>
#include <sys/stat.h>

#include <fstream>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "cli/MoveWords.h"
#include "placing/FilePlacer.h"
#include "support/ChildProcess.h"
#include "support/TestMachine.h"
#include "support/TextPrinting.h"

namespace norvo {

using Names = std::vector<std::string>;

constexpr std::size_t kMegabyte = std::size_t{1024} * 1024;

/// Bytes that differ from place to place.
inline std::string Noise(std::size_t size, unsigned seed = 1) {
  std::string bytes(size, '\0');
  for (char& each : bytes) {
    seed = seed * 1664525u + 1013904223u;
    each = static_cast<char>(seed >> 24);
  }
  return bytes;
}

/// Keeps what it is told, as text: "copied", "failed: the disk is full".
class PlaceNotes : public PlaceListener {
 public:
  explicit PlaceNotes(std::size_t jobs) : lines(jobs) {}
  void OnBytes(std::uint64_t more) override {
    bytes += more;
    if (onBytes) onBytes();
  }
  void OnPlaced(std::size_t job, const PlaceOutcome& outcome) override {
    static const char* const kNames[] = {"copied", "linked", "already there", "failed: "};
    lines.at(job) += kNames[static_cast<int>(outcome.result)] + WhyNot(outcome);
    if (outcome.hasLostTimes) lines.at(job) += ", without its times: " + ToUtf8(outcome.detail);
    if (onPlaced) onPlaced();
  }

  /// As the user is told; empty for a job that did not fail.
  static std::string WhyNot(const PlaceOutcome& outcome) {
    if (outcome.result != PlaceResult::Failed) return {};
    MovedSong song;
    song.fault = MovedSong::Fault::NotBrought;
    song.failure = outcome.failure;
    song.systemReason = outcome.detail;
    return cli::ReasonText(song);
  }

  Lines lines;  ///< by job
  std::uint64_t bytes = 0;
  std::function<void()> onBytes;
  std::function<void()> onPlaced;
};

/// An old machine, and a new one in the folder "new" beside it. Both have the drive C.
class PlacerTest : public TestMachine {
 protected:
  PlacerTest() { std::filesystem::create_directories(New("C")); }

  std::filesystem::path New(const std::string& path) const { return Outside("new") / path; }

  HostedPlatform& NewMachine() {
    if (!newMachine_) newMachine_ = std::make_unique<HostedPlatform>(New(""));
    return *newMachine_;
  }
  /// Both machines learn everything again.
  void RestartBoth() {
    Restart();
    newMachine_.reset();
  }

  void Place(const std::vector<PlaceJob>& jobs, PlaceNotes& notes,
             PlaceMode mode = PlaceMode::Copy) {
    FilePlacer(Machine(), NewMachine()).PlaceAll(jobs, mode, notes);
  }
  /// One line for each job.
  Lines Place(const std::vector<PlaceJob>& jobs, PlaceMode mode = PlaceMode::Copy) {
    PlaceNotes notes(jobs.size());
    Place(jobs, notes, mode);
    return notes.lines;
  }
  std::string PlaceOne(const String& source, const String& target,
                       PlaceMode mode = PlaceMode::Copy) {
    return Place({{source, target}}, mode).front();
  }

  /// Places in a process of its own that is made ready first; `false` of it skips. The lines come
  /// back by a file.
  Lines PlaceInChild(const std::vector<PlaceJob>& jobs, const std::function<bool()>& makeReady,
                     PlaceMode mode = PlaceMode::Copy, const std::function<void()>& onBytes = {}) {
    const std::filesystem::path told = Outside("told");
    std::ofstream out(told);
    const int result = ExitOfChild([&] {
      if (!makeReady()) return kSkip;
      PlaceNotes notes(jobs.size());
      notes.onBytes = onBytes;
      Place(jobs, notes, mode);
      for (const std::string& line : notes.lines) out << line << '\n';
      out.flush();
      return 0;
    });
    if (result == kSkip) return {"skipped"};
    if (result != 0) return {"the process failed"};
    Lines lines;
    std::ifstream in(told);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
  }

  /// Everything below a folder: what it is, its times and its content, by path. The times are as
  /// they were before this read the files, and afterwards.
  static std::map<std::string, std::string> Tree(const std::filesystem::path& folder) {
    std::map<std::string, std::string> tree;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
      const std::string name = entry.path().lexically_relative(folder).string();
      tree[name] = "a folder";
      if (!entry.is_directory()) tree[name] = Describe(entry.path());
    }
    return tree;
  }
  static std::vector<std::string> NamesIn(const std::filesystem::path& folder) {
    std::vector<std::string> names;
    for (const auto& each : Tree(folder)) names.push_back(each.first);
    return names;
  }

  static struct stat StatOf(const std::filesystem::path& path) {
    struct stat found = {};
    EXPECT_EQ(::lstat(path.c_str(), &found), 0) << path;
    return found;
  }
  static void SetTimes(const std::filesystem::path& path, timespec accessed, timespec modified) {
    const timespec times[2] = {accessed, modified};
    ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
  }

 private:
  static std::string Describe(const std::filesystem::path& path) {
    const struct stat found = StatOf(path);
    const auto text = [](const timespec& time) {
      return std::to_string(time.tv_sec) + "." + std::to_string(time.tv_nsec);
    };
    const std::string bytes = Get(path);
    const timespec times[2] = {found.st_atim, found.st_mtim};
    ::utimensat(AT_FDCWD, path.c_str(), times, AT_SYMLINK_NOFOLLOW);
    return std::to_string(found.st_mode) + ", accessed " + text(found.st_atim) + ", modified " +
           text(found.st_mtim) + ", " + std::to_string(bytes.size()) + " bytes like " +
           std::to_string(std::hash<std::string>()(bytes));
  }

  std::unique_ptr<HostedPlatform> newMachine_;
};

}  // namespace norvo
