#include "cli/ThisPcMachine.h"

#include <algorithm>
#include <filesystem>
#include <optional>

#include "cli/LockWords.h"
#include "machines/MachineLock.h"
#include "machines/ThisPc.h"
#include "platform/files/DiskPath.h"
#include "text/Encoding.h"

namespace norvo::cli {
namespace {

/// Its paths are those of this system.
class ThisPcMachine final : public NamedMachine {
 public:
  ThisPcMachine(const CommonArguments& common, Console& console)
      : wishes_(LockWishesOf(common, console)) {
    if (!common.user.empty()) {
      throw CommandError("--user is for a machine that --machine names. Leave it out: this PC is " +
                         std::string("that of its user."));
    }
    pc_->SetMessageDialog(console);
  }

  std::shared_ptr<norvo::Platform> Platform() override { return pc_->Machine(); }
  String MachinePathOf(const std::string& named) const override {
    if (IsMachinePath(named)) return FromUtf8Lossy(named);
    if (named.empty()) throw CommandError("\"\" is no path. Name a playlist.");
    String full = FromUtf8Lossy(ToDiskPath(FullSystemPath(ToSystemPath(named))));
    std::replace(full.begin(), full.end(), u'/', u'\\');
    return full;
  }
  std::string UsualGroupRoot() const override { return UsualGroupRootOf(*pc_->Machine()); }
  void Lock() override {
    const std::filesystem::path folder = LockFolderOf(*pc_->Machine());
    if (!folder.empty()) lock_.emplace(folder, wishes_);
  }

 private:
  std::shared_ptr<ThisPc> pc_ = OpenThisPc();
  LockWishes wishes_;
  std::optional<MachineLock> lock_;
};

}  // namespace

std::shared_ptr<NamedMachine> OpenThisPcMachine(const CommonArguments& common, Console& console) {
  return std::make_shared<ThisPcMachine>(common, console);
}

}  // namespace norvo::cli
