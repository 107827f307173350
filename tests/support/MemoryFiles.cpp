#include "support/MemoryFiles.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

#include "automation/RunTimeError.h"
#include "text/Encoding.h"
#include "text/WindowsPath.h"

namespace norvo {

struct MemoryFiles::Node {
  String name;
  bool isFolder = false;
  bool readOnly = false;
  bool denied = false;
  bool broken = false;
  FileTime created = kUsualFileTime;
  std::int64_t modified = 0;
  std::string bytes;
  std::map<String, NodeRef> children;  // by folded name

  NodeRef Child(StringView childName) const {
    const auto found = children.find(Fold(childName));
    return found == children.end() ? nullptr : found->second;
  }
};

namespace {

StringView WithoutTrailingPointsAndBlanks(StringView name) {
  while (!name.empty() && (name.back() == u'.' || name.back() == u' ')) name.remove_suffix(1);
  return name;
}

std::vector<StringView> Components(StringView path) {
  std::vector<StringView> components;
  for (std::size_t at = 0; at < path.size();) {
    const std::size_t end = std::min(path.find(u'\\', at), path.size());
    if (end > at) {
      components.push_back(WithoutTrailingPointsAndBlanks(path.substr(at, end - at)));
    }
    at = end + 1;
  }
  return components;
}

bool IsPossibleName(StringView name) {
  return !name.empty() && std::none_of(name.begin(), name.end(), [](char16_t unit) {
    return unit < 32 || StringView(u"<>:\"/\\|?*").find(unit) != StringView::npos;
  });
}

String FullPath(StringView path) {
  return AbsolutePath(path, u"C:");
}

bool EndsInSeparator(StringView path) {
  return !path.empty() && IsSeparator(path.back());
}

}  // namespace

class MemoryFiles::OpenedFile final : public BinaryFile {
 public:
  OpenedFile(NodeRef node, CallLog& calls) : node_(std::move(node)), calls_(calls) {}

  std::size_t ReadAt(std::uint64_t offset, std::span<char> buffer) override {
    calls_.Enter(u"ReadAt", node_->name);
    if (offset >= node_->bytes.size()) return 0;
    const auto from = static_cast<std::size_t>(offset);
    const std::size_t length = std::min(buffer.size(), node_->bytes.size() - from);
    if (length > 0) std::memcpy(buffer.data(), node_->bytes.data() + from, length);
    return length;
  }

  std::uint64_t Size() override {
    calls_.Enter(u"Size", node_->name);
    return node_->bytes.size();
  }

 private:
  NodeRef node_;
  CallLog& calls_;
};

class MemoryFiles::GrowingFile final : public AppendFile {
 public:
  GrowingFile(NodeRef node, CallLog& calls) : node_(std::move(node)), calls_(calls) {}

  void Append(std::string_view bytes) override {
    calls_.Enter(u"Append", node_->name);
    node_->bytes += bytes;
    ++node_->modified;
  }

 private:
  NodeRef node_;
  CallLog& calls_;
};

class MemoryFiles::CommonFile final : public SharedFile {
 public:
  CommonFile(NodeRef node, CallLog& calls) : node_(node), calls_(calls), bytes_(node, calls) {}

  std::size_t ReadAt(std::uint64_t offset, std::span<char> buffer) override {
    return bytes_.ReadAt(offset, buffer);
  }
  std::uint64_t Size() override { return bytes_.Size(); }
  void EndWith(std::uint64_t offset, std::string_view bytes) override {
    calls_.Enter(u"Append", node_->name);
    node_->bytes.resize(static_cast<std::size_t>(offset));
    node_->bytes += bytes;
    ++node_->modified;
  }

 private:
  NodeRef node_;
  CallLog& calls_;
  OpenedFile bytes_;
};

MemoryFiles::MemoryFiles(CallLog& calls) : calls_(calls) {
  AddDrive(u'C', DriveType::Fixed);
}
MemoryFiles::~MemoryFiles() = default;

void MemoryFiles::AddDrive(char16_t letter, DriveType type) {
  letter = ToUpper(letter);
  drives_[letter] = {letter, type};
  NodeRef& root = roots_[letter];
  if (root) return;
  root = std::make_shared<Node>();
  root->isFolder = true;
}

MemoryFiles::NodeRef MemoryFiles::Find(StringView path) const {
  if (path.empty()) return nullptr;
  const String full = FullPath(path);
  if (!HasDrive(full)) return nullptr;
  const auto root = roots_.find(ToUpper(full[0]));
  NodeRef node = root == roots_.end() ? nullptr : root->second;
  for (const StringView name : Components(StringView(full).substr(2))) {
    if (!node || !node->isFolder) return nullptr;
    node = node->Child(name);
  }
  return node;
}

MemoryFiles::NodeRef MemoryFiles::FindFile(StringView path) const {
  NodeRef node = EndsInSeparator(path) ? nullptr : Find(path);
  return node && !node->isFolder ? node : nullptr;
}

MemoryFiles::NodeRef MemoryFiles::RequireNode(StringView path) const {
  const NodeRef node = Find(path);
  if (!node) throw std::out_of_range(ToUtf8(path));
  return node;
}

MemoryFiles::NodeRef MemoryFiles::RequireParent(StringView path) const {
  NodeRef parent = Find(ParentFolder(FullPath(path)));
  if (!parent || !parent->isFolder) throw RunTimeError(error::kPathNotFound);
  return parent;
}

MemoryFiles::NodeRef MemoryFiles::RequireFile(StringView path) const {
  RequireParent(path);
  const NodeRef node = Find(path);
  if (!node || EndsInSeparator(path)) throw RunTimeError(error::kFileNotFound);
  if (node->isFolder) throw RunTimeError(error::kPathFileAccess);
  if (node->broken) throw RunTimeError(error::kDeviceInputOutput);
  if (node->denied) throw RunTimeError(error::kPermissionDenied);
  return node;
}

MemoryFiles::NodeRef MemoryFiles::MakeFolder(StringView path) {
  const String full = FullPath(path);
  if (!HasDrive(full)) throw RunTimeError(error::kPathNotFound);
  if (!roots_.contains(ToUpper(full[0]))) AddDrive(full[0], DriveType::Fixed);
  NodeRef node = roots_.at(ToUpper(full[0]));
  for (const StringView name : Components(StringView(full).substr(2))) {
    NodeRef& child = node->children[Fold(name)];
    if (!child) {
      child = std::make_shared<Node>();
      child->name = name;
      child->isFolder = true;
    }
    node = child;
  }
  return node;
}

void MemoryFiles::AddFile(StringView path, std::string_view bytes, FileTime created) {
  const String full = FullPath(path);
  const NodeRef folder = MakeFolder(ParentFolder(full));
  const auto node = std::make_shared<Node>();
  node->name = WithoutTrailingPointsAndBlanks(LastComponent(full));
  node->bytes = bytes;
  node->created = created;
  node->modified = NextModified();
  folder->children[Fold(node->name)] = node;
}

void MemoryFiles::AddFolder(StringView path) {
  MakeFolder(path);
}

void MemoryFiles::RemoveFile(StringView path) {
  const NodeRef node = RequireFile(path);
  RequireParent(path)->children.erase(Fold(node->name));
}

void MemoryFiles::SetReadOnly(StringView path) {
  RequireFile(path)->readOnly = true;
}

void MemoryFiles::Deny(StringView path) {
  RequireNode(path)->denied = true;
}

void MemoryFiles::Break(StringView path) {
  RequireNode(path)->broken = true;
}

void MemoryFiles::SetVersion(StringView path, StringView version) {
  versions_[Fold(FullPath(path))] = version;
}

bool MemoryFiles::HasFile(StringView path) const {
  return FindFile(path) != nullptr;
}

bool MemoryFiles::HasFolder(StringView path) const {
  const NodeRef node = Find(path);
  return node && node->isFolder;
}

const std::string& MemoryFiles::Bytes(StringView path) const {
  const NodeRef node = FindFile(path);
  if (!node) throw std::out_of_range(ToUtf8(path));
  return node->bytes;
}

std::vector<String> MemoryFiles::AllFiles() const {
  std::vector<String> paths;
  const auto collect = [&paths](const auto& self, const Node& folder, const String& path) -> void {
    for (const auto& [folded, child] : folder.children) {
      const String childPath = path + u"\\" + child->name;
      if (child->isFolder) {
        self(self, *child, childPath);
      } else {
        paths.push_back(childPath);
      }
    }
  };
  for (const auto& [letter, root] : roots_) collect(collect, *root, String{letter, u':'});
  return paths;
}

bool MemoryFiles::FolderExists(StringView path) {
  calls_.Enter(u"FolderExists", path);
  return !calls_.Overlooks() && HasFolder(path);
}

std::optional<FileFacts> MemoryFiles::FactsOf(StringView path) {
  calls_.Enter(u"FactsOf", path);
  if (calls_.Overlooks()) return std::nullopt;
  const NodeRef node = FindFile(path);
  if (!node) return std::nullopt;
  if (node->broken) throw RunTimeError(error::kDeviceInputOutput);
  return FileFacts{node->name, static_cast<double>(node->bytes.size()), node->created,
                   node->modified};
}

void MemoryFiles::CreateFolder(StringView path) {
  calls_.Enter(u"CreateFolder", path);
  String full = FullPath(path);
  while (EndsInSeparator(full) && full.size() > 3) full.pop_back();
  const StringView name = WithoutTrailingPointsAndBlanks(LastComponent(full));
  const NodeRef parent = RequireParent(full);
  if (!IsPossibleName(name) || parent->Child(name)) throw RunTimeError(error::kPathFileAccess);
  if (parent->denied) throw RunTimeError(error::kPermissionDenied);
  MakeFolder(full);
}

void MemoryFiles::RemoveFile(StringView path, bool force) {
  calls_.Enter(u"RemoveFile", path);
  const NodeRef node = RequireFile(path);
  if (node->readOnly && !force) throw RunTimeError(error::kPermissionDenied);
  RequireParent(path)->children.erase(Fold(node->name));
}

std::unique_ptr<BinaryFile> MemoryFiles::OpenForReading(StringView path) {
  calls_.Enter(u"OpenForReading", path);
  return std::make_unique<OpenedFile>(RequireFile(path), calls_);
}

std::unique_ptr<AppendFile> MemoryFiles::OpenForAppending(StringView path, bool create) {
  calls_.Enter(u"OpenForAppending", path);
  if (create && !Find(path)) {
    RequireParent(path);
    if (!IsPossibleName(LastComponent(path))) throw RunTimeError(error::kPathFileAccess);
    AddFile(path, {});
  }
  const NodeRef node = RequireFile(path);
  if (node->readOnly) throw RunTimeError(error::kPermissionDenied);
  return std::make_unique<GrowingFile>(node, calls_);
}

std::unique_ptr<SharedFile> MemoryFiles::OpenShared(StringView path) {
  calls_.Enter(u"OpenShared", path);
  if (!Find(path)) AddFile(path, {});
  const NodeRef node = RequireFile(path);
  if (node->readOnly) throw RunTimeError(error::kPermissionDenied);
  return std::make_unique<CommonFile>(node, calls_);
}

void MemoryFiles::MakeDurable(std::span<const String> paths) {
  for (const String& path : paths) calls_.Enter(u"MakeDurable", path);
}

std::vector<FolderItem> MemoryFiles::ListFolder(StringView path,
                                                std::span<const StringView> endings) {
  calls_.Enter(u"ListFolder", path);
  const NodeRef folder = Find(path);
  if (!folder || !folder->isFolder) throw RunTimeError(error::kPathNotFound);
  if (folder->denied) throw RunTimeError(error::kPermissionDenied);
  std::vector<FolderItem> items;
  for (const auto& [folded, child] : folder->children) {
    const String& name = child->name;
    const bool wanted = child->isFolder || endings.empty() ||
                        std::any_of(endings.begin(), endings.end(), [&name](StringView ending) {
                          return EndsWithIgnoreCase(name, ending);
                        });
    if (wanted) items.push_back({name, child->isFolder});
  }
  std::reverse(items.begin(), items.end());
  return items;
}

String MemoryFiles::AbsolutePathName(StringView path) {
  calls_.Enter(u"AbsolutePathName", path);
  return FullPath(path);
}

DriveType MemoryFiles::TypeOfDrive(StringView path) {
  calls_.Enter(u"TypeOfDrive", path);
  if (!HasDrive(path)) return DriveType::Unknown;
  const auto found = drives_.find(ToUpper(path[0]));
  return found == drives_.end() ? DriveType::Unknown : found->second.type;
}

std::vector<Drive> MemoryFiles::Drives() {
  calls_.Enter(u"Drives");
  std::vector<Drive> drives;
  for (const auto& [letter, drive] : drives_) drives.push_back(drive);
  return drives;
}

String MemoryFiles::FileVersion(StringView path) {
  calls_.Enter(u"FileVersion", path);
  const auto found = versions_.find(Fold(FullPath(path)));
  return found == versions_.end() ? String() : found->second;
}

String MemoryFiles::SystemFolder() {
  calls_.Enter(u"SystemFolder");
  return u"C:\\WINDOWS\\system32\\";
}

Date MemoryFiles::LocalDate(FileTime time) {
  calls_.Enter(u"LocalDate");
  constexpr double kDaysFrom1899To1970 = 25569;
  return {static_cast<double>(time) / 86400 + kDaysFrom1899To1970};
}

std::optional<std::string> MemoryFiles::Read(StringView path) {
  calls_.Enter(u"Settings.Read", path);
  const NodeRef node = Find(path);
  if (!node) return std::nullopt;
  return RequireFile(path)->bytes;
}

void MemoryFiles::Write(StringView path, const std::string& bytes) {
  calls_.Enter(u"Settings.Write", path);
  if (!IsPossibleName(LastComponent(path))) throw RunTimeError(error::kPathFileAccess);
  if (const NodeRef node = Find(path)) {
    if (node->isFolder) throw RunTimeError(error::kPathFileAccess);
    if (node->readOnly || node->denied) throw RunTimeError(error::kPermissionDenied);
    node->bytes = bytes;
    node->modified = NextModified();
    return;
  }
  if (!roots_.contains(ToUpper(FullPath(path)[0]))) throw RunTimeError(error::kPathNotFound);
  AddFile(path, bytes);
}

}  // namespace norvo
