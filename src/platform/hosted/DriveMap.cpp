#include "platform/hosted/DriveMap.h"

#include "platform/files/DiskPath.h"
#include "platform/files/SystemCalls.h"

namespace norvo {
namespace {

constexpr std::size_t kNoDrive = 26;

/// 0-based place of a letter in the alphabet.
std::size_t NumberOf(char16_t letter) {
  const char16_t lower = ToLowerAscii(letter);
  return lower < u'a' || lower > u'z' ? kNoDrive : static_cast<std::size_t>(lower - u'a');
}

}  // namespace

const SystemFile& DriveFolder::Root() const {
  if (root_.IsOpen()) return root_;
  FileResult<std::string> real = RealPath(folder_);
  if (!real) return root_;
  realFolder_ = std::move(*real);
  if (realFolder_.ends_with('/')) realFolder_.pop_back();  // that of a whole disk
  FileResult<SystemFile> opened = OpenRoot(folder_);
  if (opened) root_ = std::move(*opened);
  return root_;
}

std::optional<std::string> DriveFolder::Canonical(const std::string& path) const {
  if (!Root().IsOpen()) return std::nullopt;
  const FileResult<std::string> real = RealPath(realFolder_ + "/" + path);
  if (!real || !LiesWithin(*real, realFolder_)) return std::nullopt;
  return real->size() <= realFolder_.size() ? std::string() : real->substr(realFolder_.size() + 1);
}

DriveMap::DriveMap(const std::vector<HostedDrive>& drives) {
  for (const HostedDrive& each : drives) {
    const std::size_t number = NumberOf(each.letter);
    if (number == kNoDrive || drives_[number]) continue;
    const char16_t letter = static_cast<char16_t>(u'A' + number);
    drives_[number] =
        std::make_unique<DriveFolder>(letter, each.type, ToDiskPath(FullSystemPath(each.folder)));
  }
}

const DriveFolder* DriveMap::Find(char16_t letter) const {
  const std::size_t number = NumberOf(letter);
  return number == kNoDrive ? nullptr : drives_[number].get();
}

std::vector<Drive> DriveMap::List() const {
  std::vector<Drive> list;
  for (const std::unique_ptr<DriveFolder>& drive : drives_) {
    if (drive) list.push_back({drive->Letter(), drive->Type()});
  }
  return list;
}

}  // namespace norvo
