#include "cli/PageFile.h"

#include <algorithm>
#include <utility>

#include "cli/Console.h"
#include "platform/files/DiskPath.h"
#include "platform/files/FailureText.h"
#include "platform/files/RealFolder.h"
#include "platform/files/TemporaryFile.h"
#include "text/Encoding.h"

namespace norvo::cli {
namespace {

constexpr unsigned kEverybodyReadsAndWrites = 0666;

bool IsShorter(std::string_view left, std::string_view right) {
  return left.size() < right.size();
}

/// A link stays one; what it leads to is written.
std::string TargetOf(const std::string& path) {
  return RealAsFarAsThere(FullSystemPath(ToSystemPath(path)).lexically_normal());
}

}  // namespace

PageFile::PageFile(const std::string& path) : path_(TargetOf(path)), name_(LeafOf(path_)) {
  const std::string_view parent = ParentOf(path_);
  const std::string_view root = RootOf(path_);  // which "E:" without a separator is not
  FileResult<SystemFile> folder = OpenRoot(std::string(std::max(parent, root, IsShorter)));
  if (!folder) FailOn(folder.Failure());
  folder_ = std::move(*folder);
  const FileResult<FileRecord> there = LookUp(folder_, name_);
  if (there && there->kind != FileRecord::Kind::File) Fail("it is no file");
  const std::string draft = TemporaryPath(name_);
  FileResult<SystemFile> file = CreateTemporary(folder_, draft, kEverybodyReadsAndWrites);
  if (!file) FailOn(file.Failure());
  file_ = std::move(*file);
  draft_ = draft;
}

PageFile::~PageFile() {
  file_.Close();
  if (!draft_.empty()) RemoveFile(folder_, draft_);
}

void PageFile::Write(std::string_view text) {
  FailOn(WriteAll(file_, text));
  const SystemFile* const files[] = {&file_};
  FailOn(FlushToDisk(files).front());
  file_.Close();
  FailOn(RenameOver(folder_, draft_, name_));
  draft_.clear();
}

void PageFile::FailOn(FileFailure failure) const {
  if (failure) Fail(ToUtf8(FailureText(failure)));
}

void PageFile::Fail(const std::string& reason) const {
  throw CommandError(ShownPath(ToSystemPath(path_)) + " cannot be written: " + reason +
                     ". Name a file in a folder that can be written with --report.");
}

}  // namespace norvo::cli
