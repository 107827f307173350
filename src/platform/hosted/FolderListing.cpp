#include "platform/hosted/FolderListing.h"

#include <dirent.h>
#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <limits>
#include <memory>
#include <tuple>

#include "platform/hosted/HostName.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

// Enough for a playlist that refers to a few folders in turn.
constexpr std::size_t kMostListings = 8;

// A change that follows a listing at once may leave the folder's time as it was, because the disk
// counts in steps. Those that count in whole seconds count at worst in twos.
constexpr std::int64_t kFineStep = 100'000'000;      // nanoseconds
constexpr std::int64_t kCoarseStep = 2'000'000'000;  // nanoseconds

ListedKind KindOf(unsigned char type) {
  switch (type) {
    case DT_REG:
      return ListedKind::File;
    case DT_DIR:
      return ListedKind::Folder;
    case DT_LNK:
      return ListedKind::Link;
    default:
      return ListedKind::Other;
  }
}

/// For disks that do not tell the kind along with the name.
ListedKind KindByLookUp(int folder, const char* name) {
  const std::optional<HostFacts> facts = LookUp(folder, name);
  if (!facts) return ListedKind::Other;
  switch (facts->kind) {
    case HostFacts::Kind::File:
      return ListedKind::File;
    case HostFacts::Kind::Folder:
      return ListedKind::Folder;
    case HostFacts::Kind::Link:
      return ListedKind::Link;
    case HostFacts::Kind::Other:
      break;
  }
  return ListedKind::Other;
}

bool IsDots(const char* name) {
  return name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'));
}

bool IsOlder(const HostTime& time, const HostTime& now) {
  const std::int64_t step = time.nanoseconds == 0 ? kCoarseStep : kFineStep;
  const std::int64_t seconds = now.seconds - time.seconds;
  if (seconds < 0 || seconds > 10) return seconds > 0;
  return seconds * 1'000'000'000 + now.nanoseconds - time.nanoseconds > step;
}

}  // namespace

bool ForEachName(HostFile folder,
                 const std::function<void(std::string_view name, ListedKind kind)>& visit) {
  const std::unique_ptr<DIR, int (*)(DIR*)> stream(::fdopendir(folder.Get()), &::closedir);
  if (!stream) return false;
  const int descriptor = folder.Release();  // the stream owns it now
  for (;;) {
    errno = 0;
    const dirent* const entry = ::readdir(stream.get());
    if (entry == nullptr) return errno == 0;
    if (IsDots(entry->d_name)) continue;
    visit(entry->d_name, entry->d_type == DT_UNKNOWN ? KindByLookUp(descriptor, entry->d_name)
                                                     : KindOf(entry->d_type));
  }
}

std::optional<FolderListing> FolderListing::Of(HostFile folder) {
  FolderListing listing;
  // The times are taken before the names, so that a change in between makes the listing old.
  const std::optional<HostFacts> facts = LookUp(folder);
  if (!facts) return std::nullopt;
  listing.Note(*facts);
  const bool whole = ForEachName(std::move(folder), [&listing](std::string_view name, ListedKind) {
    if (const std::optional<Row> row = listing.Append(name)) listing.rows_.push_back(*row);
  });
  if (!whole) return std::nullopt;
  std::sort(
      listing.rows_.begin(), listing.rows_.end(),
      [&listing](const Row& left, const Row& right) { return listing.IsBefore(left, right); });
  return listing;
}

std::optional<FolderListing::Row> FolderListing::Append(std::string_view name) {
  const std::size_t offset = names_.size();
  if (!IsExpressible(name) || offset > std::numeric_limits<std::uint32_t>::max()) {
    return std::nullopt;
  }
  names_ += name;
  return Row{HashOfHostName(name), static_cast<std::uint32_t>(offset),
             static_cast<std::uint32_t>(name.size())};
}

bool FolderListing::IsBefore(const Row& left, const Row& right) const {
  return std::tuple(left.hash, NameOf(left)) < std::tuple(right.hash, NameOf(right));
}

void FolderListing::Insert(std::string_view name, const HostFacts& folder) {
  const std::optional<Row> row = Append(name);
  if (!row) return;
  const auto place =
      std::lower_bound(rows_.begin(), rows_.end(), *row,
                       [this](const Row& left, const Row& right) { return IsBefore(left, right); });
  const bool there = place != rows_.end() && place->hash == row->hash && NameOf(*place) == name;
  if (there) {
    names_.resize(row->offset);
  } else {
    rows_.insert(place, *row);
  }
  modified_ = folder.modified;
  changed_ = folder.changed;
  // The one change that falls into the disk's time step is our own, as far as anybody can tell.
  lasting_ = true;
}

void FolderListing::Note(const HostFacts& folder) {
  const HostTime now = HostNow();
  modified_ = folder.modified;
  changed_ = folder.changed;
  lasting_ = IsOlder(modified_, now) && IsOlder(changed_, now);
}

std::string_view FolderListing::NameOf(const Row& row) const {
  return std::string_view(names_).substr(row.offset, row.length);
}

std::string_view FolderListing::Find(StringView name) const {
  name = WithoutTrail(name);
  const std::uint64_t hash = HashOfName(name);
  auto row =
      std::lower_bound(rows_.begin(), rows_.end(), hash,
                       [](const Row& each, std::uint64_t value) { return each.hash < value; });
  for (; row != rows_.end() && row->hash == hash; ++row) {
    const std::optional<String> text = FromHostName(NameOf(*row));
    if (text && EqualsIgnoreCase(WithoutTrail(*text), name)) return NameOf(*row);
  }
  return {};
}

bool FolderListing::IsCurrent(const HostFacts& folder) const {
  return lasting_ && folder.modified == modified_ && folder.changed == changed_;
}

ListingCache::Slot* ListingCache::SlotOf(const HostDrive& drive, std::string_view folder) {
  const auto slot = std::find_if(slots_.begin(), slots_.end(), [&](const Slot& each) {
    return each.drive == &drive && each.folder == folder;
  });
  return slot == slots_.end() ? nullptr : &*slot;
}

ListingCache::Slot& ListingCache::Keep(const HostDrive& drive, const std::string& folder,
                                       FolderListing listing) {
  Slot* slot = SlotOf(drive, folder);
  if (slot == nullptr && slots_.size() < kMostListings) {
    slot = &slots_.emplace_back();
  } else if (slot == nullptr) {
    slot = &*std::min_element(
        slots_.begin(), slots_.end(),
        [](const Slot& left, const Slot& right) { return left.used < right.used; });
  }
  *slot = {&drive, folder, std::move(listing), 0};
  return *slot;
}

std::string ListingCache::Find(const HostDrive& drive, const std::string& folder, StringView name) {
  Slot* slot = SlotOf(drive, folder);
  if (slot != nullptr) {
    const std::optional<HostFacts> facts = LookUp(drive.Root(), folder);
    if (!facts || !slot->listing.IsCurrent(*facts)) slot = nullptr;
  }
  if (slot == nullptr) {
    HostFile opened = OpenInside(drive.Root(), folder, O_RDONLY | O_DIRECTORY | O_NONBLOCK);
    if (!opened.IsOpen()) return {};
    std::optional<FolderListing> listing = FolderListing::Of(std::move(opened));
    if (!listing) return {};
    slot = &Keep(drive, folder, std::move(*listing));
  }
  slot->used = ++uses_;
  return std::string(slot->listing.Find(name));
}

void ListingCache::Written(const HostDrive& drive, std::string_view folder, std::string_view name) {
  Slot* const slot = SlotOf(drive, folder);
  if (slot == nullptr) return;
  const std::optional<HostFacts> facts = LookUp(drive.Root(), slot->folder);
  if (facts) {
    slot->listing.Insert(name, *facts);
  } else {
    Forget(drive, folder);
  }
}

void ListingCache::Forget(const HostDrive& drive, std::string_view folder) {
  if (const Slot* const slot = SlotOf(drive, folder))
    slots_.erase(slots_.begin() + (slot - slots_.data()));
}

}  // namespace norvo
