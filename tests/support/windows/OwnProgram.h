#pragma once

#include <windows.h>

#include <string>
#include <utility>

namespace norvo {

/// This test program once more, as another process that runs one of its disabled tests. It is ended
/// with its owner, at whatever it is.
class OwnProgram {
 public:
  explicit OwnProgram(const std::string& test);
  ~OwnProgram() { Kill(); }
  OwnProgram(OwnProgram&& other) noexcept
      : process_(std::exchange(other.process_, nullptr)), number_(other.number_) {}
  OwnProgram& operator=(OwnProgram&&) = delete;

  DWORD Number() const { return number_; }
  void Kill();

 private:
  HANDLE process_ = nullptr;
  DWORD number_ = 0;
};

}  // namespace norvo
