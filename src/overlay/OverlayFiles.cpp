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
  char16_t before = u'\0';
  for (const char16_t unit : path) {
    if (unit == u'\\' && (before == u'.' || before == u' ')) return false;
    before = unit;
  }
  return true;
}

/// Visits the keys of the folders above a key, the innermost first.
template <class Visit>
void ForEachKeyAbove(StringView key, Visit&& visit) {
  for (std::size_t end = key.rfind(u'\\'); end != StringView::npos && end > 0;
       end = key.rfind(u'\\', end - 1)) {
    visit(String(key.substr(0, end)));
  }
}

}  // namespace

class OverlayFiles::OpenedFile final : public BinaryFile {
 public:
  explicit OpenedFile(std::shared_ptr<const Content> content) : content_(std::move(content)) {}

  std::size_t ReadAt(std::uint64_t offset, std::span<char> buffer) override {
    const std::string& bytes = content_->bytes;
    if (offset >= bytes.size()) return 0;
    return bytes.copy(buffer.data(), buffer.size(), static_cast<std::size_t>(offset));
  }
  std::uint64_t Size() override { return content_->bytes.size(); }

 private:
  std::shared_ptr<const Content> content_;
};

class OverlayFiles::GrowingFile final : public AppendFile {
 public:
  explicit GrowingFile(std::shared_ptr<Content> content) : content_(std::move(content)) {}

  void Append(std::string_view bytes) override {
    content_->bytes += bytes;
    content_->modified = Now();
  }

 private:
  std::shared_ptr<Content> content_;
};

StringView OverlayFiles::Place::Folder() const {
  return StringView(path).substr(0, path.rfind(u'\\') + 1);
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

/// What was written or pretended there; null when the machine below is to be asked.
const OverlayFiles::Node* OverlayFiles::Find(const Place& place) const {
  if (place.key.empty()) return nullptr;
  static const Node kPretendedFolder;
  if (pretendedFolders_.contains(place.key)) return &kPretendedFolder;
  if (const auto found = pretended_.find(place.key); found != pretended_.end()) {
    return &found->second;
  }
  const auto found = written_.find(place.key);
  return found == written_.end() ? nullptr : &found->second;
}

/// Raises when the path names no file; null when the machine below is to be asked.
const OverlayFiles::Node* OverlayFiles::RequireFile(StringView path) {
  const Place place = PlaceOf(path);
  const Node* const node = Find(place);
  if (node != nullptr && (place.asFolder || node->kind != Node::Kind::File)) RaiseMissing(path);
  return node;
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
    written_[place.key] = {Node::Kind::Folder, std::move(place.path), {}, {}, 0};
  }
}

void OverlayFiles::RequireFreeForFile(StringView path, const Place& place) {
  if (path.empty() || place.asFolder || FolderExists(path)) Raise(error::kPathFileAccess, path);
  RequirePossibleName(place.path);
}

/// Keeps the file, which takes the place of a pretended one. A file that is replaced keeps its
/// spelling.
std::shared_ptr<OverlayFiles::Content> OverlayFiles::Keep(const Place& place, Content content) {
  CreateFolders(place.Folder());
  const std::optional<FileFacts> before = FactsOf(place.path);
  Node& node = written_[place.key];
  if (node.order == 0) node.order = ++lastOrder_;
  if (!node.content) node.path = before ? String(place.Folder()) + before->name : place.path;
  node.kind = Node::Kind::File;
  node.content = std::make_shared<Content>(std::move(content));
  TakeBack(place);
  return node.content;
}

void OverlayFiles::Pretend(StringView path, const FileFacts& facts) {
  Place place = PlaceOf(path);
  RequireFreeForFile(path, place);
  // A folder above another pretended file can be created.
  const bool isKnown = pretendedFolders_.contains(place.key.substr(0, place.key.rfind(u'\\')));
  if (!isKnown) MissingFolders(place.Folder());
  if (EqualsIgnoreCase(facts.name, LastComponent(place.path))) {
    place.path = String(place.Folder()) + facts.name;
  }
  const auto [pretended, isNew] = pretended_.try_emplace(place.key);
  Node& node = pretended->second = {Node::Kind::File, std::move(place.path), {}, facts, 0};
  node.facts.name = LastComponent(node.path);
  if (!isNew) return;
  pretendedKeys_.insert(pretended->first);
  ForEachKeyAbove(place.key, [this](const String& folder) { ++pretendedFolders_[folder]; });
}

void OverlayFiles::TakeBack(const Place& place) {
  pretendedKeys_.erase(place.key);
  if (pretended_.erase(place.key) == 0) return;
  ForEachKeyAbove(place.key, [this](const String& folder) {
    const auto counted = pretendedFolders_.find(folder);
    if (--counted->second == 0) pretendedFolders_.erase(counted);
  });
}

void OverlayFiles::TakeBackAll() {
  pretendedKeys_.clear();
  pretended_.clear();
  pretendedFolders_.clear();
}

std::optional<std::string> OverlayFiles::Written(StringView path) const {
  const auto found = written_.find(PlaceOf(path).key);
  if (found == written_.end() || !found->second.content) return std::nullopt;
  return found->second.content->bytes;
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
  foldersBelow_.clear();
  factsBelow_.clear();
}

/// As far as that has been asked: what is not there holds nothing either.
bool OverlayFiles::IsInMissingFolder(const Place& place) const {
  const auto parent = foldersBelow_.find(place.key.substr(0, place.key.rfind(u'\\')));
  return parent != foldersBelow_.end() && !parent->second;
}

bool OverlayFiles::FolderExistsBelow(const Place& place, StringView path) {
  if (!remembers_ || place.key.empty()) return below_.Files().FolderExists(path);
  const auto known = foldersBelow_.find(place.key);
  if (known != foldersBelow_.end()) return known->second;
  const bool exists = !IsInMissingFolder(place) && below_.Files().FolderExists(path);
  foldersBelow_.emplace(place.key, exists);
  return exists;
}

std::optional<FileFacts> OverlayFiles::FactsBelow(const Place& place, StringView path) {
  if (!remembers_ || place.key.empty() || place.asFolder) return below_.Files().FactsOf(path);
  const auto known = factsBelow_.find(place.key);
  if (known != factsBelow_.end()) return known->second;
  std::optional<FileFacts> facts;
  if (!IsInMissingFolder(place)) facts = below_.Files().FactsOf(path);
  factsBelow_.emplace(place.key, facts);
  return facts;
}

bool OverlayFiles::FolderExists(StringView path) {
  const Place place = PlaceOf(path);
  const Node* const node = Find(place);
  return node == nullptr ? FolderExistsBelow(place, path) : node->kind == Node::Kind::Folder;
}

std::optional<FileFacts> OverlayFiles::FactsOf(StringView path) {
  const Place place = PlaceOf(path);
  const Node* const node = Find(place);
  if (node == nullptr) return FactsBelow(place, path);
  if (place.asFolder || node->kind != Node::Kind::File) return std::nullopt;
  if (!node->content) return node->facts;
  const Content& content = *node->content;
  return FileFacts{String(LastComponent(node->path)), static_cast<double>(content.bytes.size()),
                   content.created, content.modified};
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
  if (RequireFile(path) == nullptr && !isBelow) RaiseMissing(path);
  TakeBack(place);
  written_.erase(place.key);
  if (isBelow) written_[place.key] = {Node::Kind::Deleted, place.path, {}, {}, 0};
}

std::unique_ptr<BinaryFile> OverlayFiles::OpenForReading(StringView path) {
  if (const Node* const node = RequireFile(path)) {
    if (!node->content) Raise(error::kDeviceInputOutput, path);
    return std::make_unique<OpenedFile>(node->content);
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
    const Node* const node = Find(place);
    if (node != nullptr && !node->content) Raise(error::kDeviceInputOutput, path);
    if (node != nullptr) return std::make_unique<GrowingFile>(node->content);
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
  const auto add = [&](const String& key, const Node& node) {
    const std::size_t end = key.find(u'\\', prefix.size());
    const bool direct = end == String::npos;
    const std::size_t length = direct ? end : end - prefix.size();
    Node child;
    child.kind = direct ? node.kind : Node::Kind::Folder;
    child.path = node.path.substr(prefix.size(), length);
    children.try_emplace(key.substr(prefix.size(), length), std::move(child));
  };
  for (auto at = pretendedKeys_.lower_bound(prefix);
       at != pretendedKeys_.end() && at->starts_with(prefix); ++at) {
    const auto pretended = pretended_.find(String(*at));
    add(pretended->first, pretended->second);
  }
  for (auto at = written_.lower_bound(prefix);
       at != written_.end() && at->first.starts_with(prefix); ++at) {
    add(at->first, at->second);
  }
  return children;
}

std::vector<FolderItem> OverlayFiles::ListFolder(StringView path,
                                                 std::span<const StringView> endings) {
  const Place folder = PlaceOf(path);
  const Node* const node = Find(folder);
  if (node != nullptr && node->kind != Node::Kind::Folder) Raise(error::kPathNotFound, path);
  std::vector<FolderItem> items;
  if (node == nullptr || below_.Files().FolderExists(path)) {
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
  return Find(PlaceOf(path)) == nullptr ? below_.Files().FileVersion(path) : String();
}

std::optional<std::string> OverlayFiles::Read(StringView path) {
  const Place place = PlaceOf(path);
  const Node* const node = Find(place);
  if (node == nullptr) return below_.Settings().Read(path);
  if (place.asFolder || node->kind != Node::Kind::File) return std::nullopt;
  if (!node->content) Raise(error::kDeviceInputOutput, path);
  return node->content->bytes;
}

void OverlayFiles::Write(StringView path, const std::string& bytes) {
  const Place place = PlaceOf(path);
  RequireFreeForFile(path, place);
  const std::int64_t now = Now();
  Keep(place, {bytes, InSeconds(now), now});
}

}  // namespace norvo
