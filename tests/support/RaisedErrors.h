#pragma once

#include <cstdint>

#include "automation/RunTimeError.h"

namespace norvo {

/// Number of the run-time error that the work raises; 0 without one.
template <class Work>
std::int32_t NumberRaisedBy(Work&& work) {
  try {
    static_cast<void>(work());
  } catch (const RunTimeError& failure) {
    return failure.Number();
  }
  return 0;
}

}  // namespace norvo
