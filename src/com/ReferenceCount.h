#pragma once

#include <windows.h>

namespace norvo::com {

/// The references to an object; both give the number that is there afterwards.
class ReferenceCount {
 public:
  ULONG Add() { return static_cast<ULONG>(::InterlockedIncrement(&count_)); }
  ULONG Drop() { return static_cast<ULONG>(::InterlockedDecrement(&count_)); }

 private:
  LONG count_ = 0;
};

}  // namespace norvo::com
