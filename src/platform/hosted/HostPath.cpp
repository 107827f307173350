#include "platform/hosted/HostPath.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include "platform/hosted/HostName.h"
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

const HostPlace* HostPathResolver::Known(StringView folder) {
  // A file is looked up and then opened: the same folder twice.
  if (lastKnown_ != known_.end() && lastKnown_->first == folder) return &lastKnown_->second;
  lastKnown_ = known_.find(folder);
  return lastKnown_ == known_.end() ? nullptr : &lastKnown_->second;
}

void HostPathResolver::Remember(StringView folder, const HostPlace& place) {
  if (known_.size() >= kMostKnownFolders) known_.clear();
  known_.insert_or_assign(String(WithoutSeparator(folder)), place);
  lastKnown_ = known_.end();
}

void HostPathResolver::Written(const HostPlace& file) {
  listings_.Written(*file.drive, HostParent(file.path), HostLeaf(file.path));
}

std::optional<HostEntry> HostPathResolver::FollowLink(const HostDrive& drive, std::string place) {
  std::optional<std::string> target = drive.Canonical(place);
  if (!target) return std::nullopt;
  const std::optional<HostFacts> facts = LookUp(drive.Root(), *target);
  if (!facts || facts->kind == HostFacts::Kind::Link) return std::nullopt;
  return HostEntry{&drive, std::move(place), std::move(*target), true, *facts};
}

std::optional<HostEntry> HostPathResolver::Step(const HostPlace& folder, StringView name) {
  reason_ = ENOENT;
  const std::optional<std::string> spelled = ToHostName(name);
  if (!spelled) return std::nullopt;
  std::string place = JoinHost(folder.path, *spelled);
  std::optional<HostFacts> facts = LookUp(folder.drive->Root(), place);
  if (!facts) {
    reason_ = errno;
    if (reason_ != ENOENT) return std::nullopt;
    const std::string other = listings_.Find(*folder.drive, folder.path, name);
    if (other.empty()) return std::nullopt;
    place = JoinHost(folder.path, other);
    facts = LookUp(folder.drive->Root(), place);
    if (!facts) return std::nullopt;
  }
  if (facts->kind == HostFacts::Kind::Link) return FollowLink(*folder.drive, std::move(place));
  return HostEntry{folder.drive, std::move(place), {}, false, *facts};
}

std::optional<HostPlace> HostPathResolver::Walk(StringView folder, bool fromRoot) {
  const HostDrive* const drive = drives_.Find(folder.front());
  reason_ = ENOENT;
  if (drive == nullptr || drive->Root() < 0) return std::nullopt;
  constexpr std::size_t kDriveName = 2;
  HostPlace place{drive, {}};
  bool trusted = false;  // some folder was not looked at again
  // Downward from the root: a path of thousands of names ends at the first that does not exist.
  for (std::size_t done = kDriveName; done < folder.size();) {
    const std::size_t end = std::min(folder.find(u'\\', done + 1), folder.size());
    const StringView path = folder.substr(0, end);
    const HostPlace* const known = fromRoot ? nullptr : Known(path);
    if (known != nullptr) {
      place = *known;
      trusted = true;
    } else {
      std::optional<HostEntry> entry = Step(place, path.substr(done + 1));
      if (!entry || entry->facts.kind != HostFacts::Kind::Folder) {
        // What was known of the folders above may be old.
        return trusted ? Walk(folder, true) : std::nullopt;
      }
      place.path = entry->isLink ? std::move(entry->target) : std::move(entry->place);
      Remember(path, place);
    }
    done = end;
  }
  return place;
}

/// A name that is not in the folder as it was known: the path may lead to another one by now.
std::optional<HostEntry> HostPathResolver::StepAnew(StringView folder, HostPlace known,
                                                    StringView name) {
  const int reason = reason_;
  const std::optional<HostPlace> walked = Walk(folder, true);
  if (!walked) return std::nullopt;
  reason_ = reason;
  // The way to the folder is still the same: so is the answer.
  return walked->path == known.path ? std::nullopt : Step(*walked, name);
}

std::optional<HostEntry> HostPathResolver::Find(StringView path) {
  const Absolute full(path);
  const StringView absolute = full.Text();
  reason_ = ENOENT;
  if (absolute.empty()) return std::nullopt;
  const auto [folder, name] = Split(absolute);
  if (name.empty()) {
    const HostDrive* const drive = drives_.Find(absolute.front());
    const std::optional<HostFacts> facts =
        drive == nullptr || drive->Root() < 0 ? std::nullopt : LookUp(drive->Root(), {});
    return facts ? std::optional(HostEntry{drive, {}, {}, false, *facts}) : std::nullopt;
  }
  const bool asFolder = absolute.back() == u'\\';
  std::optional<HostEntry> entry;
  if (const HostPlace* const known = Known(folder)) {
    entry = Step(*known, name);
    if (!entry) entry = StepAnew(folder, *known, name);
  } else if (const std::optional<HostPlace> walked = Walk(folder, false)) {
    entry = Step(*walked, name);
  }
  if (entry && asFolder && entry->facts.kind != HostFacts::Kind::Folder) return std::nullopt;
  return entry;
}

std::optional<HostPlace> HostPathResolver::FindFolder(StringView path) {
  std::optional<HostEntry> entry = Find(path);
  if (!entry || entry->facts.kind != HostFacts::Kind::Folder) return std::nullopt;
  return HostPlace{entry->drive, entry->Path()};
}

std::optional<HostPlace> HostPathResolver::Guess(StringView path) {
  const Absolute full(path);
  const StringView absolute = full.Text();
  reason_ = ENOENT;
  if (absolute.empty()) return std::nullopt;
  const auto [folder, name] = Split(absolute);
  std::optional<HostPlace> place;
  if (const HostPlace* const known = Known(folder)) {
    place = *known;
  } else {
    place = Walk(folder, false);
  }
  if (!place || name.empty()) return place;
  const std::optional<std::string> spelled = ToHostName(name);
  if (!spelled) return std::nullopt;
  place->path = JoinHost(place->path, *spelled);
  return place;
}

}  // namespace norvo
