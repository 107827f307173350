#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "text/Text.h"

namespace norvo {

/// Lines of UTF-8, as expected values are written in tests.
using Lines = std::vector<std::string>;

/// The text as a failure message shows it. Unlike ToUtf8 it tells any two texts apart: a unit that
/// is half of no pair becomes "\u{D83D}".
std::string Utf8(StringView text);
Lines Utf8(const std::vector<String>& texts);

}  // namespace norvo

/// Compares two texts and shows them readably when they differ.
#define EXPECT_TEXT(actual, expected) EXPECT_EQ(::norvo::Utf8(actual), ::norvo::Utf8(expected))
#define ASSERT_TEXT(actual, expected) ASSERT_EQ(::norvo::Utf8(actual), ::norvo::Utf8(expected))
