#pragma once

#include <cstdint>

#include "text/Text.h"

namespace norvo {

/// Name of an ID3v1 genre byte. Every byte has one: 148 to 254 are "Unknown Genre", 255 is "No
/// Genre".
StringView GenreName(std::uint8_t genre) noexcept;

}  // namespace norvo
