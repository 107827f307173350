#include "services/FolderScanner.h"

#include "services/FolderWalk.h"

namespace norvo {
namespace {

/// Hands a walk over one drive on to the visitor of the scan.
class DriveVisitor final : public FolderVisitor {
 public:
  explicit DriveVisitor(ScanVisitor& visitor) : visitor_(visitor) {}

  bool EnterFolder(StringView folder) override { return visitor_.EnterFolder(Bare(folder)); }
  void VisitFile(StringView folder, StringView name) override {
    visitor_.VisitFile(Bare(folder), name);
  }
  void CannotList(StringView folder, const RunTimeError& failure) override {
    // A shortage of memory ends the scan.
    if (failure.Number() == error::kOutOfMemory) throw failure;
    visitor_.CannotList(Bare(folder), failure.Description());
  }

 private:
  /// Only a drive's root keeps its backslash.
  static StringView Bare(StringView folder) {
    constexpr StringView kRoot = u"C:\\";
    return folder.size() == kRoot.size() ? folder : folder.substr(0, folder.size() - 1);
  }

  ScanVisitor& visitor_;
};

}  // namespace

void FolderScanner::Scan(std::span<const StringView> endings, ScanVisitor& visitor) {
  DriveVisitor each(visitor);
  for (const Drive& drive : files_.Drives()) {
    if (drive.type != DriveType::Fixed) continue;
    WalkFolders(files_, String(1, drive.letter) + u":\\", endings, each);
  }
}

}  // namespace norvo
