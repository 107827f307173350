#include "platform/files/FileLock.h"

#include <utility>

#include "platform/files/FileBytes.h"
#include "platform/files/ShownTime.h"

namespace norvo {
namespace {

constexpr std::size_t kLongestHolder = 1000;

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
  const FileResult<FileRecord> named = LookUp(folder_, name_);
  // Its last holder has removed it. Not every system tells anything of such a file.
  if (named.Failure().kind == FileFailure::Kind::NotFound) return Step::Again;
  const FileResult<FileRecord> record = LookUp(file);
  if (!record || !named) return Step::Impossible;
  if (!IsSameFile(*record, *named)) return Step::Again;
  // A killed process has left it: another one takes its place.
  if (record->size > 0 && !RemoveFile(folder_, name_)) return Step::Again;
  // Whether or not the words reach the disk, it is locked.
  WriteAll(file, ThisProcess() + " since " + ShownNow());
  file_ = std::move(file);
  return Step::Taken;
}

}  // namespace norvo
