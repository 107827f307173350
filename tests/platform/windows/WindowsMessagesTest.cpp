#include "platform/windows/WindowsMessages.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <thread>

#include "platform/windows/WideText.h"
#include "support/TextPrinting.h"

namespace norvo {
namespace {

/// Waits for the box of this process, notes what it shows, and confirms it.
class Confirmer {
 public:
  Confirmer() : thread_([this] { Run(); }) {}
  void Wait() { thread_.join(); }

  String caption, text;
  bool seen = false;

 private:
  void Run() {
    constexpr int kTries = 500;
    constexpr DWORD kPause = 10;
    HWND box = nullptr;
    for (int i = 0; i < kTries && box == nullptr; ++i) {
      ::Sleep(kPause);
      ::EnumWindows(IsBox, reinterpret_cast<LPARAM>(&box));
    }
    if (box == nullptr) return;
    seen = true;
    caption = TextOf(box);
    text = TextOf(::GetDlgItem(box, kTextItem));
    ::PostMessageW(box, WM_COMMAND, IDOK, 0);
  }

  static BOOL CALLBACK IsBox(HWND window, LPARAM found) {
    DWORD process = 0;
    wchar_t name[16] = {};
    ::GetWindowThreadProcessId(window, &process);
    ::GetClassNameW(window, name, 16);
    // The text is there when the box is whole.
    const bool box = process == ::GetCurrentProcessId() && FromWide(name) == u"#32770" &&
                     ::GetDlgItem(window, kTextItem) != nullptr;
    if (box) *reinterpret_cast<HWND*>(found) = window;
    return !box;
  }

  static String TextOf(HWND window) {
    wchar_t shown[200] = {};
    ::GetWindowTextW(window, shown, 200);
    return FromWide(shown);
  }

  static constexpr int kTextItem = 0xFFFF;  // of every message box

  std::thread thread_;
};

bool HasDesktop() {
  const HWND window = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr,
                                        nullptr, nullptr);
  if (window != nullptr) ::DestroyWindow(window);
  return window != nullptr;
}

TEST(WindowsMessagesTest, ABoxShowsCaptionAndTextUntilItIsConfirmed) {
  if (!HasDesktop()) GTEST_SKIP() << "no window can be shown here";
  for (const StringView title : {u"Norvo ä", u""}) {
    Confirmer confirmer;
    WindowsMessages().Show(title, u"Line 1\nLine 音");
    confirmer.Wait();
    ASSERT_TRUE(confirmer.seen);
    EXPECT_TEXT(confirmer.caption, title);
    EXPECT_TEXT(confirmer.text, u"Line 1\nLine 音");
  }
}

}  // namespace
}  // namespace norvo
