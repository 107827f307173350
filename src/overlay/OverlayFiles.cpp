#include "overlay/OverlayFiles.h"

#include <algorithm>
#include <chrono>

#include "automation/RunTimeError.h"
#include "services/TextStream.h"
#include "text/Encoding.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

[[noreturn]] void Raise(std::int32_t number, StringView path) {
  throw RunTimeError(number, String(DescriptionOf(number)).append(u": ").append(path));
}

// What the disks of all systems take; it also bounds the work that a hostile path can cause.
constexpr std::size_t kLongestPath = 4096;
constexpr std::size_t kLongestName = 255;  // bytes

void RequirePossibleName(StringView path) {
  const StringView name = WithoutTrail(LastComponent(path));
  const bool possible = !name.empty() && IsWholeUtf16(name) &&
                        std::none_of(name.begin(), name.end(), IsAsciiControl) &&
                        ToUtf8(name).size() <= kLongestName && path.size() <= kLongestPath;
  if (!possible) Raise(error::kPathFileAccess, path);
}

std::int64_t Now() {
  using std::chrono::nanoseconds;
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  return std::chrono::duration_cast<nanoseconds>(now).count();
}

FileTime InSeconds(std::int64_t nanoseconds) {
  return nanoseconds / 1'000'000'000;
}

/// A path in full of which nothing is to be dropped, which is the usual case.
bool IsPlaceAlready(StringView path) {
  if (!IsAbsolutePath(path) || IsSeparator(path.back())) return false;
  return !AnyNeighbours(path, 1, [](char16_t before, char16_t unit) -> std::uint16_t {
    const std::uint16_t ends = unit == u'\\';
    const std::uint16_t point = before == u'.';
    const std::uint16_t blank = before == u' ';
    return ends & (point | blank);
  });
}

}  // namespace

/// The file is open as long as this.
class OverlayFiles::Use {
 public:
  explicit Use(Content content) : content_(std::move(content)) { content_->Open(); }
  Use(const Use&) = delete;
  Use& operator=(const Use&) = delete;
  ~Use() { content_->Close(); }

  WrittenFile* operator->() const { return content_.get(); }

 private:
  Content content_;
};

class OverlayFiles::OpenedFile final : public BinaryFile {
 public:
  explicit OpenedFile(Content content) : content_(std::move(content)) {}

  std::size_t ReadAt(std::uint64_t offset, std::span<char> buffer) override {
    const std::string_view bytes = content_->OpenedBytes();
    if (offset >= bytes.size()) return 0;
    return bytes.copy(buffer.data(), buffer.size(), static_cast<std::size_t>(offset));
  }
  std::uint64_t Size() override { return content_->Size(); }

 private:
  Use content_;
};

class OverlayFiles::GrowingFile final : public AppendFile {
 public:
  explicit GrowingFile(Content content) : content_(std::move(content)) {}

  void Append(std::string_view bytes) override { content_->Append(bytes, Now()); }

 private:
  Use content_;
};

StringView OverlayFiles::Place::Folder() const {
  return StringView(path).substr(0, path.rfind(u'\\') + 1);
}

/// Visits keys and paths of the folders above, the innermost first.
template <class Visit>
void OverlayFiles::ForEachFolderAbove(const Place& place, Visit&& visit) {
  const StringView path = place.path;
  const StringView key = place.key;
  for (std::size_t end = path.rfind(u'\\'); end != StringView::npos && end > 0;
       end = path.rfind(u'\\', end - 1)) {
    visit(key.substr(0, end), path.substr(0, end));
  }
}

OverlayFiles::Place OverlayFiles::PlaceOf(StringView path) const {
  Place place;
  if (path.empty()) return place;
  if (IsPlaceAlready(path)) return {String(path), Fold(path), false};
  const String absolute = below_.Files().AbsolutePathName(path);
  StringView rest = absolute;
  while (!rest.empty()) {
    const StringView component = rest.substr(0, rest.find(u'\\'));
    const StringView name = WithoutTrail(component);
    place.path += name.empty() ? component : name;  // nothing but points: no name that can exist
    rest.remove_prefix(component.size());
    place.asFolder = rest == u"\\";
    if (rest.empty() || place.asFolder) break;
    place.path += u'\\';
    rest.remove_prefix(1);
  }
  place.key = Fold(place.path);
  return place;
}

bool OverlayFiles::Found::IsFolder() const {
  return folder != nullptr || (node != nullptr && node->kind == Node::Kind::Folder);
}

bool OverlayFiles::Found::IsFile() const {
  return file != nullptr || (node != nullptr && node->kind == Node::Kind::File);
}

const OverlayFiles::PretendedFolder::Files::value_type* OverlayFiles::FindPretended(
    const Place& place) const {
  const auto folder = pretended_.find(place.FolderKey());
  if (folder == pretended_.end()) return nullptr;
  const auto file = folder->second.files.find(place.Name());
  return file == folder->second.files.end() ? nullptr : &*file;
}

OverlayFiles::Found OverlayFiles::Find(const Place& place) const {
  if (place.key.empty()) return {};
  if (const auto folder = pretended_.find(place.key); folder != pretended_.end()) {
    return {&folder->second, nullptr, nullptr};
  }
  if (const auto* const file = FindPretended(place)) return {nullptr, file, nullptr};
  const auto found = written_.find(place.key);
  return {nullptr, nullptr, found == written_.end() ? nullptr : &found->second};
}

/// Raises when the path names no file; finds nothing when the machine below is to be asked.
OverlayFiles::Found OverlayFiles::RequireFile(StringView path) {
  const Place place = PlaceOf(path);
  const Found found = Find(place);
  if (found.IsAny() && (place.asFolder || !found.IsFile())) RaiseMissing(path);
  return found;
}

void OverlayFiles::RaiseMissing(StringView path) {
  const bool folderThere = FolderExists(PlaceOf(path).Folder());
  Raise(folderThere ? error::kFileNotFound : error::kPathNotFound, path);
}

/// The folder and those above it, as far as neither the machine nor a creation has them. Raises
/// when they cannot be created.
std::vector<OverlayFiles::Place> OverlayFiles::MissingFolders(StringView folder) {
  std::vector<Place> missing;
  for (Place place = PlaceOf(folder);; place = PlaceOf(missing.back().Folder())) {
    if (!HasDrive(place.path)) Raise(error::kPathNotFound, folder);
    const auto known = written_.find(place.key);
    const bool there = known == written_.end() ? FolderExistsBelow(place, place.path + u'\\')
                                               : known->second.kind == Node::Kind::Folder;
    if (there) return missing;
    if (FactsOf(place.path)) Raise(error::kPathFileAccess, place.path);
    // A root is asked for its drive, not for its name.
    if (!place.Folder().empty()) RequirePossibleName(place.path);
    missing.push_back(std::move(place));
  }
}

void OverlayFiles::CreateFolders(StringView path) {
  for (Place& place : MissingFolders(path)) {
    written_[place.key] = {Node::Kind::Folder, std::move(place.path), {}, 0};
  }
}

void OverlayFiles::RequireFreeForFile(StringView path, const Place& place) {
  if (path.empty() || place.asFolder || FolderExists(path)) Raise(error::kPathFileAccess, path);
  RequirePossibleName(place.path);
}

/// Keeps the file, which takes the place of a pretended one. A file that is replaced keeps its
/// spelling.
OverlayFiles::Content OverlayFiles::Keep(const Place& place, WrittenFile content) {
  CreateFolders(place.Folder());
  const std::optional<FileFacts> before = FactsOf(place.path);
  Node& node = written_[place.key];
  if (node.order == 0) node.order = ++lastOrder_;
  if (!node.content) node.path = before ? String(place.Folder()) + before->name : place.path;
  node.kind = Node::Kind::File;
  node.content = std::make_shared<WrittenFile>(std::move(content));
  TakeBack(place);
  return node.content;
}

void OverlayFiles::Pretend(StringView path, const FileFacts& facts) {
  Place place = PlaceOf(path);
  RequireFreeForFile(path, place);
  // A folder above another pretended file can be created.
  if (!pretended_.contains(place.FolderKey())) MissingFolders(place.Folder());
  const bool isSpelled = EqualsIgnoreCase(facts.name, place.Name());
  TakeBack(place);
  ForEachFolderAbove(place, [this](StringView key, StringView folder) {
    const auto above = pretended_.try_emplace(String(key)).first;
    if (above->second.count++ > 0) return;
    above->second.path = folder;
    pretendedKeys_.insert(above->first);
  });
  pretended_[String(place.FolderKey())].files.emplace(
      isSpelled ? facts.name : String(place.Name()),
      Pretended{facts.size, facts.created, facts.modified});
}

void OverlayFiles::TakeBack(const Place& place) {
  const auto* const file = FindPretended(place);
  if (file == nullptr) return;
  PretendedFolder::Files& files = pretended_.find(place.FolderKey())->second.files;
  files.erase(files.find(file->first));
  ForEachFolderAbove(place, [this](StringView key, StringView) {
    const auto above = pretended_.find(key);
    if (--above->second.count > 0) return;
    pretendedKeys_.erase(above->first);
    pretended_.erase(above);
  });
}

void OverlayFiles::TakeBackAll() {
  pretendedKeys_.clear();
  pretended_ = Table<PretendedFolder>();
}

std::optional<std::string> OverlayFiles::Written(StringView path) const {
  const auto found = written_.find(PlaceOf(path).key);
  if (found == written_.end() || !found->second.content) return std::nullopt;
  return found->second.content->Bytes();
}

std::vector<String> OverlayFiles::WrittenPaths() const {
  std::map<std::size_t, StringView> ordered;
  for (const auto& [key, node] : written_) {
    if (node.kind == Node::Kind::File) ordered.emplace(node.order, node.path);
  }
  std::vector<String> paths;
  for (const auto& [order, path] : ordered) paths.emplace_back(path);
  return paths;
}

void OverlayFiles::Forget() {
  // An assignment of {} would keep the rooms.
  foldersBelow_ = Table<bool>();
  factsBelow_ = Table<FileFacts>();
  missingBelow_ = std::unordered_set<Fingerprint, FingerprintHash>();
}

/// As far as that has been asked: what is not there holds nothing either.
bool OverlayFiles::IsInMissingFolder(const Place& place) const {
  bool isMissing = false;
  ForEachFolderAbove(place, [&](StringView key, StringView) {
    if (isMissing) return;
    const auto folder = foldersBelow_.find(key);
    isMissing = folder != foldersBelow_.end() && !folder->second;
  });
  return isMissing;
}

bool OverlayFiles::FolderExistsBelow(const Place& place, StringView path) {
  if (!remembers_ || place.key.empty()) return below_.Files().FolderExists(path);
  const auto known = foldersBelow_.find(place.key);
  if (known != foldersBelow_.end()) return known->second;
  if (IsInMissingFolder(place)) return false;
  // A look that fails for a moment shall not hide all that the folder has: it is taken twice.
  const bool exists = below_.Files().FolderExists(path) || below_.Files().FolderExists(path);
  foldersBelow_.emplace(place.key, exists);
  return exists;
}

std::optional<FileFacts> OverlayFiles::FactsBelow(const Place& place, StringView path) {
  if (!remembers_ || place.key.empty() || place.asFolder) return below_.Files().FactsOf(path);
  const auto known = factsBelow_.find(place.key);
  if (known != factsBelow_.end()) return known->second;
  const Fingerprint print = FingerprintOf(place.key);
  if (missingBelow_.contains(print)) return std::nullopt;
  std::optional<FileFacts> facts;
  if (!IsInMissingFolder(place)) {
    facts = below_.Files().FactsOf(path);
    if (!facts) FindMissingFolders(place);
    // What a look has missed for a moment would be taken for free.
    if (!facts && !IsInMissingFolder(place)) facts = below_.Files().FactsOf(path);
  }
  if (facts) {
    factsBelow_.emplace(place.key, *facts);
  } else {
    missingBelow_.insert(print);
  }
  return facts;
}

/// A file that is not there is mostly one of many in a folder that is not there either, as at the
/// addresses that songs had: the others need not be asked for.
void OverlayFiles::FindMissingFolders(const Place& file) {
  bool isThere = false;
  ForEachFolderAbove(file, [&](StringView key, StringView folder) {
    if (isThere) return;
    const Place place{String(folder), String(key), false};
    isThere = FolderExistsBelow(place, place.path + u'\\');
  });
}

bool OverlayFiles::FolderExists(StringView path) {
  const Place place = PlaceOf(path);
  const Found found = Find(place);
  return found.IsAny() ? found.IsFolder() : FolderExistsBelow(place, path);
}

std::optional<FileFacts> OverlayFiles::FactsOf(StringView path) {
  const Place place = PlaceOf(path);
  const Found found = Find(place);
  if (!found.IsAny()) return FactsBelow(place, path);
  if (place.asFolder || !found.IsFile()) return std::nullopt;
  if (found.file != nullptr) {
    const auto& [name, pretended] = *found.file;
    return FileFacts{name, pretended.size, pretended.created, pretended.modified};
  }
  const WrittenFile& content = *found.node->content;
  return FileFacts{String(LastComponent(found.node->path)), static_cast<double>(content.Size()),
                   content.Created(), content.Modified()};
}

void OverlayFiles::CreateFolder(StringView path) {
  const Place place = PlaceOf(path);
  if (FolderExists(path) || FactsOf(place.path)) Raise(error::kPathFileAccess, path);
  if (!FolderExists(place.Folder())) Raise(error::kPathNotFound, path);
  CreateFolders(path);
}

void OverlayFiles::RemoveFile(StringView path, bool) {
  const Place place = PlaceOf(path);
  const bool isBelow = below_.Files().FileExists(path);
  if (!RequireFile(path).IsAny() && !isBelow) RaiseMissing(path);
  TakeBack(place);
  written_.erase(place.key);
  if (isBelow) written_[place.key] = {Node::Kind::Deleted, place.path, {}, 0};
}

std::unique_ptr<BinaryFile> OverlayFiles::OpenForReading(StringView path) {
  if (const Found found = RequireFile(path); found.IsAny()) {
    if (!found.Written()) Raise(error::kDeviceInputOutput, path);
    return std::make_unique<OpenedFile>(found.Written());
  }
  try {
    return below_.Files().OpenForReading(path);
  } catch (const RunTimeError& failure) {
    // The file's folder may have been created here.
    if (failure.Number() == error::kPathNotFound) RaiseMissing(path);
    throw;
  }
}

std::unique_ptr<AppendFile> OverlayFiles::OpenForAppending(StringView path, bool create) {
  const Place place = PlaceOf(path);
  if (const std::optional<FileFacts> facts = FactsOf(path)) {
    const Found found = Find(place);
    if (found.IsAny() && !found.Written()) Raise(error::kDeviceInputOutput, path);
    if (found.IsAny()) return std::make_unique<GrowingFile>(found.Written());
    std::string bytes = ReadWholeFile(*below_.Files().OpenForReading(path));
    return std::make_unique<GrowingFile>(
        Keep(place, {std::move(bytes), facts->created, facts->modified}));
  }
  if (!create || path.empty() || IsSeparator(path.back())) RaiseMissing(path);
  if (FolderExists(path)) Raise(error::kPathFileAccess, path);
  if (!FolderExists(place.Folder())) Raise(error::kPathNotFound, path);
  RequirePossibleName(place.path);
  const std::int64_t now = Now();
  return std::make_unique<GrowingFile>(Keep(place, {{}, InSeconds(now), now}));
}

/// What was written or pretended in a folder, by the names in upper case.
OverlayFiles::Tree OverlayFiles::ChildrenOf(const Place& folder) const {
  const String prefix = folder.key + u'\\';
  Tree children;
  const auto add = [&](const String& key, StringView path, Node::Kind kind) {
    const std::size_t end = key.find(u'\\', prefix.size());
    const bool direct = end == String::npos;
    const std::size_t length = direct ? end : end - prefix.size();
    Node child;
    child.kind = direct ? kind : Node::Kind::Folder;
    child.path = path.substr(prefix.size(), length);
    children.try_emplace(key.substr(prefix.size(), length), std::move(child));
  };
  if (const auto own = pretended_.find(folder.key); own != pretended_.end()) {
    for (const auto& [name, file] : own->second.files) {
      add(prefix + Fold(name), prefix + name, Node::Kind::File);
    }
  }
  for (auto at = pretendedKeys_.lower_bound(prefix);
       at != pretendedKeys_.end() && at->starts_with(prefix); ++at) {
    const String key(*at);
    add(key, pretended_.find(key)->second.path, Node::Kind::Folder);
  }
  for (auto at = written_.lower_bound(prefix);
       at != written_.end() && at->first.starts_with(prefix); ++at) {
    add(at->first, at->second.path, at->second.kind);
  }
  return children;
}

std::vector<FolderItem> OverlayFiles::ListFolder(StringView path,
                                                 std::span<const StringView> endings) {
  const Place folder = PlaceOf(path);
  const Found found = Find(folder);
  if (found.IsAny() && !found.IsFolder()) Raise(error::kPathNotFound, path);
  std::vector<FolderItem> items;
  if (!found.IsAny() || below_.Files().FolderExists(path)) {
    items = below_.Files().ListFolder(path, endings);
  }
  const Tree children = ChildrenOf(folder);
  std::erase_if(items, [&](const FolderItem& item) {
    return !item.isFolder && children.contains(Fold(WithoutTrail(item.name)));
  });
  for (const auto& [key, child] : children) {
    if (child.kind == Node::Kind::File) {
      if (HasWantedEnding(child.path, endings)) items.push_back({child.path, false});
    } else if (child.kind == Node::Kind::Folder &&
               // Whether a folder below is listed is for the machine to say.
               !below_.Files().FolderExists(folder.path + u'\\' + child.path)) {
      items.push_back({child.path, true});
    }
  }
  return items;
}

String OverlayFiles::FileVersion(StringView path) {
  return Find(PlaceOf(path)).IsAny() ? String() : below_.Files().FileVersion(path);
}

std::optional<std::string> OverlayFiles::Read(StringView path) {
  const Place place = PlaceOf(path);
  const Found found = Find(place);
  if (!found.IsAny()) return below_.Settings().Read(path);
  if (place.asFolder || !found.IsFile()) return std::nullopt;
  if (!found.Written()) Raise(error::kDeviceInputOutput, path);
  return found.Written()->Bytes();
}

void OverlayFiles::Write(StringView path, const std::string& bytes) {
  const Place place = PlaceOf(path);
  RequireFreeForFile(path, place);
  const std::int64_t now = Now();
  Keep(place, WrittenFile::Whole(bytes, InSeconds(now), now));
}

}  // namespace norvo
