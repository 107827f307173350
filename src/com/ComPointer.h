#pragma once

#include <windows.h>

#include <utility>

namespace norvo::com {

/// A counted reference to a system object; null is none.
template <class Interface>
class ComPointer {
 public:
  ComPointer() = default;
  /// Takes part in the ownership.
  explicit ComPointer(Interface* object) : object_(object) {
    if (object_ != nullptr) object_->AddRef();
  }
  ComPointer(const ComPointer& other) : ComPointer(other.object_) {}
  ComPointer(ComPointer&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  ComPointer& operator=(ComPointer other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~ComPointer() {
    if (object_ != nullptr) object_->Release();
  }

  Interface* Get() const { return object_; }
  Interface* operator->() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }

  /// The place where a system call leaves a counted reference; only for an empty pointer.
  Interface** Receive() { return &object_; }
  /// Hands the reference over to the caller.
  Interface* Detach() { return std::exchange(object_, nullptr); }

  /// Another interface of the same object; none when it has no such interface.
  template <class Other>
  ComPointer<Other> As() const {
    return As<Other>(__uuidof(Other));
  }
  template <class Other>
  ComPointer<Other> As(const IID& identifier) const {
    ComPointer<Other> other;
    if (object_ != nullptr) {
      void* found = nullptr;
      if (SUCCEEDED(object_->QueryInterface(identifier, &found))) {
        *other.Receive() = static_cast<Other*>(found);
      }
    }
    return other;
  }

 private:
  Interface* object_ = nullptr;
};

}  // namespace norvo::com
