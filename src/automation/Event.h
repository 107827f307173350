#pragma once

#include <functional>
#include <map>
#include <utility>

namespace norvo {

/// An event without arguments: listeners come and go, `Raise` calls those that are there.
class Event {
 public:
  /// What is called; it may come and go while it is called.
  using Listener = std::function<void()>;

  /// From now on `listener` is called. Gives the ticket to leave with; never 0.
  unsigned Subscribe(Listener listener) {
    listeners_.emplace(++lastTicket_, std::move(listener));
    return lastTicket_;
  }
  /// The listener of that ticket is called no more; nothing happens when there is none.
  void Unsubscribe(unsigned ticket) { listeners_.erase(ticket); }

  /// Calls all listeners, in the order of their coming. What one throws reaches the caller.
  void Raise() const {
    const auto present = listeners_;  // a listener may leave while it is being called
    for (const auto& [ticket, listener] : present) listener();
  }

 private:
  std::map<unsigned, Listener> listeners_;
  unsigned lastTicket_ = 0;
};

}  // namespace norvo
