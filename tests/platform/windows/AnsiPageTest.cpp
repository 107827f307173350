#include "platform/windows/AnsiPage.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "support/windows/ImportTable.h"

namespace norvo {
namespace {

TEST(AnsiPageTest, EveryByteComesBack) {
  std::string bytes;
  for (int byte = 1; byte < 256; ++byte) bytes.push_back(static_cast<char>(byte));
  const String text = SystemAnsiPage().Decode(bytes);
  EXPECT_EQ(text.size(), bytes.size());
  EXPECT_TRUE(SystemAnsiPage().Fits(text));
  EXPECT_EQ(SystemAnsiPage().Encode(text), bytes);
}

TEST(AnsiPageTest, ACharacterThatThePageLacksBecomesAQuestionMark) {
  EXPECT_EQ(SystemAnsiPage().Encode(u"a\u4e00b"), "a?b");
  EXPECT_FALSE(SystemAnsiPage().Fits(u"a\u4e00b"));
}

TEST(AnsiPageTest, ACharacterThatOnlyLooksAlikeIsNoReplacement) {
  EXPECT_EQ(SystemAnsiPage().Encode(u"\u0101"), "?");  // a with a macron
}

/// While it lives the system's page is UTF-8. The system then takes no flag, and nothing that
/// stands for characters that the page lacks.
class Utf8System {
 public:
  Utf8System() {
    page_ = ExchangeImport("GetACP", reinterpret_cast<Address>(&Page));
    decode_ = ExchangeImport("MultiByteToWideChar", reinterpret_cast<Address>(&Decode));
    encode_ = ExchangeImport("WideCharToMultiByte", reinterpret_cast<Address>(&Encode));
  }
  ~Utf8System() {
    ExchangeImport("GetACP", page_);
    ExchangeImport("MultiByteToWideChar", decode_);
    ExchangeImport("WideCharToMultiByte", encode_);
  }

 private:
  static UINT WINAPI Page() { return CP_UTF8; }
  static int WINAPI Decode(UINT, DWORD flags, LPCCH bytes, int length, LPWSTR text, int size) {
    return reinterpret_cast<decltype(&Decode)>(decode_)(CP_UTF8, flags, bytes, length, text, size);
  }
  static int WINAPI Encode(UINT, DWORD flags, LPCWCH text, int length, LPSTR bytes, int size,
                           LPCCH substitute, LPBOOL lost) {
    const bool refused = flags != 0 || substitute != nullptr || lost != nullptr;
    if (refused) ::SetLastError(ERROR_INVALID_PARAMETER);
    return refused ? 0
                   : reinterpret_cast<decltype(&Encode)>(encode_)(CP_UTF8, 0, text, length, bytes,
                                                                  size, nullptr, nullptr);
  }

  static inline Address page_ = 0;
  static inline Address decode_ = 0;
  static inline Address encode_ = 0;
};

TEST(AnsiPageTest, APageThatIsUtf8HoldsEveryCharacter) {
  const Utf8System system;
  const String text = u"a\u4e00\u0101\U0001F3B5";
  EXPECT_EQ(SystemAnsiPage().Encode(text), "a\xE4\xB8\x80\xC4\x81\xF0\x9F\x8E\xB5");
  EXPECT_EQ(SystemAnsiPage().Decode(SystemAnsiPage().Encode(text)), text);
  EXPECT_TRUE(SystemAnsiPage().Fits(text));
  EXPECT_FALSE(SystemAnsiPage().Fits(u"a" + String(1, char16_t{0xD800}))) << "half a character";
}

TEST(AnsiPageTest, TheEmptyTextIsEmpty) {
  EXPECT_EQ(SystemAnsiPage().Decode(""), u"");
  EXPECT_EQ(SystemAnsiPage().Encode(u""), "");
  EXPECT_TRUE(SystemAnsiPage().Fits(u""));
}

}  // namespace
}  // namespace norvo
