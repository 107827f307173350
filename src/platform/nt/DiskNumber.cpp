#include "platform/nt/DiskNumber.h"

#include <array>
#include <memory>
#include <mutex>
#include <optional>
#include <unordered_map>

#include "platform/nt/Handle.h"
#include "text/Fingerprint.h"

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

// For a name, behind its length; none is longer.
using NameRoom = std::array<std::uint64_t, 8 * 1024>;

StringView TextAt(const void* units, std::size_t bytes) {
  return {static_cast<const char16_t*>(units), bytes / sizeof(char16_t)};
}

/// "\Device\HarddiskVolume3\Music"; empty where the system does not tell.
String FullName(HANDLE file) {
  const auto room = std::make_unique<NameRoom>();
  if (!NT_SUCCESS(
          ::NtQueryObject(file, ObjectNameInformation, room.get(), sizeof *room, nullptr))) {
    return {};
  }
  const auto& name = *reinterpret_cast<const UNICODE_STRING*>(room.get());
  return String(TextAt(name.Buffer, name.Length));
}

/// "\Music".
String NameOnDisk(HANDLE file) {
  const auto room = std::make_unique<NameRoom>();
  if (!NT_SUCCESS(Query(file, FileNameInformation, *room))) return {};
  const auto& name = *reinterpret_cast<const FILE_NAME_INFORMATION*>(room.get());
  return String(TextAt(name.FileName, name.FileNameLength));
}

/// Stands for the device that holds the file; 0 where that is not told.
std::uint64_t DeviceOf(HANDLE file) {
  const String full = FullName(file);
  const String name = NameOnDisk(file);
  if (name.empty() || !EndsWithIgnoreCase(full, name)) return 0;
  return CaselessFingerprintOf(StringView(full).substr(0, full.size() - name.size())).first;
}

std::uint64_t SerialNumberOf(HANDLE file) {
  // Room for the disk's name, which comes along.
  struct {
    FILE_FS_VOLUME_INFORMATION facts;
    wchar_t name[64];
  } found = {};
  IO_STATUS_BLOCK block = {};
  ::NtQueryVolumeInformationFile(file, &block, &found, sizeof found, FileFsVolumeInformation);
  return found.facts.VolumeSerialNumber;
}

/// A disk and its copy have one serial number, and even their files have the same ones; the devices
/// are two. Shares are one device, but have numbers.
std::uint64_t AskDisk(HANDLE file) {
  return SerialNumberOf(file) ^ DeviceOf(file);
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
