// What the placing of songs costs beside CopyFile in a loop, and beside that with a flush of each
// copy, as the placing does: in one run, in turn, each time into a new folder.
//
//   copy_bench empty-folder [files] [bytes-of-a-file] [rounds]

#include <windows.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "placing/FilePlacer.h"
#include "platform/hosted/HostedPlatform.h"
#include "text/Encoding.h"

namespace norvo::bench {
namespace {

namespace fs = std::filesystem;

constexpr int kFilesInAFolder = 20;

struct Corpus {
  fs::path machine;
  std::vector<fs::path> songs;  // below the machine's folder
  std::uintmax_t bytes = 0;
};

Corpus MakeCorpus(const fs::path& machine, int files, std::size_t size) {
  Corpus corpus{machine, {}, size * static_cast<std::uintmax_t>(files)};
  std::mt19937_64 chance(1);
  std::vector<std::uint64_t> words(size / sizeof(std::uint64_t) + 1);
  for (int i = 0; i < files; ++i) {
    const fs::path folder = fs::path("C") / "Music" / std::to_string(i / kFilesInAFolder);
    corpus.songs.push_back(folder / ("Song " + std::to_string(i) + ".mp3"));
    fs::create_directories(machine / folder);
    std::generate(words.begin(), words.end(), std::ref(chance));
    std::FILE* file = _wfopen((machine / corpus.songs.back()).c_str(), L"wb");
    if (file == nullptr) continue;
    std::fwrite(words.data(), 1, size, file);
    std::fclose(file);
  }
  return corpus;
}

bool Flush(const fs::path& path) {
  const HANDLE file = ::CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return false;
  const bool isFlushed = ::FlushFileBuffers(file) != FALSE;
  ::CloseHandle(file);
  return isFlushed;
}

void CopyEach(const Corpus& corpus, const fs::path& target, bool isFlushed) {
  fs::path last;
  for (const fs::path& song : corpus.songs) {
    const fs::path copy = target / song;
    if (copy.parent_path() != last) fs::create_directories(last = copy.parent_path());
    ::CopyFileW((corpus.machine / song).c_str(), copy.c_str(), TRUE);
    if (isFlushed) Flush(copy);
  }
}

class Silent final : public PlaceListener {
 public:
  void OnBytes(std::uint64_t) override {}
  void OnPlaced(std::size_t, const PlaceOutcome& outcome) override {
    if (outcome.result != PlaceResult::Copied) std::puts(ToUtf8(outcome.detail).c_str());
  }
};

void Place(const Corpus& corpus, const fs::path& target) {
  fs::create_directories(target / "C");
  std::vector<PlaceJob> jobs;
  for (const fs::path& song : corpus.songs) {
    const fs::path inside = song.lexically_relative("C");
    const String path = u"C:\\" + fs::path(inside).make_preferred().u16string();
    jobs.push_back({path, path});
  }
  HostedPlatform from(corpus.machine), to(target);
  Silent listener;
  FilePlacer(from, to).PlaceAll(jobs, PlaceMode::Copy, listener);
}

std::uintmax_t BytesIn(const fs::path& folder) {
  std::uintmax_t bytes = 0;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (entry.is_regular_file()) bytes += entry.file_size();
  }
  return bytes;
}

struct Candidate {
  const char* name;
  std::function<void(const Corpus&, const fs::path&)> fill;
  std::vector<double> seconds = {};

  double Median() const {
    std::vector<double> sorted = seconds;
    std::ranges::sort(sorted);
    return sorted[sorted.size() / 2];
  }
};

/// False when the copies are not what was to be copied.
bool Measure(Candidate& candidate, const Corpus& corpus, const fs::path& target) {
  const auto begin = std::chrono::steady_clock::now();
  candidate.fill(corpus, target);
  const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - begin;
  candidate.seconds.push_back(passed.count());
  const bool isWhole = BytesIn(target) == corpus.bytes;
  if (!isWhole) std::fprintf(stderr, "%s: not all was copied\n", candidate.name);
  fs::remove_all(target);
  return isWhole;
}

int Run(const fs::path& folder, int files, std::size_t size, int rounds) {
  const Corpus corpus = MakeCorpus(folder / "source", files, size);
  std::vector<Candidate> candidates = {
      {"CopyFile", [](const auto& from, const auto& to) { CopyEach(from, to, false); }},
      {"CopyFile and flush", [](const auto& from, const auto& to) { CopyEach(from, to, true); }},
      {"placing", Place}};
  // The first round, which finds the songs unread, is not counted.
  for (int round = 0; round <= rounds; ++round) {
    for (Candidate& candidate : candidates) {
      if (!Measure(candidate, corpus, folder / ("target" + std::to_string(round)))) return 1;
      if (round == 0) candidate.seconds.clear();
    }
    std::ranges::rotate(candidates, candidates.begin() + 1);
  }
  std::ranges::sort(candidates, {}, [](const Candidate& each) { return std::string(each.name); });
  for (const Candidate& each : candidates) {
    std::printf("%-18s  %7.1f ms, %.2f times CopyFile\n", each.name, each.Median() * 1e3,
                each.Median() / candidates.front().Median());
  }
  fs::remove_all(corpus.machine);
  return 0;
}

}  // namespace
}  // namespace norvo::bench

int main(int count, char** arguments) {
  if (count < 2) {
    std::fprintf(stderr, "usage: copy_bench empty-folder [files] [bytes-of-a-file] [rounds]\n");
    return 2;
  }
  const auto number = [&](int at, int usual) {
    return count > at ? std::atoi(arguments[at]) : usual;
  };
  if (number(4, 5) < 1) return 2;  // there is nothing to tell of no round
  return norvo::bench::Run(arguments[1], number(2, 1000),
                           static_cast<std::size_t>(number(3, 3000000)), number(4, 5));
}
