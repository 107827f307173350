#include "platform/windows/WindowsMessages.h"

#include <windows.h>

#include "platform/windows/WideText.h"

namespace norvo {

void WindowsMessages::Show(StringView title, StringView text) {
  // No window is known to own it. Without a caption at all the system would write "Error" there.
  ::MessageBoxW(nullptr, ToWide(String(text)), ToWide(String(title)), MB_OK | MB_TASKMODAL);
}

}  // namespace norvo
