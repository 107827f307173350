#include "controller/ListFile.h"

#include <limits>

#include "automation/Conversions.h"
#include "automation/RunTimeError.h"
#include "model/PlaylistTypes.h"
#include "services/NVServices.h"
#include "services/Utility.h"
#include "text/Number.h"

namespace norvo {
namespace {

constexpr StringView kFileName = u"PlayLists.txt";

// No disk holds so many playlists; a list that says so is damaged and shall not fill the memory.
constexpr std::int32_t kMostListed = 1'000'000;

String TotalKey(const PlaylistType& type) {
  return String(type.name) + u" Total";
}

String FileKey(std::int32_t number) {
  return u"File" + FormatInteger(number);
}

std::int32_t CheckedSum(const std::vector<std::int32_t>& totals) {
  std::int64_t sum = 0;
  for (const std::int32_t total : totals) {
    sum += total;
    if (sum > kMostListed || sum < 0) throw RunTimeError(error::kOverflow);
  }
  return static_cast<std::int32_t>(sum);
}

}  // namespace

ListFile::ListFile(Component& component, StringView groupRoot)
    : component_(component),
      headerSection_(groupRoot),
      folder_(DataArea(groupRoot)),
      file_(component) {}

String ListFile::PathOfFile() const {
  if (folder_.empty()) throw RunTimeError(error::kPathNotFound);
  return folder_ + String(kFileName);
}

void ListFile::Restart() {
  const String path = PathOfFile();
  file_.Abandon();
  if (NVServices::DoesFileExist(component_, path)) {
    Utility::DeleteFileForced(component_, path);
  }
  counters_.clear();
  open_ = file_.CreateNew(path);
}

void ListFile::OpenIfClosed() {
  if (!open_) open_ = file_.OpenFile(PathOfFile());
}

void ListFile::Record(StringView path, std::int32_t type) {
  const PlaylistType* const row = FindPlaylistType(type);
  if (row == nullptr) return;
  OpenIfClosed();
  const std::int32_t number = ++counters_[type];
  file_.SelectSection(headerSection_);
  file_.WriteValue(TotalKey(*row), FormatInteger(number));
  file_.SelectSection(row->name);
  file_.WriteValue(FileKey(number), path);
}

void ListFile::Save() {
  open_ = false;
  file_.Close();
}

std::vector<std::int32_t> ListFile::ReadTotals() {
  std::vector<std::int32_t> totals;
  for (const PlaylistType* const type : QueuedTypes()) {
    String total = u"0";
    file_.ReadValue(TotalKey(*type), total);
    totals.push_back(Int32FromText(total));
  }
  return totals;
}

std::vector<String> ListFile::ReadPaths() {
  const std::vector<std::int32_t> totals = ReadTotals();
  std::vector<String> paths(static_cast<std::size_t>(CheckedSum(totals)));
  auto slot = paths.begin();
  for (std::size_t i = 0; i < totals.size(); ++i) {
    file_.SelectSection(QueuedTypes()[i]->name);
    for (std::int32_t number = 1; number <= totals[i]; ++number) {
      // Totals below 0 can make the sum less than what is listed.
      if (slot == paths.end()) throw RunTimeError(error::kSubscriptOutOfRange);
      file_.ReadValue(FileKey(number), *slot++);  // a missing key leaves its slot empty
    }
  }
  return paths;
}

std::vector<String> ListFile::Consume() {
  if (folder_.empty()) return {};
  OpenIfClosed();
  // However the reading ends, the next call looks at the file anew.
  open_ = false;
  std::vector<String> paths;
  if (!file_.SelectSection(headerSection_)) {
    file_.Abandon();
    return paths;
  }
  paths = ReadPaths();
  file_.Abandon();
  Utility::DeleteFileForced(component_, PathOfFile());
  return paths;
}

}  // namespace norvo
