#pragma once

namespace norvo {

/// Upper case of any UTF-16 unit, from a table made from the Unicode character database.
char16_t UpperCaseFromTable(char16_t unit) noexcept;

}  // namespace norvo
