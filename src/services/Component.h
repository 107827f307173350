#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <typeindex>
#include <typeinfo>
#include <unordered_map>
#include <utility>

#include "automation/AutomationObject.h"
#include "services/Observer.h"
#include "services/Platform.h"

namespace norvo {

class Component;

/// A class that can be created by name.
struct CreatableClass {
  StringView name;
  ObjectRef (*create)(Component&);
};

/// Effect of each log message; values of the debug switch.
namespace log_mode {
inline constexpr std::int32_t kSilent = 0;
inline constexpr std::int32_t kMessageBox = 1;
inline constexpr std::int32_t kFile = 3;
}  // namespace log_mode

/// What logging has learnt on its first calls.
struct LogState {
  String productBaseKey;  ///< empty until the first call
  String productFolder;
  String productName;
  String debugKey;
  std::int32_t mode = log_mode::kSilent;
  bool loaded = false;  ///< the switch has been read
};

/// The six sub-names of the destination folders; slot n stands at n - 1.
struct SubNameTable {
  std::array<String, 6> names;
  bool loaded = false;
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

  Platform& Machine() { return *platform_; }
  FileSystem& Files() { return platform_->Files(); }

  /// Follows the work until it is replaced; null for nobody. Not owned.
  void SetObserver(Observer* observer);
  Observer& Watcher() { return *observer_; }

  /// Sets the log mode for this component, whatever the machine's debug switch says.
  void SetLogMode(std::int32_t mode);

  /// From now on the machine's group root is this, whatever its registry says: a host whose work
  /// hangs together wants one root from its beginning to its end, and asks the registry once.
  void PinGroupRoot(String root) { pinnedGroupRoot_ = std::move(root); }
  const std::optional<String>& PinnedGroupRoot() const { return pinnedGroupRoot_; }

  LogState& Log() { return log_; }
  SubNameTable& SubNames() { return subNames_; }
  /// State of another subsystem that lives as long as the component; made when first asked for.
  template <class State>
  State& Own() {
    std::shared_ptr<void>& slot = owned_[std::type_index(typeid(State))];
    if (!slot) slot = std::make_shared<State>();
    return *static_cast<State*>(slot.get());
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
  std::unordered_map<std::type_index, std::shared_ptr<void>> owned_;
};

}  // namespace norvo
