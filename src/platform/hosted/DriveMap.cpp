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

std::optional<std::string> DriveFolder::RealPathOf(const std::string& path) const {
  if (!Root().IsOpen()) return std::nullopt;
  FileResult<std::string> real = RealPath(realFolder_ + "/" + path);
  return real ? std::optional(std::move(*real)) : std::nullopt;
}

std::optional<std::string> DriveFolder::PathWithin(const std::string& realPath) const {
  if (!Root().IsOpen() || !LiesWithin(realPath, realFolder_)) return std::nullopt;
  const bool isBelow = realPath.size() > realFolder_.size();
  return isBelow ? realPath.substr(realFolder_.size() + 1) : std::string();
}

std::optional<std::string> DriveFolder::LongPathOf(const std::string& path) const {
  if (path.find('~') == std::string::npos) return std::nullopt;
  const std::optional<std::string> real = RealPathOf(path);
  return real ? PathWithin(*real) : std::nullopt;
}

DriveMap::DriveMap(const std::vector<HostedDrive>& drives, bool linksCross)
    : linksCross_(linksCross) {
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

std::optional<DrivePath> DriveMap::Follow(const DriveFolder& drive, const std::string& path) const {
  const std::optional<std::string> real = drive.RealPathOf(path);
  if (!real) return std::nullopt;
  if (std::optional<std::string> within = drive.PathWithin(*real)) {
    return DrivePath{&drive, *std::move(within)};
  }
  for (const std::unique_ptr<DriveFolder>& other : drives_) {
    if (!linksCross_ || !other) continue;
    std::optional<std::string> within = other->PathWithin(*real);
    if (within) return DrivePath{other.get(), *std::move(within)};
  }
  return std::nullopt;
}

std::vector<Drive> DriveMap::List() const {
  std::vector<Drive> list;
  for (const std::unique_ptr<DriveFolder>& drive : drives_) {
    if (drive) list.push_back({drive->Letter(), drive->Type()});
  }
  return list;
}

}  // namespace norvo
