#include "platform/nt/DiskNumber.h"

#include <mutex>
#include <optional>
#include <unordered_map>

#include "platform/nt/Handle.h"

namespace norvo {
namespace {

/// The numbers that are known, by handles. Files are opened and closed on several threads.
class KnownNumbers {
 public:
  std::optional<std::uint64_t> Find(SystemFile::Native handle) {
    const std::lock_guard lock(mutex_);
    const auto known = numbers_.find(handle);
    return known == numbers_.end() ? std::nullopt : std::optional(known->second);
  }
  void Keep(SystemFile::Native handle, std::uint64_t number) {
    const std::lock_guard lock(mutex_);
    numbers_[handle] = number;
  }
  void Forget(SystemFile::Native handle) {
    const std::lock_guard lock(mutex_);
    numbers_.erase(handle);
  }

 private:
  std::mutex mutex_;
  std::unordered_map<SystemFile::Native, std::uint64_t> numbers_;
};

KnownNumbers& Known() {
  // Never destroyed: files may be closed until the very end.
  static KnownNumbers& known = *new KnownNumbers;
  return known;
}

std::uint64_t AskDisk(HANDLE file) {
  // Room for the disk's name, which comes along.
  struct {
    FILE_FS_VOLUME_INFORMATION facts;
    wchar_t name[64];
  } found = {};
  IO_STATUS_BLOCK block = {};
  ::NtQueryVolumeInformationFile(file, &block, &found, sizeof found, FileFsVolumeInformation);
  return found.facts.VolumeSerialNumber;
}

}  // namespace

std::uint64_t DiskNumberOf(const SystemFile& file) {
  if (const std::optional<std::uint64_t> known = Known().Find(file.Get())) return *known;
  const std::uint64_t number = AskDisk(HandleOf(file));
  if (file.IsOpen()) Known().Keep(file.Get(), number);
  return number;
}

void ShareDiskNumber(const SystemFile& folder, const SystemFile& file) {
  Known().Keep(file.Get(), DiskNumberOf(folder));
}

void ForgetDiskNumber(SystemFile::Native handle) {
  Known().Forget(handle);
}

}  // namespace norvo
