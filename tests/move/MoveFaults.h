#pragma once

#include <gtest/gtest.h>

#include <string>

#include "move/MoveError.h"

namespace norvo {

/// The error that ends the work.
template <class Work>
MoveError ErrorOf(Work&& work) {
  try {
    static_cast<void>(work());
  } catch (const MoveError& error) {
    return error;
  }
  ADD_FAILURE() << "the work was done";
  return MoveError({});
}

/// Compares all that an error tells.
inline void ExpectError(const MoveError& error, MoveFault fault, const std::string& subject = {},
                        const std::string& detail = {}) {
  EXPECT_EQ(error.Fault(), fault) << error.what();
  EXPECT_EQ(error.Subject(), subject);
  EXPECT_EQ(error.Detail(), detail);
}

}  // namespace norvo
