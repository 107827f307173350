#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <map>
#include <vector>

#include "text/Text.h"

namespace norvo {

/// Counts the operations that the library asks of a machine, and makes chosen ones fail.
class CallLog {
 public:
  /// Notes one operation; raises when it is the one that shall fail.
  void Enter(StringView operation, StringView subject = {});

  /// The k-th operation from now on raises; k counts from 1.
  void FailAt(std::size_t k, std::int32_t number);
  /// The k-th operation from now on, and every later one, raises.
  void FailFrom(std::size_t k, std::int32_t number);
  /// The k-th operation from now on finds no memory: it throws std::bad_alloc.
  void RunOutOfMemoryAt(std::size_t k);
  /// The k-th call of the named operation from now on raises.
  void FailOn(StringView operation, std::size_t k, std::int32_t number);
  /// The k-th look for a file or a folder from now on finds none, as on a disk that fails for a
  /// moment.
  void OverlookAt(std::size_t k);
  /// To be asked at each such look.
  bool Overlooks();
  /// Nothing fails any more.
  void StopFailing();
  /// An operation has failed since a failure was last asked for.
  bool HasFailed() const { return !failedCall_.empty(); }
  /// The line of the last one that has; empty when none has.
  const String& Failed() const { return failedCall_; }

  std::size_t Total() const { return trace_.size(); }
  std::size_t Count(StringView operation) const;
  const std::map<String, std::size_t, std::less<>>& Counts() const { return counts_; }
  /// One line per operation, in call order: its name, a blank, and what it was asked about.
  const std::vector<String>& Trace() const { return trace_; }
  void Clear();

 private:
  static constexpr std::size_t kNever = std::numeric_limits<std::size_t>::max();

  struct NamedFailure {
    std::size_t calls;  // still to come, the failing one included
    std::int32_t number;
  };

  void Arm(std::size_t k, std::int32_t number, bool onwards, bool memory);
  [[noreturn]] void Fail(std::int32_t number);
  void CountDown();

  std::map<String, std::size_t, std::less<>> counts_;
  std::vector<String> trace_;
  std::map<String, NamedFailure, std::less<>> named_;
  std::size_t untilFailure_ = kNever;
  std::size_t untilOverlooked_ = kNever;
  std::int32_t number_ = 0;
  bool onwards_ = false;
  bool memory_ = false;
  String failedCall_;
};

}  // namespace norvo
