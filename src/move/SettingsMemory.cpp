#include "move/SettingsMemory.h"

#include <utility>

namespace norvo {
namespace {

// The generic files of some hundred playlists of usual length.
constexpr std::size_t kMostBytes = std::size_t{32} * 1024 * 1024;

String NameOf(FileSystem& files, StringView path) {
  return Fold(files.AbsolutePathName(path));
}

}  // namespace

SettingsMemory::SettingsMemory(std::shared_ptr<Platform> machine)
    : machine_(std::move(machine)),
      storage_(*machine_, memory_),
      files_(machine_->Files(), memory_) {}

void SettingsMemory::Memory::Keep(String path, const std::string& bytes) {
  Forget(path);
  if (bytes_ + bytes.size() > kMostBytes) return;
  bytes_ += bytes.size();
  files_.emplace(std::move(path), bytes);
}

void SettingsMemory::Memory::Forget(const String& path) {
  const auto found = files_.find(path);
  if (found == files_.end()) return;
  bytes_ -= found->second.size();
  files_.erase(found);
}

const std::string* SettingsMemory::Memory::Find(const String& path) const {
  const auto found = files_.find(path);
  return found == files_.end() ? nullptr : &found->second;
}

std::optional<std::string> SettingsMemory::Storage::Read(StringView path) {
  if (const std::string* const bytes = memory_.Find(NameOf(machine_.Files(), path))) return *bytes;
  return machine_.Settings().Read(path);
}

void SettingsMemory::Storage::Write(StringView path, const std::string& bytes) {
  const String name = NameOf(machine_.Files(), path);
  memory_.Forget(name);  // should the writing fail, what stands there then is not known
  machine_.Settings().Write(path, bytes);
  memory_.Keep(name, bytes);
}

void SettingsMemory::Disk::RemoveFile(StringView path, bool force) {
  memory_.Forget(NameOf(files_, path));
  files_.RemoveFile(path, force);
}

std::unique_ptr<AppendFile> SettingsMemory::Disk::OpenForAppending(StringView path, bool create) {
  memory_.Forget(NameOf(files_, path));
  return files_.OpenForAppending(path, create);
}

}  // namespace norvo
