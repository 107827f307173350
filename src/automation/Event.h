#pragma once

#include <functional>
#include <map>
#include <utility>

namespace norvo {

/// An event without arguments: listeners come and go, `Raise` calls those that are there.
class Event {
 public:
  using Listener = std::function<void()>;

  /// Gives the ticket to leave with; never 0.
  unsigned Subscribe(Listener listener) {
    listeners_.emplace(++lastTicket_, std::move(listener));
    return lastTicket_;
  }
  void Unsubscribe(unsigned ticket) { listeners_.erase(ticket); }

  void Raise() const {
    const auto present = listeners_;  // a listener may leave while it is being called
    for (const auto& [ticket, listener] : present) listener();
  }

 private:
  std::map<unsigned, Listener> listeners_;
  unsigned lastTicket_ = 0;
};

}  // namespace norvo
