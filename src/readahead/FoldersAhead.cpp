#include "readahead/FoldersAhead.h"

#include <algorithm>
#include <iterator>

#include "platform/hosted/DiskName.h"
#include "readahead/PlaylistReferences.h"
#include "text/Fingerprint.h"

namespace norvo {
namespace {

constexpr std::size_t kFolderThreads = 8;
// More are left to be listed when their time comes.
constexpr std::size_t kMostWaiting = 4096;
// After so many folders that needed no disk the others are taken to need none either; now and then
// it is seen whether that still holds.
constexpr unsigned kEnoughInMemory = 16;
constexpr unsigned kNowAndThen = 64;

}  // namespace

FoldersAhead::FoldersAhead(const DriveRoots& roots, PlaylistSink onPlaylist)
    : roots_(roots), onPlaylist_(std::move(onPlaylist)) {}

bool FoldersAhead::IsOfUse() {
  return inMemory_ < kEnoughInMemory || ++left_ % kNowAndThen == 0;
}

void FoldersAhead::Add(std::vector<String> folders) {
  if (folders.empty() || !IsOfUse()) return;
  std::erase_if(folders, [this](const String& each) {
    return !seen_.IsNew(CaselessFingerprintOf(each).first);
  });
  {
    const std::lock_guard lock(mutex_);
    const std::size_t room = kMostWaiting - std::min(kMostWaiting, waiting_.size());
    folders.resize(std::min(folders.size(), room));
    std::move(folders.rbegin(), folders.rend(), std::back_inserter(waiting_));
  }
  // One thread sees whether there is anything to wait for; only then the others are of use.
  workers_.Grow(hasWaited_ ? kFolderThreads : 1);
  added_.notify_all();
}

void FoldersAhead::Work(const std::stop_token& stop) {
  for (;;) {
    std::unique_lock lock(mutex_);
    added_.wait(lock, stop, [this] { return !waiting_.empty(); });
    if (stop.stop_requested()) return;
    const String folder = std::move(waiting_.back());
    waiting_.pop_back();
    lock.unlock();
    List(folder);
  }
}

void FoldersAhead::List(const String& folder) {
  const std::optional<std::uint64_t> before = DiskWaits();
  FileResult<SystemFile> opened = roots_.Open(folder, OpenMode::List);
  if (!opened) return;
  KeepAccessTime(*opened);
  std::vector<String> below;
  ForEachName(std::move(*opened), [&](std::string_view diskName, ListedKind kind) {
    const bool isPlaylist = kind == ListedKind::File && NamesPlaylist(diskName);
    if (kind != ListedKind::Folder && !isPlaylist) return;
    const std::optional<String> name = FromDiskName(diskName);
    if (name && isPlaylist) onPlaylist_(folder + *name);
    if (name && !isPlaylist) below.push_back(folder + *name + u'\\');
  });
  const bool wasInMemory = before && DiskWaits() == before;
  if (wasInMemory) {
    ++inMemory_;
  } else {
    inMemory_ = 0;
    hasWaited_ = true;
    Add(std::move(below));
  }
}

}  // namespace norvo
