#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "automation/RunTimeError.h"

namespace norvo {

/// How calls of the system fail.
struct CallFault {
  /// Which of them are counted and may fail. To open a file or a key is both.
  enum class Calls { Looking, Changing };

  const char* name;
  Calls calls;
  DWORD reason;          ///< what `GetLastError` tells of them, or the call itself gives
  bool onwards = false;  ///< every later one fails, too
};

/// A disk that fails, one that is full, and a system that denies: once, or from there on.
const std::vector<CallFault>& CallFaults();

/// While it lives, the k-th call of this program to the system fails, k counted from 1: it is not
/// made. Only the program's own calls do, of its disks, its registry and its texts: each goes by
/// way of the program's import table, where another function stands meanwhile. What is closed is
/// closed. On one thread, one at a time.
class FailingCalls {
 public:
  FailingCalls(const CallFault& fault, std::size_t k);
  ~FailingCalls();
  FailingCalls(const FailingCalls&) = delete;
  FailingCalls& operator=(const FailingCalls&) = delete;

  /// How many calls have failed.
  std::size_t Count() const { return count_; }
  /// The last one that has; empty when none has.
  const std::string& Failed() const { return failed_; }

  /// Whether a call that is about to be made is to fail. For the functions in the import table.
  static bool Fails(const char* call, bool looks, bool changes);
  /// The reason of the fault that is at work. For the same.
  static DWORD Reason();

 private:
  CallFault fault_;
  std::size_t untilFailure_;
  std::size_t count_ = 0;
  std::string failed_;
};

/// One run of some work, in which one call fails.
class FailingRun {
 public:
  FailingRun(const CallFault& fault, std::size_t k) : fault_(fault), k_(k) {}

  /// Does the work. Nothing but a run-time error may come out of it.
  template <class Work>
  void Try(Work&& work) {
    const FailingCalls calls(fault_, k_);
    try {
      work();
    } catch (const RunTimeError& failure) {
      number_ = failure.Number();
    }
    count_ = calls.Count();
    failed_ = calls.Failed();
  }

  const CallFault& Fault() const { return fault_; }
  /// A call has failed.
  bool HasFailed() const { return count_ != 0; }
  /// The system call that has, the last one if there were several.
  const std::string& Failed() const { return failed_; }
  /// Number of the run-time error that came out; 0 without one.
  std::int32_t Number() const { return number_; }
  /// The fault, its place and the call, for messages.
  std::string Where() const {
    return std::string(fault_.name) + " at call " + std::to_string(k_) + " " + failed_;
  }

 private:
  const CallFault& fault_;
  std::size_t k_;
  std::size_t count_ = 0;
  std::string failed_;
  std::int32_t number_ = 0;
};

/// Fails the test that had fewer runs, and tells the test framework, in its document, how many all
/// tests of the program have had.
void CountFailingRuns(std::size_t runs, std::size_t least);

/// Calls `each` with runs in which the first, second, third ... call fails, until none fails any
/// more, for each of the faults. Less than `least` of them are a failure of the test itself.
template <class Each>
void ForEachFailure(const std::vector<CallFault>& faults, std::size_t least, Each&& each) {
  constexpr std::size_t kEnough = 20000;
  std::size_t runs = 0;
  for (const CallFault& fault : faults) {
    bool failed = true;
    for (std::size_t k = 1; failed && k < kEnough; ++k) {
      FailingRun run(fault, k);
      each(run);
      failed = run.HasFailed();
      runs += failed ? 1 : 0;
    }
  }
  CountFailingRuns(runs, least);
}
template <class Each>
void ForEachFailure(std::size_t least, Each&& each) {
  ForEachFailure(CallFaults(), least, each);
}

}  // namespace norvo
