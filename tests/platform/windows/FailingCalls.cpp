#include "FailingCalls.h"

#include <gtest/gtest.h>

#include <shlobj.h>

#include <algorithm>
#include <type_traits>

#include "support/windows/ImportTable.h"

namespace norvo {
namespace {

FailingCalls* atWork = nullptr;

/// What a call gives that fails: nothing, the value that is no handle and no attributes, or the
/// reason itself.
enum class Gives { Zero, MinusOne, Reason };

/// What a call does; see `CallFault::Calls`.
enum class Does { Look, Change, Both };

/// A function of the system that may fail, and the one that stands for it meanwhile.
struct Substitute {
  const char* name;
  Address function;
  Address& original;
};

/// The name of a function, as what tells its substitute from those of others.
template <std::size_t size>
struct FunctionName {
  constexpr FunctionName(const char (&name)[size]) { std::copy_n(name, size, text); }
  char text[size];
};

template <FunctionName name, Does does, Gives gives, class Function>
struct Counted;

template <FunctionName name, Does does, Gives gives, class Result, class... Arguments>
struct Counted<name, does, gives, Result(WINAPI*)(Arguments...)> {
  static inline Address original = 0;

  static Result WINAPI Call(Arguments... arguments) {
    if (FailingCalls::Fails(name.text, does != Does::Change, does != Does::Look)) return Failure();
    return reinterpret_cast<Result(WINAPI*)(Arguments...)>(original)(arguments...);
  }

  static Result Failure() {
    ::SetLastError(FailingCalls::Reason());
    if constexpr (std::is_pointer_v<Result>) {
      return reinterpret_cast<Result>(gives == Gives::Zero ? LONG_PTR{0} : LONG_PTR{-1});
    } else if constexpr (gives == Gives::Reason) {
      return static_cast<Result>(FailingCalls::Reason());
    } else {
      return static_cast<Result>(gives == Gives::Zero ? 0 : -1);
    }
  }

  static Substitute Row() { return {name.text, reinterpret_cast<Address>(&Call), original}; }
};

// The name of a function is text and type at once.
#define NORVO_CALL(function, does, gives) \
  Counted<#function, Does::does, Gives::gives, decltype(&::function)>::Row()

/// All that src/platform/windows asks of the system and that tells whether it has failed. Missing
/// are those that cannot: they look at nothing but memory.
const std::vector<Substitute>& Substitutes() {
  static const std::vector<Substitute> all = {
      NORVO_CALL(CreateFileW, Both, MinusOne),
      NORVO_CALL(ReadFile, Look, Zero),
      NORVO_CALL(WriteFile, Change, Zero),
      NORVO_CALL(FlushFileBuffers, Change, Zero),
      NORVO_CALL(GetFileSizeEx, Look, Zero),
      NORVO_CALL(GetFileType, Look, Zero),
      NORVO_CALL(GetFileAttributesW, Look, MinusOne),
      NORVO_CALL(SetFileAttributesW, Change, Zero),
      NORVO_CALL(GetFileInformationByHandle, Look, Zero),
      NORVO_CALL(FindFirstFileExW, Look, MinusOne),
      NORVO_CALL(FindNextFileW, Look, Zero),
      NORVO_CALL(CreateDirectoryW, Change, Zero),
      NORVO_CALL(DeleteFileW, Change, Zero),
      NORVO_CALL(MoveFileExW, Change, Zero),
      NORVO_CALL(GetLogicalDrives, Look, Zero),
      NORVO_CALL(GetCurrentDirectoryW, Look, Zero),
      NORVO_CALL(GetSystemDirectoryW, Look, Zero),
      NORVO_CALL(GetModuleHandleExW, Look, Zero),
      NORVO_CALL(GetModuleFileNameW, Look, Zero),
      NORVO_CALL(LoadLibraryW, Look, Zero),
      NORVO_CALL(GetFileVersionInfoSizeW, Look, Zero),
      NORVO_CALL(GetFileVersionInfoW, Look, Zero),
      NORVO_CALL(SHGetSpecialFolderPathA, Look, Zero),
      NORVO_CALL(MultiByteToWideChar, Look, Zero),
      NORVO_CALL(WideCharToMultiByte, Look, Zero),
      NORVO_CALL(RegOpenKeyExW, Both, Reason),
      NORVO_CALL(RegQueryValueExW, Look, Reason),
      NORVO_CALL(RegSetValueExW, Change, Reason),
      NORVO_CALL(RegCreateKeyExW, Change, Reason),
  };
  return all;
}

#undef NORVO_CALL

}  // namespace

const std::vector<CallFault>& CallFaults() {
  using Calls = CallFault::Calls;
  static const std::vector<CallFault> faults = {
      {"a disk that fails", Calls::Looking, ERROR_IO_DEVICE},
      {"a look that is denied", Calls::Looking, ERROR_ACCESS_DENIED},
      {"what is in use", Calls::Looking, ERROR_SHARING_VIOLATION},
      {"no memory", Calls::Looking, ERROR_NOT_ENOUGH_MEMORY},
      {"a full disk", Calls::Changing, ERROR_DISK_FULL},
      {"a change that is denied", Calls::Changing, ERROR_ACCESS_DENIED},
      {"a disk that fails from there on", Calls::Looking, ERROR_IO_DEVICE, true},
      {"a disk that is full from there on", Calls::Changing, ERROR_DISK_FULL, true},
  };
  return faults;
}

FailingCalls::FailingCalls(const CallFault& fault, std::size_t k)
    : fault_(fault), untilFailure_(k) {
  atWork = this;
  for (const Substitute& each : Substitutes())
    each.original = ExchangeImport(each.name, each.function);
}

FailingCalls::~FailingCalls() {
  for (const Substitute& each : Substitutes()) ExchangeImport(each.name, each.original);
  atWork = nullptr;
}

bool FailingCalls::Fails(const char* call, bool looks, bool changes) {
  FailingCalls& self = *atWork;
  if (!(self.fault_.calls == CallFault::Calls::Looking ? looks : changes)) return false;
  if (self.untilFailure_ > 0) --self.untilFailure_;
  const bool fails = self.untilFailure_ == 0 && (self.count_ == 0 || self.fault_.onwards);
  if (!fails) return false;
  ++self.count_;
  self.failed_ = call;
  return true;
}

DWORD FailingCalls::Reason() {
  return atWork->fault_.reason;
}

void CountFailingRuns(std::size_t runs, std::size_t least) {
  EXPECT_GE(runs, least);
  static std::size_t all = 0;
  all += runs;
  ::testing::Test::RecordProperty("failing_runs_so_far", std::to_string(all));
}

}  // namespace norvo
