#pragma once

#include <memory>
#include <span>
#include <vector>

#include "services/FileSystem.h"

namespace norvo {

/// The files of another file system, for classes that change a few of its answers.
class ForwardedFiles : public FileSystem {
 public:
  /// `files` must outlive this.
  explicit ForwardedFiles(FileSystem& files) : files_(files) {}

  bool FolderExists(StringView path) override { return files_.FolderExists(path); }
  std::optional<FileFacts> FactsOf(StringView path) override { return files_.FactsOf(path); }
  void CreateFolder(StringView path) override { files_.CreateFolder(path); }
  void RemoveFile(StringView path, bool force) override { files_.RemoveFile(path, force); }
  std::unique_ptr<BinaryFile> OpenForReading(StringView path) override {
    return files_.OpenForReading(path);
  }
  std::unique_ptr<AppendFile> OpenForAppending(StringView path, bool create) override {
    return files_.OpenForAppending(path, create);
  }
  void MakeDurable(std::span<const String> paths) override { files_.MakeDurable(paths); }
  std::vector<FolderItem> ListFolder(StringView path,
                                     std::span<const StringView> endings) override {
    return files_.ListFolder(path, endings);
  }
  String AbsolutePathName(StringView path) override { return files_.AbsolutePathName(path); }
  DriveType TypeOfDrive(StringView path) override { return files_.TypeOfDrive(path); }
  std::vector<Drive> Drives() override { return files_.Drives(); }
  String FileVersion(StringView path) override { return files_.FileVersion(path); }
  String SystemFolder() override { return files_.SystemFolder(); }
  Date LocalDate(FileTime time) override { return files_.LocalDate(time); }

 protected:
  FileSystem& Files() { return files_; }

 private:
  FileSystem& files_;
};

}  // namespace norvo
