#pragma once

#include <windows.h>

#include <utility>

namespace norvo::clients {

/// A client's counted reference.
template <class Interface>
class Held {
 public:
  Held() = default;
  Held(const Held& other) : object_(other.object_) {
    if (object_ != nullptr) object_->AddRef();
  }
  Held(Held&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  Held& operator=(Held other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~Held() {
    if (object_ != nullptr) object_->Release();
  }

  Interface* Get() const { return object_; }
  Interface* operator->() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }

  /// Where a call leaves a reference; what was held before is let go of.
  Interface** Receive() {
    *this = {};
    return &object_;
  }
  void** ReceiveAny() { return reinterpret_cast<void**>(Receive()); }

  template <class Other>
  Held<Other> As() const {
    Held<Other> other;
    object_->QueryInterface(__uuidof(Other), other.ReceiveAny());
    return other;
  }

 private:
  Interface* object_ = nullptr;
};

/// Both are the same object.
template <class First, class Second>
bool IsSame(const Held<First>& first, const Held<Second>& second) {
  return first.template As<IUnknown>().Get() == second.template As<IUnknown>().Get();
}

}  // namespace norvo::clients
