#pragma once

#include <windows.h>

#include <utility>

namespace norvo {

/// Owns what a system call has opened. `Kind` tells the handle's type, the value that is no handle,
/// and how one is closed.
template <class Kind>
class UniqueHandle {
 public:
  using Handle = typename Kind::Handle;

  UniqueHandle() = default;
  explicit UniqueHandle(Handle handle) : handle_(handle) {}
  ~UniqueHandle() { Close(); }
  UniqueHandle(UniqueHandle&& other) noexcept
      : handle_(std::exchange(other.handle_, Kind::None())) {}
  UniqueHandle& operator=(UniqueHandle&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }

  Handle Get() const { return handle_; }
  bool IsOpen() const { return handle_ != Kind::None(); }
  /// Leaves the thread's last error as it was.
  void Close() {
    if (!IsOpen()) return;
    const DWORD before = ::GetLastError();
    Kind::Close(std::exchange(handle_, Kind::None()));
    ::SetLastError(before);
  }

 private:
  Handle handle_ = Kind::None();
};

struct FileKind {
  using Handle = HANDLE;
  static Handle None() { return INVALID_HANDLE_VALUE; }
  static void Close(Handle handle) { ::CloseHandle(handle); }
};
struct SearchKind : FileKind {
  static void Close(Handle handle) { ::FindClose(handle); }
};
struct RegistryKind {
  using Handle = HKEY;
  static Handle None() { return nullptr; }
  static void Close(Handle handle) { ::RegCloseKey(handle); }
};
struct LibraryKind {
  using Handle = HMODULE;
  static Handle None() { return nullptr; }
  static void Close(Handle handle) { ::FreeLibrary(handle); }
};

using FileHandle = UniqueHandle<FileKind>;
using SearchHandle = UniqueHandle<SearchKind>;
using RegistryHandle = UniqueHandle<RegistryKind>;
using LibraryHandle = UniqueHandle<LibraryKind>;

}  // namespace norvo
