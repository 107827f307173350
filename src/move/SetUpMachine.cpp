#include "move/SetUpMachine.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "automation/RunTimeError.h"
#include "move/MachineSetup.h"
#include "move/MoveError.h"
#include "move/OpenedLibrary.h"
#include "move/PortableNames.h"
#include "move/ProductSettings.h"
#include "services/DataCop.h"
#include "services/ProfileFile.h"
#include "services/Utility.h"
#include "text/Encoding.h"
#include "text/Number.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

constexpr StringView kDefaultGroupRoot = u"C:\\My Documents\\Norvo Media\\";

struct SubName {
  StringView key;
  StringView value;
};
constexpr SubName kSubNames[] = {{u"SzID001", u"Music"},     {u"SzID002", u"Music"},
                                 {u"SzID003", u"Music"},     {u"SzID004", u"Music"},
                                 {u"szID005", u"PlayLists"}, {u"szID006", u""}};

/// One run of the set-up.
class Setup {
 public:
  Setup(Component& component, WorkReport& report, MachineSide side)
      : component_(component), report_(report), side_(side) {}

  void Role(std::optional<std::int32_t> wish) {
    const RegistryValue found =
        Value(BaseKey() + u"\\KVS", u"mode", wish.value_or(Utility::role::kSource));
    const auto* const role = std::get_if<std::int32_t>(&found);
    if (role == nullptr) {
      Warn(WorkWarning::Kind::SettingUnusable, u"mode");
    } else if (wish && *wish != *role) {
      Warn(WorkWarning::Kind::RoleKept, FormatInteger(*role));
    }
  }

  /// The group root that holds; empty when it cannot be used.
  String GroupRoot(const std::optional<String>& wish, const String& usual) {
    const RegistryValue found = Value(SettingsKey(), kGroupRoot, wish.value_or(usual));
    const auto* const root = std::get_if<String>(&found);
    if (root == nullptr || root->empty()) {
      Warn(WorkWarning::Kind::SettingUnusable, String(kGroupRoot));
      return {};
    }
    if (wish && !EqualsIgnoreCase(Utility::AddBackslash(*wish), Utility::AddBackslash(*root))) {
      Warn(WorkWarning::Kind::GroupRootKept, *root);
    }
    return *root;
  }

  /// The folder of the log. Its default is on drive C, which may be a disk that is not to be
  /// changed when the group root is elsewhere; then it goes with the group root.
  void ProductFolder(StringView groupRoot) {
    if (!groupRoot.empty() && !EqualsIgnoreCase(DriveName(groupRoot), u"C:")) {
      const RegistryValue found =
          Value(BaseKey(), u"ProductFolder", String(DriveName(groupRoot)) + u"\\Norvo\\");
      const auto* const folder = std::get_if<String>(&found);
      if (folder == nullptr || folder->empty()) {
        return Warn(WorkWarning::Kind::SettingUnusable, u"ProductFolder");
      }
    }
    const String folder = component_.Machine().Product().Folder();
    // A person without an administrator's rights may not be let to the top of the drive.
    try {
      MakeFolder(SetupStep::Kind::ProductFolder, folder);
    } catch (const RunTimeError& failure) {
      Warn(WorkWarning::Kind::LogFolderNotMade, folder, failure.Description());
    }
  }

  void GroupKey(const String& groupRoot) {
    const String key = DataArea(groupRoot) + String(DataCop::kGroup);
    const auto note = [&](Hive hive, bool written) {
      Note({SetupStep::Kind::Key, hive, key, {}, {}, written});
    };
    norvo::Registry& registry = component_.Machine().Registry();
    for (const Hive hive : {Hive::CurrentUser, Hive::LocalMachine}) {
      if (registry.KeyExists(hive, key)) return note(hive, false);
    }
    // The key begins with a drive, and Windows takes no new key right below the machine's hive.
    for (const Hive hive : {Hive::LocalMachine, Hive::CurrentUser}) {
      if (registry.CreateKey(hive, key)) return note(hive, true);
    }
    throw MoveError(MoveFault::RegistryUnwritable);
  }

  /// Whether a group root is noted, usable or not.
  bool HasGroupRoot() {
    norvo::Registry& registry = component_.Machine().Registry();
    return registry.Read(Hive::CurrentUser, SettingsKey(), kGroupRoot) ||
           registry.Read(Hive::LocalMachine, SettingsKey(), kGroupRoot);
  }

  void MakeGroupRoot(const String& path) {
    try {
      rootIsNew_ = MakeFolders(path) || rootIsNew_;
    } catch (const RunTimeError& failure) {
      throw MoveError(MoveFault::FolderNotCreated, ToUtf8(path), ToUtf8(failure.Description()));
    }
  }

  void GroupRootFolder(const String& path) {
    MakeGroupRoot(path);
    Note({SetupStep::Kind::GroupRootFolder, {}, path, {}, {}, rootIsNew_});
  }

  void SubNames(const String& groupRoot) {
    const String path = Utility::AddBackslash(groupRoot) + u"SubNames.txt";
    const bool there = component_.Files().FileExists(path);
    if (!there) WriteSubNames(path);
    Note({SetupStep::Kind::SubNamesFile, {}, path, {}, {}, !there});
  }

  std::vector<SetupStep> Steps() { return std::move(steps_); }

 private:
  static constexpr StringView kGroupRoot = u"SubGroupRootName";

  String BaseKey() { return component_.Machine().Product().BaseKey(); }
  /// Of the group of playlists.
  String SettingsKey() { return BaseKey() + u"\\KVS\\" + String(DataCop::kGroup); }

  void Note(SetupStep step) { steps_.push_back(std::move(step)); }

  void Warn(WorkWarning::Kind kind, const String& subject, const String& detail = {}) {
    WorkWarning warning;
    warning.kind = kind;
    warning.side = side_;
    warning.subject = subject;
    warning.detail = detail;
    report_.Warn(std::move(warning));
  }

  /// The value that the library will read; written when there is none. The current user's key hides
  /// the machine's as a whole, so a value that is missing there is repeated there.
  RegistryValue Value(const String& key, StringView name, const RegistryValue& initial) {
    norvo::Registry& registry = component_.Machine().Registry();
    const bool hasUserKey = registry.KeyExists(Hive::CurrentUser, key);
    Hive hive = hasUserKey ? Hive::CurrentUser : Hive::LocalMachine;
    std::optional<RegistryValue> value = registry.Read(hive, key, name);
    const bool there = value.has_value();
    if (!there) {
      value = registry.Read(Hive::LocalMachine, key, name).value_or(initial);
      hive = Put(hive, key, name, *value);
    }
    Note({SetupStep::Kind::Value, hive, key, String(name), *value, !there});
    return *value;
  }

  /// Gives the hive that has taken the value. Only an administrator may write to Windows' own; the
  /// user's is read first, and so is as good for him.
  Hive Put(Hive hive, const String& key, StringView name, const RegistryValue& value) {
    // A failure that passes, as of a disk, is no refusal.
    if (TryToPut(hive, key, name, value) || TryToPut(hive, key, name, value)) return hive;
    const bool isTaken = hive == Hive::LocalMachine && RepeatForUser() &&
                         TryToPut(Hive::CurrentUser, key, name, value);
    if (!isTaken) throw MoveError(MoveFault::RegistryUnwritable);
    if (!std::exchange(isOfUser_, true)) Warn(WorkWarning::Kind::SettingsOfUser, BaseKey());
    return Hive::CurrentUser;
  }

  bool TryToPut(Hive hive, const String& key, StringView name, const RegistryValue& value) {
    norvo::Registry& registry = component_.Machine().Registry();
    return registry.CreateKey(hive, key) && registry.Write(hive, key, name, value);
  }

  /// The keys of the user are going to hide those of the machine, with all that stands there.
  bool RepeatForUser() {
    const std::pair<String, StringView> values[] = {{BaseKey(), product_values::kFolder},
                                                    {BaseKey(), product_values::kName},
                                                    {BaseKey() + u"\\KVS", u"mode"},
                                                    {SettingsKey(), kGroupRoot}};
    norvo::Registry& registry = component_.Machine().Registry();
    return std::all_of(std::begin(values), std::end(values), [&](const auto& place) {
      const auto& [key, name] = place;
      const auto value = registry.Read(Hive::LocalMachine, key, name);
      return !value || registry.Read(Hive::CurrentUser, key, name) ||
             TryToPut(Hive::CurrentUser, key, name, *value);
    });
  }

  void MakeFolder(SetupStep::Kind kind, const String& path) {
    const bool isNew = MakeFolders(path);
    Note({kind, {}, path, {}, {}, isNew});
  }

  /// With those above it; false for one that is there. RunTimeError when one cannot be made.
  bool MakeFolders(const String& path) {
    if (component_.Files().FolderExists(path)) return false;
    for (const StringView folder : FoldersAbove(path)) Create(folder);
    Create(path);
    return true;
  }

  void Create(StringView folder) {
    if (!component_.Files().FolderExists(folder)) component_.Files().CreateFolder(folder);
  }

  void WriteSubNames(const String& path) {
    try {
      ProfileFile file(component_);
      file.CreateNew(path);
      file.SelectSection(u"PlayListStrings");
      for (const SubName& row : kSubNames) file.WriteValue(row.key, row.value);
      file.Close();
    } catch (const RunTimeError& failure) {
      throw MoveError(MoveFault::FileNotWritten, ToUtf8(path), ToUtf8(failure.Description()));
    }
  }

  Component& component_;
  WorkReport& report_;
  MachineSide side_;
  std::vector<SetupStep> steps_;
  bool isOfUser_ = false;   // the machine's hive has refused a value
  bool rootIsNew_ = false;  // the group root's folder was made by this run
};

/// What stands there could be told by no list, and so would be left out, each song of it.
void RequireFit(Component& component, StringView root) {
  StringView path = root;
  path.remove_suffix(1);
  const bool fits =
      path.size() <= kLongestGroupRoot && HasPortableNames(path, &component.Machine().AnsiPage());
  if (!fits) throw MoveError(MoveFault::GroupRootUnfit, ToUtf8(root));
}

/// A group root in full; MoveError with that fault when it is no place on a drive.
String CheckedRoot(Component& component, const std::string& root, MoveFault fault) {
  const std::optional<String> text = FromUtf8(root);
  const bool full = text && text->size() > 3 && HasDrive(*text) && IsSeparator((*text)[2]);
  if (!full) throw MoveError(fault, root);
  return Utility::AddBackslash(component.Files().AbsolutePathName(*text));
}

void CheckDrive(Component& component, StringView path) {
  if (!HasDrive(path)) throw MoveError(MoveFault::GroupRootUnusable, ToUtf8(path));
  if (component.Files().FolderExists(String(DriveName(path)) + u"\\")) return;
  throw MoveError(MoveFault::GroupRootNowhere, ToUtf8(path), ToUtf8(DriveName(path)));
}

}  // namespace

std::vector<SetupStep> SetUp(Component& component, const SetupWishes& wishes, MachineSide side,
                             WorkReport& report,
                             const std::function<void(StringView groupRoot)>& onNewRoot) {
  std::optional<String> wish;
  if (wishes.groupRoot) {
    wish = CheckedRoot(component, *wishes.groupRoot, MoveFault::GroupRootNotFull);
    RequireFit(component, *wish);
  }
  const ProductSettings before = ReadProductSettings(component);
  // Checked before anything is written. The usual one may be no place on a drive, as where the
  // documents of this PC stand on a share: that is no matter as long as another one holds.
  String usual(kDefaultGroupRoot);
  const bool isUsualAsked = !wish && before.groupRoot.empty();
  if (isUsualAsked && !wishes.usualGroupRoot.empty()) {
    usual = CheckedRoot(component, wishes.usualGroupRoot, MoveFault::UsualGroupRootNotFull);
    // Lists of older players could hold no song below it.
    if (!component.Machine().AnsiPage().Fits(usual)) {
      usual = String(DriveName(usual)) + u"\\Norvo Media\\";
    }
  }
  const String planned = wish.value_or(usual);
  CheckDrive(component, before.groupRoot.empty() ? planned : before.groupRoot);
  if (before.groupRoot.empty() && onNewRoot) onNewRoot(planned);

  Setup setup(component, report, side);
  // Before it is noted: one that cannot be made would hold for all later runs.
  if (!setup.HasGroupRoot()) setup.MakeGroupRoot(planned);
  setup.Role(wishes.role);
  const String root = setup.GroupRoot(wish, usual);
  if (!root.empty()) setup.GroupKey(root);
  if (wishes.withProductFolder) setup.ProductFolder(root);
  if (!root.empty()) {
    setup.GroupRootFolder(root);
    setup.SubNames(root);
  }
  return setup.Steps();
}

SetupResult SetUpMachine(const std::shared_ptr<Platform>& machine, const SetupWishes& wishes,
                         const WorkOptions& options, WorkObserver& observer) {
  SetupResult result;
  WorkReport report(observer, result.warnings);
  OpenedLibrary library(machine, MachineSide::Old, report);
  result.steps = SetUp(library.Get(), wishes, MachineSide::Old, report);
  if (options.log) result.log = library.StartLog();
  return result;
}

SetupResult SetUpMachine(const std::shared_ptr<Platform>& machine, const SetupWishes& wishes) {
  WorkObserver nobody;
  return SetUpMachine(machine, wishes, {}, nobody);
}

}  // namespace norvo
