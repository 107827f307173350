#include "move/Setup.h"

#include "automation/RunTimeError.h"
#include "cli/SystemWords.h"
#include "move/Settings.h"
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

std::string ValueText(const RegistryValue& value) {
  if (const auto* const text = std::get_if<String>(&value)) return '"' + ToUtf8(*text) + '"';
  if (const auto* const number = std::get_if<std::int32_t>(&value)) return std::to_string(*number);
  return ToUtf8(FormatNumber(std::get<double>(value)));
}

std::string HiveName(Hive hive) {
  return hive == Hive::CurrentUser ? "HKEY_CURRENT_USER\\" : "HKEY_LOCAL_MACHINE\\";
}

/// One run of the set-up.
class Setup {
 public:
  Setup(Component& component, Console& console) : component_(component), console_(console) {}

  void Role(std::optional<std::int32_t> wish) {
    const RegistryValue found =
        Value(BaseKey() + u"\\KVS", u"mode", wish.value_or(Utility::role::kSource));
    const auto* const role = std::get_if<std::int32_t>(&found);
    if (role == nullptr) {
      Unusable("mode is no number");
    } else if (wish && *wish != *role) {
      console_.LeftOut("The role stays " + std::to_string(*role) +
                       ": it was there before. Change mode in " + kWords.registry +
                       " for another one.");
    }
  }

  /// The group root that holds; empty when it cannot be used.
  String GroupRoot(const std::optional<String>& wish) {
    const String key = BaseKey() + u"\\KVS\\" + String(DataCop::kGroup);
    const RegistryValue found =
        Value(key, u"SubGroupRootName", wish.value_or(String(kDefaultGroupRoot)));
    const auto* const root = std::get_if<String>(&found);
    if (root == nullptr || root->empty()) {
      Unusable("SubGroupRootName is no text, or empty");
      return {};
    }
    if (wish && !EqualsIgnoreCase(Utility::AddBackslash(*wish), Utility::AddBackslash(*root))) {
      console_.LeftOut("The group root stays " + ToUtf8(*root) +
                       ": it was there before. Change SubGroupRootName in " + kWords.registry +
                       " for another one.");
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
        return Unusable("ProductFolder is no text, or empty");
      }
    }
    Folder("product folder", component_.Machine().Product().Folder());
  }

  void GroupKey(const String& groupRoot) {
    const String key = DataArea(groupRoot) + String(DataCop::kGroup);
    const auto note = [&](Hive hive, bool written) {
      Note("registry key " + HiveName(hive) + ToUtf8(key), written);
    };
    norvo::Registry& registry = component_.Machine().Registry();
    for (const Hive hive : {Hive::CurrentUser, Hive::LocalMachine}) {
      if (registry.KeyExists(hive, key)) return note(hive, false);
    }
    // The key begins with a drive, and Windows takes no new key right below the machine's hive.
    for (const Hive hive : {Hive::LocalMachine, Hive::CurrentUser}) {
      if (registry.CreateKey(hive, key)) return note(hive, true);
    }
    RaiseUnwritable();
  }

  void Folder(const char* what, StringView path) {
    const bool there = component_.Files().FolderExists(path);
    if (!there) CreateChain(path);
    Note(std::string(what) + ' ' + ToUtf8(path), !there);
  }

  void SubNames(const String& groupRoot) {
    const String path = Utility::AddBackslash(groupRoot) + u"SubNames.txt";
    const bool there = component_.Files().FileExists(path);
    if (!there) WriteSubNames(path);
    Note("file " + ToUtf8(path), !there);
  }

  std::vector<SetupStep> Steps() { return std::move(steps_); }

 private:
  String BaseKey() { return component_.Machine().Product().BaseKey(); }

  void Note(std::string what, bool written) { steps_.push_back({std::move(what), written}); }

  void Unusable(const char* what) {
    console_.LeftOut("The registry value " + std::string(what) +
                     ". It is left as it is; correct or remove it in " + kWords.registry +
                     ", then run init again.");
  }

  [[noreturn]] void RaiseUnwritable() { throw HostError(kWords.unwritableRegistry); }

  /// The value that the library will read; written when there is none. The current user's key hides
  /// the machine's as a whole, so a value that is missing there is repeated there.
  RegistryValue Value(const String& key, StringView name, const RegistryValue& initial) {
    norvo::Registry& registry = component_.Machine().Registry();
    const bool hasUserKey = registry.KeyExists(Hive::CurrentUser, key);
    const Hive hive = hasUserKey ? Hive::CurrentUser : Hive::LocalMachine;
    std::optional<RegistryValue> value = registry.Read(hive, key, name);
    const bool there = value.has_value();
    if (!there) {
      value = registry.Read(Hive::LocalMachine, key, name).value_or(initial);
      if (!registry.CreateKey(hive, key) || !registry.Write(hive, key, name, *value)) {
        RaiseUnwritable();
      }
    }
    Note("registry value " + HiveName(hive) + ToUtf8(key) + ", " + ToUtf8(name) + " = " +
             ValueText(*value),
         !there);
    return *value;
  }

  void CreateChain(StringView path) {
    try {
      for (std::size_t end = path.find(u'\\', 3); end != StringView::npos;
           end = path.find(u'\\', end + 1)) {
        const StringView level = path.substr(0, end);
        if (!component_.Files().FolderExists(level)) component_.Files().CreateFolder(level);
      }
      if (!component_.Files().FolderExists(path)) component_.Files().CreateFolder(path);
    } catch (const RunTimeError& failure) {
      throw HostError("The folder " + ToUtf8(path) +
                      " cannot be created: " + ToUtf8(failure.Description()) + ". " +
                      kWords.makeWritable + ", or choose a place on another drive.");
    }
  }

  void WriteSubNames(const String& path) {
    try {
      ProfileFile file(component_);
      file.CreateNew(path);
      file.SelectSection(u"PlayListStrings");
      for (const SubName& row : kSubNames) file.WriteValue(row.key, row.value);
      file.Close();
    } catch (const RunTimeError& failure) {
      throw HostError("The file " + ToUtf8(path) + " cannot be written: " +
                      ToUtf8(failure.Description()) + ". Make its folder writable.");
    }
  }

  Component& component_;
  Console& console_;
  std::vector<SetupStep> steps_;
};

/// The wished group root in full; HostError when it is no place on a drive.
std::optional<String> CheckedRoot(Component& component, const SetupWishes& wishes) {
  if (!wishes.groupRoot) return std::nullopt;
  const std::optional<String> text = FromUtf8(*wishes.groupRoot);
  const bool full = text && text->size() > 3 && HasDrive(*text) && IsSeparator((*text)[2]);
  if (!full) {
    throw HostError("--group-root " + *wishes.groupRoot +
                    R"( is no full path of the machine, such as D:\Norvo Media\)");
  }
  return Utility::AddBackslash(component.Files().AbsolutePathName(*text));
}

void CheckDrive(Component& component, StringView path) {
  if (!HasDrive(path)) {
    throw HostError("The group root " + ToUtf8(path) +
                    " is no full path of the machine. Correct SubGroupRootName in " +
                    kWords.registry + ".");
  }
  if (component.Files().FolderExists(String(DriveName(path)) + u"\\")) return;
  throw HostError("The group root " + ToUtf8(path) + " lies on drive " + ToUtf8(DriveName(path)) +
                  ", which " + kWords.lacksDrive +
                  ". Choose another place with --group-root PATH.");
}

}  // namespace

std::vector<SetupStep> SetUp(Component& component, const SetupWishes& wishes, Console& console) {
  const std::optional<String> wish = CheckedRoot(component, wishes);
  const Settings before = ReadSettings(component);
  // Checked before anything is written.
  const String planned = wish.value_or(String(kDefaultGroupRoot));
  CheckDrive(component, before.groupRoot.empty() ? planned : before.groupRoot);

  Setup setup(component, console);
  setup.Role(wishes.role);
  const String root = setup.GroupRoot(wish);
  if (!root.empty()) setup.GroupKey(root);
  if (wishes.withProductFolder) setup.ProductFolder(root);
  if (!root.empty()) {
    setup.Folder("group root folder", root);
    setup.SubNames(root);
  }
  return setup.Steps();
}

}  // namespace norvo
