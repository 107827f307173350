#include "platform/files/NewFile.h"

#include <utility>

#include "platform/files/DiskPath.h"
#include "platform/files/SystemCalls.h"
#include "platform/files/TemporaryFile.h"

namespace norvo {

NewFile::NewFile(NewFile&& other) noexcept
    : root_(std::exchange(other.root_, nullptr)),
      path_(std::move(other.path_)),
      folder_(std::move(other.folder_)),
      temporary_(std::exchange(other.temporary_, {})),
      file_(std::move(other.file_)) {}

NewFile& NewFile::operator=(NewFile&& other) noexcept {
  if (this != &other) {
    Discard();
    root_ = std::exchange(other.root_, nullptr);
    path_ = std::move(other.path_);
    folder_ = std::move(other.folder_);
    temporary_ = std::exchange(other.temporary_, {});
    file_ = std::move(other.file_);
  }
  return *this;
}

FileResult<NewFile> NewFile::At(const SystemFile& root, std::string path, unsigned permissions,
                                LastFolder& folders) {
  NewFile made;
  made.root_ = &root;
  made.path_ = std::move(path);
  FileResult<SystemFile> file = CreateUnnamed(root, std::string(ParentOf(made.path_)), permissions);
  if (!file) {
    // Whatever the reason was: the plain way succeeds, or has one that is worth telling.
    const auto folder = folders.Open(root, ParentOf(made.path_));
    if (!folder) return folder.Failure();
    std::string temporary(LeafOf(TemporaryPath(made.path_)));
    file = CreateTemporary(**folder, temporary, permissions);
    if (!file) return file.Failure();
    made.folder_ = *folder;
    made.temporary_ = std::move(temporary);
  }
  made.file_ = std::move(*file);
  return made;
}

FileFailure NewFile::TakeName(LastFolder& folders) {
  if (temporary_.empty()) return GiveName(file_, *root_, path_);
  const auto folder = folders.Open(*root_, ParentOf(path_));
  if (!folder) return folder.Failure();
  const FileFailure failure = RenameNew(**folder, temporary_, std::string(LeafOf(path_)));
  if (!failure) temporary_.clear();
  return failure;
}

FileFailure NewFile::PutInPlace(LastFolder& folders) {
  const FileFailure failure = TakeName(folders);
  Discard();
  return failure;
}

void NewFile::Discard() {
  file_.Close();
  if (temporary_.empty()) return;
  RemoveFile(*folder_, temporary_);
  temporary_.clear();
}

}  // namespace norvo
