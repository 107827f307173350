#include <algorithm>
#include <array>

#include "platform/files/DiskPath.h"
#include "platform/files/FileError.h"
#include "platform/hosted/DiskName.h"
#include "platform/hosted/HostedFileSystem.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

char LowerAscii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

/// The endings of the wanted names, compared on the bytes of the disk: of the many names in a
/// large folder only the wanted ones become text.
class EndingFilter {
 public:
  explicit EndingFilter(std::span<const StringView> endings) : passesAll_(endings.empty()) {
    for (const StringView ending : endings) {
      std::string bytes = ToUtf8(ending);
      std::transform(bytes.begin(), bytes.end(), bytes.begin(), LowerAscii);
      passesAll_ = passesAll_ || bytes.empty();
      if (!bytes.empty()) mayBeLast_[static_cast<unsigned char>(bytes.back())] = true;
      endings_.push_back(std::move(bytes));
    }
  }

  /// Of most names the last character tells that they are not wanted: a sixth of the instructions
  /// of a walk over a disk.
  bool Passes(std::string_view name) const {
    if (passesAll_) return true;
    if (!mayBeLast_[static_cast<unsigned char>(LowerAscii(name.back()))]) return false;
    return std::any_of(endings_.begin(), endings_.end(), [name](const std::string& ending) {
      return name.size() >= ending.size() &&
             std::equal(ending.begin(), ending.end(), name.end() - Length(ending),
                        [](char wanted, char c) { return wanted == LowerAscii(c); });
    });
  }

 private:
  static std::ptrdiff_t Length(const std::string& text) {
    return static_cast<std::ptrdiff_t>(text.size());
  }

  bool passesAll_;
  std::array<bool, 256> mayBeLast_{};
  std::vector<std::string> endings_;
};

}  // namespace

void HostedFileSystem::WarnOfName(StringView folder, std::string_view name) {
  if (WasTold(ToUtf8(folder) + '/' + std::string(name))) return;
  warn_(String(folder) + u": the name \"" + ShownDiskName(name) +
            u"\" cannot be a Windows name; it is left out",
        WarningWeight::LeftOut);
}

std::vector<FolderItem> HostedFileSystem::ListFolder(StringView path,
                                                     std::span<const StringView> endings) {
  Opened folder = OpenListed(path);
  const EndingFilter filter(endings);
  std::vector<FolderItem> items;
  std::vector<std::string> odd;
  const auto add = [&](std::string_view name, bool isFolder) {
    if (isFolder || filter.Passes(name)) items.push_back({*FromDiskName(name), isFolder});
  };
  std::vector<std::string> links;  // followed when the folder's own reading is over
  const auto visit = [&](std::string_view name, ListedKind kind) {
    if (!IsExpressible(name)) {
      odd.emplace_back(name);
    } else if (kind == ListedKind::Link) {
      links.emplace_back(name);
    } else if (kind != ListedKind::Other) {
      add(name, kind == ListedKind::Folder);
    }
  };
  if (const FileFailure failure = ForEachName(std::move(folder.file), visit)) {
    RaiseFileError(failure, Subject::Folder, path);
  }
  for (const std::string& name : links) {
    const std::optional<DiskEntry> entry =
        resolver_.FollowLink({folder.path.drive, JoinDiskPath(folder.path.path, name)});
    // The folder that a link leads to lies on the same drive and is met there under its own path:
    // who walks through all folders comes to each of them once, however the links cross.
    if (entry && entry->record.kind == FileRecord::Kind::File) add(name, false);
    if (!entry) {
      NoteLink(
          String(path) + u'\\' + *FromDiskName(name),
          u"this link leads out of the disk, or nowhere; no such link of this disk is followed, "
          u"and what it led to was not searched");
    }
  }
  for (const std::string& name : odd) WarnOfName(path, name);
  if (listed_) listed_(path, items);
  return items;
}

}  // namespace norvo
