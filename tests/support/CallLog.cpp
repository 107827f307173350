#include "support/CallLog.h"

#include <new>

#include "automation/RunTimeError.h"

namespace norvo {

void CallLog::Enter(StringView operation, StringView subject) {
  String line(operation);
  if (!subject.empty()) line.append(u" ").append(subject);
  trace_.push_back(std::move(line));
  const auto counted = counts_.find(operation);
  if (counted == counts_.end()) {
    counts_.emplace(operation, 1);
  } else {
    ++counted->second;
  }
  CountDown();
  const auto named = named_.find(operation);
  if (named == named_.end() || --named->second.calls > 0) return;
  const std::int32_t number = named->second.number;
  named_.erase(named);
  Fail(number);
}

void CallLog::CountDown() {
  if (untilFailure_ == kNever) return;
  if (untilFailure_ > 1) {
    --untilFailure_;
    return;
  }
  if (!onwards_) untilFailure_ = kNever;
  if (memory_) {
    failedCall_ = trace_.back();
    throw std::bad_alloc();
  }
  Fail(number_);
}

void CallLog::Fail(std::int32_t number) {
  failedCall_ = trace_.back();
  throw RunTimeError(number);
}

void CallLog::Arm(std::size_t k, std::int32_t number, bool onwards, bool memory) {
  untilFailure_ = k;
  number_ = number;
  onwards_ = onwards;
  memory_ = memory;
  failedCall_.clear();
}

void CallLog::FailAt(std::size_t k, std::int32_t number) {
  Arm(k, number, false, false);
}

void CallLog::FailFrom(std::size_t k, std::int32_t number) {
  Arm(k, number, true, false);
}

void CallLog::RunOutOfMemoryAt(std::size_t k) {
  Arm(k, error::kOutOfMemory, false, true);
}

void CallLog::FailOn(StringView operation, std::size_t k, std::int32_t number) {
  named_[String(operation)] = {k, number};
  failedCall_.clear();
}

void CallLog::OverlookAt(std::size_t k) {
  untilOverlooked_ = k;
  failedCall_.clear();
}

bool CallLog::Overlooks() {
  if (untilOverlooked_ == kNever || --untilOverlooked_ > 0) return false;
  untilOverlooked_ = kNever;
  failedCall_ = trace_.back();
  return true;
}

void CallLog::StopFailing() {
  untilFailure_ = kNever;
  untilOverlooked_ = kNever;
  named_.clear();
}

std::size_t CallLog::Count(StringView operation) const {
  const auto found = counts_.find(operation);
  return found == counts_.end() ? 0 : found->second;
}

void CallLog::Clear() {
  counts_.clear();
  trace_.clear();
}

}  // namespace norvo
