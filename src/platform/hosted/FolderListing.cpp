#include "platform/hosted/FolderListing.h"

#include <algorithm>
#include <limits>
#include <tuple>

#include "platform/hosted/DiskName.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

// Enough for a playlist that refers to a few folders in turn.
constexpr std::size_t kMostListings = 8;

// A change that follows a listing at once may leave the folder's time as it was, because the disk
// counts in steps. Those that count in whole seconds count at worst in twos.
constexpr std::int64_t kFineStep = 100'000'000;      // nanoseconds
constexpr std::int64_t kCoarseStep = 2'000'000'000;  // nanoseconds

bool IsOlder(const DiskTime& time, const DiskTime& now) {
  const std::int64_t step = time.nanoseconds == 0 ? kCoarseStep : kFineStep;
  const std::int64_t seconds = now.seconds - time.seconds;
  if (seconds < 0 || seconds > 10) return seconds > 0;
  return seconds * 1'000'000'000 + now.nanoseconds - time.nanoseconds > step;
}

}  // namespace

std::optional<FolderListing> FolderListing::Of(SystemFile folder) {
  FolderListing listing;
  // The times are taken before the names, so that a change in between makes the listing old.
  const FileResult<FileRecord> record = LookUp(folder);
  if (!record) return std::nullopt;
  listing.Note(*record);
  const auto add = [&listing](std::string_view name, ListedKind) {
    if (const std::optional<Row> row = listing.Append(name)) listing.rows_.push_back(*row);
  };
  if (ForEachName(std::move(folder), add)) return std::nullopt;  // not all of them
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
  return Row{FingerprintOfDiskName(name).first, static_cast<std::uint32_t>(offset),
             static_cast<std::uint32_t>(name.size())};
}

bool FolderListing::IsBefore(const Row& left, const Row& right) const {
  return std::tuple(left.hash, NameOf(left)) < std::tuple(right.hash, NameOf(right));
}

void FolderListing::Insert(std::string_view name, const FileRecord& folder) {
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

void FolderListing::Note(const FileRecord& folder) {
  const DiskTime now = DiskNow();
  modified_ = folder.modified;
  changed_ = folder.changed;
  lasting_ = IsOlder(modified_, now) && IsOlder(changed_, now);
}

std::string_view FolderListing::NameOf(const Row& row) const {
  return std::string_view(names_).substr(row.offset, row.length);
}

std::string_view FolderListing::Find(StringView name) const {
  name = WithoutTrail(name);
  const std::uint64_t hash = FingerprintOfName(name).first;
  auto row =
      std::lower_bound(rows_.begin(), rows_.end(), hash,
                       [](const Row& each, std::uint64_t value) { return each.hash < value; });
  for (; row != rows_.end() && row->hash == hash; ++row) {
    const std::optional<String> text = FromDiskName(NameOf(*row));
    if (text && EqualsIgnoreCase(WithoutTrail(*text), name)) return NameOf(*row);
  }
  return {};
}

bool FolderListing::IsCurrent(const FileRecord& folder) const {
  return lasting_ && folder.modified == modified_ && folder.changed == changed_;
}

ListingCache::Slot* ListingCache::SlotOf(const DriveFolder& drive, std::string_view folder) {
  const auto slot = std::find_if(slots_.begin(), slots_.end(), [&](const Slot& each) {
    return each.drive == &drive && each.folder == folder;
  });
  return slot == slots_.end() ? nullptr : &*slot;
}

ListingCache::Slot& ListingCache::Keep(const DriveFolder& drive, const std::string& folder,
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

std::optional<std::string> ListingCache::Find(const DriveFolder& drive, const std::string& folder,
                                              StringView name) {
  Slot* slot = SlotOf(drive, folder);
  if (slot != nullptr) {
    const FileResult<FileRecord> record = LookUp(drive.Root(), folder);
    if (!record || !slot->listing.IsCurrent(*record)) slot = nullptr;
  }
  if (slot == nullptr) {
    FileResult<SystemFile> opened = OpenBeneath(drive.Root(), folder, OpenMode::List);
    if (!opened) return std::nullopt;
    std::optional<FolderListing> listing = FolderListing::Of(std::move(*opened));
    if (!listing) return std::nullopt;
    slot = &Keep(drive, folder, std::move(*listing));
  }
  slot->used = ++uses_;
  return std::string(slot->listing.Find(name));
}

void ListingCache::Written(const DriveFolder& drive, std::string_view folder,
                           std::string_view name) {
  Slot* const slot = SlotOf(drive, folder);
  if (slot == nullptr) return;
  const FileResult<FileRecord> record = LookUp(drive.Root(), slot->folder);
  if (record) {
    slot->listing.Insert(name, *record);
  } else {
    Forget(drive, folder);
  }
}

void ListingCache::Forget(const DriveFolder& drive, std::string_view folder) {
  if (const Slot* const slot = SlotOf(drive, folder))
    slots_.erase(slots_.begin() + (slot - slots_.data()));
}

}  // namespace norvo
