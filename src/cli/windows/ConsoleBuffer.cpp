#include "cli/windows/ConsoleBuffer.h"

#include <algorithm>

#include "text/Encoding.h"

namespace norvo::cli {
namespace {

// Older consoles take no more at once.
constexpr std::size_t kMostUnits = 8000;
constexpr std::size_t kWorthyBytes = 4096;

/// How many bytes of a text of UTF-8 end with a whole character.
std::size_t WholeBytes(const std::string& text) {
  const std::size_t begin = text.size() - std::min<std::size_t>(text.size(), 3);
  for (std::size_t at = text.size(); at-- > begin;) {
    const auto byte = static_cast<unsigned char>(text[at]);
    if (byte < 0x80) break;
    if (byte < 0xC0) continue;
    const std::size_t length = byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
    return at + length > text.size() ? at : text.size();
  }
  return text.size();
}

}  // namespace

ConsoleBuffer::~ConsoleBuffer() {
  sync();
}

ConsoleBuffer::int_type ConsoleBuffer::overflow(int_type unit) {
  if (traits_type::eq_int_type(unit, traits_type::eof())) return traits_type::not_eof(unit);
  const char byte = traits_type::to_char_type(unit);
  return xsputn(&byte, 1) == 1 ? unit : traits_type::eof();
}

std::streamsize ConsoleBuffer::xsputn(const char* bytes, std::streamsize count) {
  waiting_.append(bytes, static_cast<std::size_t>(count));
  return waiting_.size() < kWorthyBytes || sync() == 0 ? count : 0;
}

int ConsoleBuffer::sync() {
  const std::size_t whole = WholeBytes(waiting_);
  const String text = FromUtf8Lossy(std::string_view(waiting_).substr(0, whole));
  waiting_.erase(0, whole);
  for (std::size_t done = 0; done < text.size();) {
    const auto most = static_cast<DWORD>(std::min(text.size() - done, kMostUnits));
    DWORD written = 0;
    if (!::WriteConsoleW(console_, text.data() + done, most, &written, nullptr) || written == 0) {
      return -1;
    }
    done += written;
  }
  return 0;
}

}  // namespace norvo::cli
