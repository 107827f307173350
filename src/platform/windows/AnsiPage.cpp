#include "platform/windows/AnsiPage.h"

#include "automation/RunTimeError.h"
#include "platform/windows/WideText.h"
#include "platform/windows/WindowsError.h"

namespace norvo {
namespace {

/// What a conversion has given, of a text that is not empty.
int Converted(int units) {
  if (units == 0) throw RunTimeError(ErrorNumber(::GetLastError(), Subject::File));
  return units;
}

int LengthOf(std::size_t length) {
  if (length > 0x7FFFFFFF) throw RunTimeError(error::kOutOfMemory);
  return static_cast<int>(length);
}

class AnsiPage final : public CodePage {
 public:
  void AppendDecoded(String& text, std::string_view bytes) const override {
    const int length = LengthOf(bytes.size());
    if (length == 0) return;
    const int units = Converted(::MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, nullptr, 0));
    const std::size_t had = text.size();
    text.resize(had + static_cast<std::size_t>(units));
    Converted(::MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, ToWide(text) + had, units));
  }

  std::string Encode(StringView text) const override { return Convert(text, nullptr); }

  bool Fits(StringView text) const override {
    if (HoldsAll()) return Decode(Encode(text)) == text;
    BOOL lost = FALSE;
    Convert(text, &lost);
    return lost == FALSE;
  }

 private:
  /// The page is UTF-8, as people can choose. The system then refuses to be told what to do with a
  /// character that the page lacks.
  static bool HoldsAll() { return ::GetACP() == CP_UTF8; }

  /// Never a character that only looks like the one that the page lacks: it would name another
  /// file.
  static std::string Convert(StringView text, BOOL* lost) {
    const int length = LengthOf(text.size());
    if (length == 0) return {};
    const auto* wide = reinterpret_cast<const wchar_t*>(text.data());
    const bool all = HoldsAll();
    const DWORD flags = all ? 0 : WC_NO_BEST_FIT_CHARS;
    const char* const question = all ? nullptr : "?";
    const auto convert = [&](char* bytes, int size) {
      return Converted(
          ::WideCharToMultiByte(CP_ACP, flags, wide, length, bytes, size, question, lost));
    };
    std::string bytes(static_cast<std::size_t>(convert(nullptr, 0)), '\0');
    convert(bytes.data(), LengthOf(bytes.size()));
    return bytes;
  }
};

}  // namespace

const CodePage& SystemAnsiPage() {
  static const AnsiPage page;
  return page;
}

}  // namespace norvo
