#include "move/SettingsMemory.h"

#include <utility>

#include "text/WindowsPath.h"

namespace norvo {
namespace {

// The generic files of a dozen playlists of usual length: more would make the memory of a large
// move, and reading them again is cheap, since the system has them in its own.
constexpr std::size_t kMostBytes = std::size_t{1024} * 1024;

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

/// The path is about to change.
void SettingsMemory::Memory::Forget(const String& path) {
  missing_.erase(FingerprintOf(path));
  const auto found = files_.find(path);
  if (found == files_.end()) return;
  bytes_ -= found->second.size();
  files_.erase(found);
}

void SettingsMemory::Memory::ForgetWritten() {
  files_ = {};
  bytes_ = 0;
}

void SettingsMemory::Memory::ForgetMissing() {
  remembersMissing_ = false;
  missing_ = {};
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

std::optional<FileFacts> SettingsMemory::Disk::FactsOf(StringView path) {
  if (!memory_.RemembersMissing() || path.empty()) return Files().FactsOf(path);
  const String name = NameOf(Files(), path);
  if (memory_.IsMissing(name)) return std::nullopt;
  std::optional<FileFacts> facts = Files().FactsOf(path);
  // A folder below which nothing is may come to be; its name with a backslash is no file's.
  if (!facts && !IsSeparator(path.back())) memory_.NoteMissing(name);
  return facts;
}

void SettingsMemory::Disk::RemoveFile(StringView path, bool force) {
  memory_.Forget(NameOf(Files(), path));
  Files().RemoveFile(path, force);
}

std::unique_ptr<AppendFile> SettingsMemory::Disk::OpenForAppending(StringView path, bool create) {
  memory_.Forget(NameOf(Files(), path));
  return Files().OpenForAppending(path, create);
}

}  // namespace norvo
