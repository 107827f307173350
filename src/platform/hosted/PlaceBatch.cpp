#include "platform/hosted/PlaceBatch.h"

#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <span>
#include <utility>

#include "platform/hosted/DiskFlush.h"

namespace norvo {
namespace {

// A flush costs a few milliseconds even on a quick disk, whatever it flushes.
constexpr std::uint64_t kWorthyBytes = std::uint64_t{32} * 1024 * 1024;
constexpr std::size_t kWorthyFiles = 250;

// A slow disk takes some seconds for that much, and a quick one gains nothing from more.
constexpr std::uint64_t kMostBytes = std::uint64_t{256} * 1024 * 1024;
constexpr std::size_t kMostFiles = 2000;

/// Every file of a batch stays open, and two batches are under way at a time.
std::size_t MostOpenFiles() {
  rlimit limit = {};
  if (::getrlimit(RLIMIT_NOFILE, &limit) != 0) return 1;
  const rlim_t share = std::min<rlim_t>(limit.rlim_cur / 4, kMostFiles);
  return std::max<std::size_t>(static_cast<std::size_t>(share), 1);
}

std::vector<int> FlushAndPutInPlace(std::span<PlaceBatch::File> files) {
  std::vector<int> descriptors;
  descriptors.reserve(files.size());
  for (const PlaceBatch::File& each : files) descriptors.push_back(each.file.File().Get());
  std::vector<int> reasons = FlushToDisk(descriptors);
  for (std::size_t i = 0; i < files.size(); ++i) {
    if (reasons[i] == 0) reasons[i] = files[i].file.PutInPlace();
  }
  return reasons;
}

}  // namespace

PlaceBatch::PlaceBatch() : mostFiles_(MostOpenFiles()) {}

void PlaceBatch::Add(File file, std::uint64_t bytes) {
  bytes_ += bytes;
  files_.push_back(std::move(file));
}

bool PlaceBatch::IsWorthAFlush() const {
  return bytes_ >= kWorthyBytes || files_.size() >= kWorthyFiles;
}

bool PlaceBatch::IsFull() const {
  return bytes_ >= kMostBytes || files_.size() >= mostFiles_;
}

bool PlaceBatch::IsDone() const {
  return !work_.valid() || work_.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
}

void PlaceBatch::Start() {
  // Without a launch policy: where no thread can be had, the work is done when it is waited for.
  work_ = std::async([files = std::span<File>(files_)] { return FlushAndPutInPlace(files); });
}

}  // namespace norvo
