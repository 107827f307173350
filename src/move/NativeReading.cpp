#include "move/NativeReading.h"

#include <algorithm>
#include <optional>
#include <string>

#include "automation/RunTimeError.h"
#include "controller/HeaderSniffer.h"
#include "lists/ListedFile.h"
#include "model/PlaylistTypes.h"
#include "move/LibraryCalls.h"
#include "services/ObserverScope.h"
#include "services/TextStream.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

class ReferenceWatcher final : public Observer {
 public:
  explicit ReferenceWatcher(FileSystem& files) : files_(files) {}

  void OnItem(StringView reference, ItemOutcome outcome) override {
    using Kind = VerifiedReference::Kind;
    if (outcome == ItemOutcome::Empty) return;
    Kind kind = Kind::Missing;
    // A file that is no media to the readers is there all the same.
    if (outcome != ItemOutcome::Missing) kind = IsOnDisk(reference) ? Kind::Found : Kind::Address;
    references.push_back({kind, String(reference)});
  }
  bool WantsEntries() override { return false; }

  std::vector<VerifiedReference> references;

 private:
  bool IsOnDisk(StringView reference) {
    if (!HasDrive(reference)) return false;
    const DriveType type = files_.TypeOfDrive(reference);
    return type == DriveType::Fixed || type == DriveType::RamDisk;
  }

  FileSystem& files_;
};

/// A restored playlist is told by its place; others by their first lines, unless those tell
/// nothing, since there are but addresses.
std::int32_t TypeFor(Component& library, const String& path) {
  const StringView folder = LastComponent(ParentFolder(path));
  for (const PlaylistType* const type : NativeTypes()) {
    const bool isOfPlayer = EqualsIgnoreCase(type->playerFolder, folder);
    if (isOfPlayer && HasExtension(path, *type)) return type->code;
  }
  const std::int32_t type = ListedType(library, path);
  return type != playlist_type::kUnknown ? type : StandInType(path, false).code;
}

bool ReadByLibrary(Component& library, const String& path, ReferenceWatcher& watcher) {
  const std::int32_t type = TypeFor(library, path);
  const ObserverScope scope(library, watcher);
  return ReadInto(*library.Create(u"PlayList"), path, type);
}

/// No reference at all may be a list that the library's reader could not open, which a reader of
/// settings files keeps to itself.
bool IsAnswered(const std::vector<VerifiedReference>& references) {
  return !references.empty() &&
         std::none_of(references.begin(), references.end(), [](const VerifiedReference& row) {
           return row.kind == VerifiedReference::Kind::Missing;
         });
}

}  // namespace

std::vector<VerifiedReference> NativeReader::ReadPatiently(const String& path) {
  std::string bytes = ReadWholeFile(*library_.Files().OpenForReading(path));
  const Fingerprint content = FingerprintOf(bytes);
  const std::optional<ListedFile> file =
      ReadListFile(LastComponent(path), std::move(bytes), library_.Machine().AnsiPage());
  std::vector<VerifiedReference> references;
  if (!file || file->lists.empty()) return references;
  const ListedItems& items = file->lists.front().items;
  if (file->lists.front().isCut) throw RunTimeError(error::kOutOfMemory, kTooManyItems);
  seen_.Note(path, content, items);
  for (const ListedItem& item : items) {
    if (item.maybeComment) continue;
    const FoundReference found = finder_.Find(item.references.front(), ParentFolder(path));
    using Kind = VerifiedReference::Kind;
    Kind kind = Kind::Found;
    if (found.kind == FoundReference::Kind::Address) kind = Kind::Address;
    if (found.kind == FoundReference::Kind::Missing) kind = Kind::Missing;
    references.push_back({kind, found.path});
  }
  return references;
}

VerifiedPlaylist NativeReader::Read(const String& path) {
  ReferenceWatcher watcher(library_.Files());
  try {
    if (!ReadByLibrary(library_, path, watcher)) {
      watcher.references = std::vector<VerifiedReference>();  // to have the room
    }
    if (IsAnswered(watcher.references)) {
      return {path, std::move(watcher.references), true, {}, false};
    }
    const std::size_t heard = watcher.references.size();
    std::vector<VerifiedReference> patient = ReadPatiently(path);
    const bool isBetter = heard == 0 || patient.size() == heard;
    return {path, std::move(isBetter ? patient : watcher.references), true, {}, false};
  } catch (const RunTimeError& failure) {
    const bool isMissing =
        failure.Number() == error::kFileNotFound || failure.Number() == error::kPathNotFound;
    return {path, std::move(watcher.references), false, failure.Description(), isMissing};
  }
}

}  // namespace norvo
