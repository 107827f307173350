#include "lists/NameSpelling.h"

#include <utf8proc.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string>

#include "text/Ascii.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

// No disk has a longer name; sorting the marks of very many takes the square of the time.
constexpr std::size_t kLongestName = 1024;

struct Free {
  void operator()(utf8proc_uint8_t* bytes) const { std::free(bytes); }
};

String SpelledName(StringView name, utf8proc_option_t form) {
  if (IsAscii(name) || name.size() > kLongestName || !IsWholeUtf16(name)) return String(name);
  const std::string bytes = ToUtf8(name);
  utf8proc_uint8_t* result = nullptr;
  // The library takes bytes of its own type only.
  const utf8proc_ssize_t size =
      utf8proc_map(reinterpret_cast<const utf8proc_uint8_t*>(bytes.data()),
                   static_cast<utf8proc_ssize_t>(bytes.size()), &result,
                   static_cast<utf8proc_option_t>(UTF8PROC_STABLE | form));
  const std::unique_ptr<utf8proc_uint8_t, Free> owner(result);
  if (size < 0) return String(name);
  return FromUtf8Lossy({reinterpret_cast<const char*>(result), static_cast<std::size_t>(size)});
}

String Spelled(StringView path, utf8proc_option_t form) {
  String spelled;
  spelled.reserve(path.size());
  while (!path.empty()) {
    const std::size_t end = std::min(path.find_first_of(u"\\/"), path.size());
    spelled += SpelledName(path.substr(0, end), form);
    path.remove_prefix(end);
    if (path.empty()) break;
    spelled += path.front();
    path.remove_prefix(1);
  }
  return spelled;
}

}  // namespace

String Composed(StringView path) {
  return Spelled(path, UTF8PROC_COMPOSE);
}

String Decomposed(StringView path) {
  return Spelled(path, UTF8PROC_DECOMPOSE);
}

String FoldedSpelling(StringView path) {
  return Fold(Composed(path));
}

}  // namespace norvo
