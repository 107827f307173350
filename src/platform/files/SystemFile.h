#pragma once

#include <cstdint>
#include <utility>

namespace norvo {

/// An open file or folder of this system; closed with its owner.
class SystemFile {
 public:
  /// What the system calls an open file by: a descriptor, or a handle. -1 stands for none in both.
  using Native = std::intptr_t;

  SystemFile() = default;
  explicit SystemFile(Native native) : native_(native) {}
  ~SystemFile() { Close(); }
  SystemFile(SystemFile&& other) noexcept : native_(other.Release()) {}
  SystemFile& operator=(SystemFile&& other) noexcept {
    if (this != &other) {
      Close();
      native_ = other.Release();
    }
    return *this;
  }
  SystemFile(const SystemFile&) = delete;
  SystemFile& operator=(const SystemFile&) = delete;

  Native Get() const { return native_; }
  bool IsOpen() const { return native_ != kNone; }
  Native Release() { return std::exchange(native_, kNone); }
  /// Each system defines it.
  void Close();

 private:
  static constexpr Native kNone = -1;

  Native native_ = kNone;
};

}  // namespace norvo
