#pragma once

#include <string>

namespace norvo {

/// Makes an empty folder a junction to another one; false where the disk knows none. Both are full
/// paths with backslashes.
bool MakeJunction(const std::wstring& folder, const std::wstring& target);

}  // namespace norvo
