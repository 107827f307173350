#include "placing/PlaceBatch.h"

#include <algorithm>
#include <chrono>
#include <span>
#include <utility>

#include "platform/files/SystemCalls.h"

namespace norvo {
namespace {

// A flush costs a few milliseconds even on a quick disk, whatever it flushes.
constexpr std::uint64_t kWorthyBytes = std::uint64_t{32} * 1024 * 1024;
constexpr std::size_t kWorthyFiles = 250;

// A slow disk takes some seconds for that much, and a quick one gains nothing from more.
constexpr std::uint64_t kMostBytes = std::uint64_t{256} * 1024 * 1024;
constexpr std::size_t kMostFiles = 2000;

constexpr std::launch kThreadIfThereIs = std::launch::async | std::launch::deferred;

/// Every file of a batch stays open, its folder may, too, and two batches are under way at a time.
std::size_t MostFilesOfABatch() {
  const std::size_t most = MostOpenFiles();
  return most == 0 ? kMostFiles : std::clamp<std::size_t>(most / 6, 1, kMostFiles);
}

std::vector<FileFailure> Flush(std::span<const SystemFile* const> files) {
  const std::size_t most = FlushesAtOnce();
  const std::size_t size = (files.size() + most - 1) / most;
  std::vector<std::future<std::vector<FileFailure>>> parts;
  for (std::size_t first = 0; first < files.size(); first += size) {
    // This thread does the first part, and what no thread can be had for.
    const auto policy = first == 0 ? std::launch::deferred : kThreadIfThereIs;
    const auto part = files.subspan(first, std::min(size, files.size() - first));
    parts.push_back(std::async(policy, [part] { return FlushToDisk(part); }));
  }
  std::vector<FileFailure> failures;
  for (auto& part : parts) {
    const std::vector<FileFailure> of = part.get();
    failures.insert(failures.end(), of.begin(), of.end());
  }
  return failures;
}

std::vector<FileFailure> FlushAndPutInPlace(std::span<PlaceBatch::File> files) {
  std::vector<const SystemFile*> open;
  open.reserve(files.size());
  for (const PlaceBatch::File& each : files) open.push_back(&each.file.File());
  std::vector<FileFailure> failures = Flush(open);
  LastFolder folders;  // opened now: what stands at their paths may have changed
  for (std::size_t i = 0; i < files.size(); ++i) {
    if (!failures[i]) failures[i] = files[i].file.PutInPlace(folders);
  }
  return failures;
}

}  // namespace

PlaceBatch::PlaceBatch() : mostFiles_(MostFilesOfABatch()) {}

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
  // Where no thread can be had, the work is done when it is waited for.
  work_ = std::async(kThreadIfThereIs,
                     [files = std::span<File>(files_)] { return FlushAndPutInPlace(files); });
}

}  // namespace norvo
