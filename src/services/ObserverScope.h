#pragma once

#include "services/Component.h"
#include "services/Observer.h"

namespace norvo {

/// Lets an observer follow a component's work for as long as this lives, and puts back the one
/// before at its end, however that comes. The component and both observers must outlive it.
class ObserverScope {
 public:
  /// The component's observer is this one from now on.
  ObserverScope(Component& component, Observer& observer)
      : component_(component), before_(component.Watcher()) {
    component_.SetObserver(&observer);
  }
  ~ObserverScope() { component_.SetObserver(&before_); }
  ObserverScope(const ObserverScope&) = delete;
  ObserverScope& operator=(const ObserverScope&) = delete;

 private:
  Component& component_;
  Observer& before_;
};

}  // namespace norvo
