#include "platform/hosted/PathResolver.h"

#include <algorithm>
#include <utility>

#include "platform/files/DiskPath.h"
#include "platform/files/SystemCalls.h"
#include "platform/hosted/DiskName.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

// The scan of a drive goes from folder to folder and seldom comes back; what it needs are the
// folders above.
constexpr std::size_t kMostKnownFolders = 8192;

// No Windows path is longer; it also bounds the work that a hostile path can cause.
constexpr std::size_t kLongestPath = 32767;

StringView WithoutSeparator(StringView path) {
  // A drive's root is the drive's name in the map of known folders.
  if (!path.empty() && path.back() == u'\\') path.remove_suffix(1);
  return path;
}

/// The path in full; empty for one that names nothing on a drive.
class Absolute {
 public:
  explicit Absolute(StringView path) : text_(path) {
    if (path.empty() || path.size() > kLongestPath) {
      text_ = {};
    } else if (!IsAbsolutePath(path)) {
      made_ = AbsolutePath(path, u"C:");
      text_ = HasDrive(made_) ? StringView(made_) : StringView();
    }
  }
  Absolute(const Absolute&) = delete;
  Absolute& operator=(const Absolute&) = delete;

  StringView Text() const { return text_; }

 private:
  String made_;  // only when the path was not in full
  StringView text_;
};

/// A path in full, cut into its folder and its last name; the name of a root is empty.
struct Parts {
  StringView folder;
  StringView name;
};

Parts Split(StringView absolute) {
  absolute = WithoutSeparator(absolute);
  const std::size_t last = absolute.rfind(u'\\');
  if (last == StringView::npos) return {absolute, {}};
  return {absolute.substr(0, last), absolute.substr(last + 1)};
}

}  // namespace

const DrivePath* PathResolver::Known(StringView folder) {
  // A file is looked up and then opened: the same folder twice.
  if (lastKnown_ != known_.end() && SameUnits(lastKnown_->first, folder))
    return &lastKnown_->second;
  lastKnown_ = known_.find(folder);
  return lastKnown_ == known_.end() ? nullptr : &lastKnown_->second;
}

void PathResolver::Remember(StringView folder, const DrivePath& path) {
  if (known_.size() >= kMostKnownFolders) known_.clear();
  known_.insert_or_assign(String(WithoutSeparator(folder)), path);
  lastKnown_ = known_.end();
}

void PathResolver::Written(const DrivePath& file) {
  listings_.Written(*file.drive, ParentOf(file.path), LeafOf(file.path));
}

std::optional<DiskEntry> PathResolver::FollowLink(DrivePath link) const {
  std::optional<DrivePath> target = drives_.Follow(*link.drive, link.path);
  if (!target) return std::nullopt;
  const FileResult<FileRecord> record = LookUp(target->drive->Root(), target->path);
  if (!record || record->kind == FileRecord::Kind::Link) return std::nullopt;
  return DiskEntry{std::move(link), *std::move(target), true, *record};
}

/// The path of a name in a folder, if it is spelled as on the disk; nothing when no file can have
/// it.
std::optional<std::string> PathResolver::PathOf(const DrivePath& folder, StringView name) {
  std::string path;
  path.reserve(folder.path.size() + 1 + name.size());
  path = folder.path;
  if (!path.empty()) path.push_back('/');
  if (!AppendDiskName(path, name)) return std::nullopt;
  return path;
}

std::optional<DiskEntry> PathResolver::Step(const DrivePath& folder, StringView name) {
  reason_ = FileFailure::Kind::NotFound;
  sawFolder_ = endedAtLink_ = false;
  std::optional<std::string> spelled = PathOf(folder, name);
  if (!spelled) return std::nullopt;
  std::string& path = *spelled;
  FileResult<FileRecord> record = LookUp(folder.drive->Root(), path);
  if (!record) {
    reason_ = record.Failure().kind;
    if (reason_ != FileFailure::Kind::NotFound) return std::nullopt;
    const std::optional<std::string> other = listings_.Find(*folder.drive, folder.path, name);
    sawFolder_ = other.has_value();
    if (!other || other->empty()) return std::nullopt;
    path = JoinDiskPath(folder.path, *other);
    record = LookUp(folder.drive->Root(), path);
    if (!record) return std::nullopt;
  }
  if (record->kind == FileRecord::Kind::Link) {
    std::optional<DiskEntry> target = FollowLink({folder.drive, std::move(path)});
    sawFolder_ = true;
    endedAtLink_ = !target;
    return target;
  }
  return DiskEntry{{folder.drive, std::move(path)}, {}, false, *record};
}

std::optional<DrivePath> PathResolver::Walk(StringView folder, bool fromRoot) {
  const DriveFolder* const drive = drives_.Find(folder.front());
  reason_ = FileFailure::Kind::NotFound;
  if (drive == nullptr || !drive->Root().IsOpen()) return std::nullopt;
  constexpr std::size_t kDriveName = 2;
  DrivePath reached{drive, {}};
  bool trusted = false;  // some folder was not looked at again
  // Downward from the root: a path of thousands of names ends at the first that does not exist.
  for (std::size_t done = kDriveName; done < folder.size();) {
    const std::size_t end = std::min(folder.find(u'\\', done + 1), folder.size());
    const StringView path = folder.substr(0, end);
    const DrivePath* const known = fromRoot ? nullptr : Known(path);
    if (known != nullptr) {
      reached = *known;
      trusted = true;
    } else {
      std::optional<DiskEntry> entry = Step(reached, path.substr(done + 1));
      if (!entry || entry->record.kind != FileRecord::Kind::Folder) {
        if (endedAtLink_) reason_ = FileFailure::Kind::LinkInTheWay;
        // What was known of the folders above may be old.
        return trusted && !entry && !sawFolder_ ? Walk(folder, true) : std::nullopt;
      }
      reached = std::move(entry->isLink ? entry->target : entry->named);
      Remember(path, reached);
    }
    done = end;
  }
  return reached;
}

/// A name that is not in the folder as it was known: the path may lead to another one by now. One
/// that is still there is taken for the same.
std::optional<DiskEntry> PathResolver::StepAnew(StringView folder, DrivePath known,
                                                StringView name) {
  if (sawFolder_) return std::nullopt;
  const FileFailure::Kind reason = reason_;
  const std::optional<DrivePath> walked = Walk(folder, true);
  if (!walked) return std::nullopt;
  reason_ = reason;
  // The way to the folder is still the same: so is the answer.
  return walked->path == known.path ? std::nullopt : Step(*walked, name);
}

std::optional<DiskEntry> PathResolver::Find(StringView path) {
  const Absolute full(path);
  const StringView absolute = full.Text();
  reason_ = FileFailure::Kind::NotFound;
  endedAtLink_ = false;
  if (absolute.empty()) return std::nullopt;
  const auto [folder, name] = Split(absolute);
  if (name.empty()) {
    const DriveFolder* const drive = drives_.Find(absolute.front());
    if (drive == nullptr || !drive->Root().IsOpen()) return std::nullopt;
    const FileResult<FileRecord> record = LookUp(drive->Root(), {});
    return record ? std::optional(DiskEntry{{drive, {}}, {}, false, *record}) : std::nullopt;
  }
  const bool asFolder = absolute.back() == u'\\';
  std::optional<DiskEntry> entry;
  if (const DrivePath* const known = Known(folder)) {
    entry = Step(*known, name);
    if (!entry) entry = StepAnew(folder, *known, name);
  } else if (const std::optional<DrivePath> walked = Walk(folder, false)) {
    entry = Step(*walked, name);
  }
  if (entry && asFolder && entry->record.kind != FileRecord::Kind::Folder) return std::nullopt;
  return entry;
}

std::optional<DrivePath> PathResolver::FindFolder(StringView path) {
  std::optional<DiskEntry> entry = Find(path);
  if (!entry || entry->record.kind != FileRecord::Kind::Folder) return std::nullopt;
  return entry->Place();
}

std::optional<DrivePath> PathResolver::Guess(StringView path) {
  const Absolute full(path);
  const StringView absolute = full.Text();
  reason_ = FileFailure::Kind::NotFound;
  if (absolute.empty()) return std::nullopt;
  const auto [folder, name] = Split(absolute);
  std::optional<DrivePath> guess;
  if (const DrivePath* const known = Known(folder)) {
    guess = *known;
  } else {
    guess = Walk(folder, false);
  }
  if (!guess || name.empty()) return guess;
  std::optional<std::string> spelled = PathOf(*guess, name);
  if (!spelled) return std::nullopt;
  guess->path = std::move(*spelled);
  return guess;
}

}  // namespace norvo
