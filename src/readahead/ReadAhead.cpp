#include "readahead/ReadAhead.h"

#include <utility>

#include "platform/files/SystemCalls.h"
#include "readahead/PlaylistReferences.h"
#include "text/WindowsPath.h"

namespace norvo {

ReadAhead::ReadAhead(HostedPlatform& machine)
    : machine_(machine),
      roots_(machine.DriveFolders()),
      songs_(roots_),
      folders_(roots_, [this](String playlist) { songs_.Add(std::move(playlist)); }) {
  // Nobody could tell then what is in the system's memory already, and all would be read twice.
  if (!DiskWaits()) return;
  machine_.SetListingSink([this](StringView folder, std::span<const FolderItem> items) {
    try {
      OnListed(folder, items);
    } catch (...) {
      // What is not read ahead is read when its time comes.
    }
  });
}

ReadAhead::~ReadAhead() {
  machine_.SetListingSink({});
}

void ReadAhead::OnListed(StringView folder, std::span<const FolderItem> items) {
  if (!IsAbsolutePath(folder) || folder.back() != u'\\') return;  // no walk asks so
  std::vector<String> below;
  for (const FolderItem& item : items) {
    if (item.isFolder) {
      below.push_back(String(folder) + item.name + u'\\');
    } else if (NamesPlaylist(StringView(item.name))) {
      songs_.Add(String(folder) + item.name);
    }
  }
  folders_.Add(std::move(below));
}

}  // namespace norvo
