#include "platform/files/FileLock.h"

#include <chrono>
#include <cstdio>
#include <optional>
#include <utility>

#include "platform/files/FileBytes.h"

namespace norvo {
namespace {

constexpr std::size_t kLongestHolder = 1000;

/// "2026-11-22 14:05"
std::string Now() {
  const std::optional<std::chrono::local_seconds> now = LocalTime(DiskNow().seconds);
  if (!now) return "an unknown time";
  const auto day = std::chrono::floor<std::chrono::days>(*now);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss time(*now - day);
  char text[40];
  std::snprintf(text, sizeof text, "%04d-%02u-%02u %02d:%02d", static_cast<int>(date.year()),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()));
  return text;
}

FileResult<SystemFile> OpenAnyhow(const SystemFile& folder, const std::string& name) {
  FileResult<SystemFile> file = OpenBeneath(folder, name, OpenMode::CreateForAppending);
  // Another user's can be read at least.
  return file ? std::move(file) : OpenBeneath(folder, name, OpenMode::Read);
}

std::string TextOf(const SystemFile& folder, const std::string& name) {
  const FileResult<SystemFile> file = OpenBeneath(folder, name, OpenMode::Read);
  if (!file) return {};
  const FileResult<std::string> text = ReadWhole(*file, kLongestHolder);
  return text ? *text : std::string();
}

}  // namespace

FileLock::FileLock(SystemFile folder, std::string name)
    : folder_(std::move(folder)), name_(std::move(name)) {}

FileLock::~FileLock() {
  // While it is still locked, so that nobody else's is removed.
  if (file_.IsOpen()) RemoveFile(folder_, name_);
}

bool FileLock::Take(bool wait) {
  Step step = TryOnce(wait);
  while (step == Step::Again) step = TryOnce(wait);
  return step != Step::Busy;
}

FileLock::Step FileLock::TryOnce(bool wait) {
  FileResult<SystemFile> file = OpenAnyhow(folder_, name_);
  if (!file) return Step::Impossible;
  const FileResult<FileRecord> record = LookUp(*file);
  if (!record || record->kind != FileRecord::Kind::File) return Step::Impossible;
  const LockAnswer answer = LockFile(*file, wait);
  if (answer == LockAnswer::Refused) return Step::Impossible;
  if (answer == LockAnswer::Busy) {
    holder_ = TextOf(folder_, name_);
    return Step::Busy;
  }
  return Own(std::move(*file));
}

FileLock::Step FileLock::Own(SystemFile file) {
  const FileResult<FileRecord> record = LookUp(file);
  const FileResult<FileRecord> named = LookUp(folder_, name_);
  const bool isGone = !named && named.Failure().kind == FileFailure::Kind::NotFound;
  if (!record || (!named && !isGone)) return Step::Impossible;
  // Its last holder has removed it.
  if (isGone || !IsSameFile(*record, *named)) return Step::Again;
  // A killed process has left it: another one takes its place.
  if (record->size > 0 && !RemoveFile(folder_, name_)) return Step::Again;
  // Whether or not the words reach the disk, it is locked.
  WriteAll(file, ThisProcess() + " since " + Now());
  file_ = std::move(file);
  return Step::Taken;
}

}  // namespace norvo
