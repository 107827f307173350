#pragma once

#include <optional>

#include "services/Registry.h"
#include "text/Text.h"

namespace norvo {

/// Lines of the registry's text form.

/// Around names and data it takes line ends for blanks too.
constexpr bool IsRegistryBlank(char16_t unit) noexcept {
  return IsBlankOrTab(unit) || unit == u'\r' || unit == u'\n';
}

/// One line with its continuations: a line of hexadecimal bytes goes on behind a backslash, a text
/// in quotes behind a line end within it.
struct RegistryLine {
  std::size_t end = 0;         ///< behind its line end
  std::optional<String> name;  ///< of a value line; empty for the key's default value
  std::size_t data = 0;        ///< of a value line: behind the "="
};

/// The line that starts at `start`, in a text that does not end there.
RegistryLine ReadRegistryLine(StringView text, std::size_t start);

/// The value that the data of a line stands for; nothing for every other type.
std::optional<RegistryValue> ParseRegistryData(StringView data);

/// `"name"=data` without a line end; nothing when the form cannot hold the name.
std::optional<String> FormatRegistryValue(StringView name, const RegistryValue& value);

}  // namespace norvo
