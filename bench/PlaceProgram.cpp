// Places all files of one machine's drive C on another machine's drive C, and prints how many were
// copied: the work that placing.py measures beside a plain copying of the same folder.

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "placing/FilePlacer.h"
#include "platform/hosted/HostedPlatform.h"
#include "text/Encoding.h"

namespace norvo::bench {
namespace {

class Counter final : public PlaceListener {
 public:
  void OnBytes(std::uint64_t more) override { bytes += more; }
  void OnPlaced(std::size_t, const PlaceOutcome& outcome) override {
    if (outcome.result == PlaceResult::Copied) ++copied;
    if (outcome.result == PlaceResult::Failed) std::puts(ToUtf8(outcome.detail).c_str());
  }
  std::uint64_t bytes = 0;
  std::size_t copied = 0;
};

std::vector<PlaceJob> JobsFor(const std::filesystem::path& drive) {
  std::vector<PlaceJob> jobs;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(drive)) {
    if (!entry.is_regular_file()) continue;
    const String path = u"C:\\" + FromUtf8Lossy(entry.path().lexically_relative(drive).string());
    jobs.push_back({path, path});
  }
  return jobs;
}

int Run(const std::filesystem::path& from, const std::filesystem::path& to) {
  HostedPlatform source(from);
  HostedPlatform target(to);
  Counter counter;
  FilePlacer(source, target).PlaceAll(JobsFor(from / "C"), PlaceMode::Copy, counter);
  std::printf("%zu\n", counter.copied);
  return 0;
}

}  // namespace
}  // namespace norvo::bench

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("usage: place_program SOURCE-MACHINE TARGET-MACHINE\n", stderr);
    return 2;
  }
  return norvo::bench::Run(argv[1], argv[2]);
}
