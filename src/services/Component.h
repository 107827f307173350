#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "automation/AutomationObject.h"
#include "services/Observer.h"
#include "services/Platform.h"
#include "text/Encoding.h"

namespace norvo {

class Component;

/// A class that can be created by name.
struct CreatableClass {
  StringView name;                  ///< case does not matter
  ObjectRef (*create)(Component&);  ///< never gives null
};

/// Effect of each log message; values of the debug switch.
namespace log_mode {
inline constexpr std::int32_t kSilent = 0;      ///< dropped
inline constexpr std::int32_t kMessageBox = 1;  ///< shown, by the platform's `MessageDialog`
inline constexpr std::int32_t kFile = 3;        ///< a line of "VBLog.txt" in the product folder
}  // namespace log_mode

/// What logging has learnt on its first calls. For the library itself.
struct LogState {
  String productBaseKey;                  ///< empty until the first call
  String productFolder;                   ///< with a trailing backslash
  String productName;                     ///< title of the messages
  String debugKey;                        ///< registry key of the debug switch
  std::int32_t mode = log_mode::kSilent;  ///< see log_mode
  bool loaded = false;                    ///< the switch has been read
};

/// The six sub-names of the destination folders; slot n stands at n - 1. For the library itself.
struct SubNameTable {
  std::array<String, 6> names;  ///< empty where the machine has none
  bool loaded = false;          ///< they have been read
};

/// One library over one machine: the platform's services, the state that lives as long as the
/// library does, and the creation of classes. Objects refer to the component that created them,
/// which must outlive them. A component and its objects are used on one thread at a time; two
/// components share nothing.
class Component {
 public:
  /// `classes` must live as long as the component.
  Component(std::shared_ptr<Platform> platform, std::span<const CreatableClass> classes);
  /// Makes the migration list durable.
  ~Component();
  Component(const Component&) = delete;
  Component& operator=(const Component&) = delete;

  /// A new object of a public class, by its name in any case. Error 429 for an unknown name.
  ObjectRef Create(StringView className);
  /// The same by a name in UTF-8.
  ObjectRef Create(std::string_view className) { return Create(FromUtf8Lossy(className)); }

  /// The machine that the library works on.
  Platform& Machine() { return *platform_; }
  /// The machine's disks.
  FileSystem& Files() { return platform_->Files(); }

  /// Follows the work until it is replaced; null for nobody. Not owned.
  void SetObserver(Observer* observer);
  /// Who follows the work; an observer that does nothing while nobody does.
  Observer& Watcher() { return *observer_; }

  /// Sets the log mode, one of log_mode, for this component, whatever the machine's debug switch
  /// says.
  void SetLogMode(std::int32_t mode);

  /// From now on the machine's group root is this, whatever its registry says: a host whose work
  /// hangs together wants one root from its beginning to its end, and asks the registry once.
  void PinGroupRoot(String root) { pinnedGroupRoot_ = std::move(root); }
  /// What was pinned; nothing while the registry holds.
  const std::optional<String>& PinnedGroupRoot() const { return pinnedGroupRoot_; }

  /// For the library itself.
  LogState& Log() { return log_; }
  /// For the library itself.
  SubNameTable& SubNames() { return subNames_; }
  /// State of another subsystem that lives as long as the component; made when first asked for.
  template <class State>
  State& Own() {
    static constexpr char kKey = 0;  // its address is the state's name
    for (const auto& [key, state] : owned_) {
      if (key == &kKey) return *static_cast<State*>(state.get());
    }
    owned_.emplace_back(&kKey, std::make_shared<State>());
    return *static_cast<State*>(owned_.back().second.get());
  }

  /// Bytes of the existing local files that were judged so far.
  double& MediaBytes() { return mediaBytes_; }

 private:
  std::shared_ptr<Platform> platform_;
  std::span<const CreatableClass> classes_;
  Observer nobody_;
  Observer* observer_ = &nobody_;
  LogState log_;
  SubNameTable subNames_;
  double mediaBytes_ = 0;
  std::optional<String> pinnedGroupRoot_;
  std::vector<std::pair<const void*, std::shared_ptr<void>>> owned_;  // a few
};

}  // namespace norvo
