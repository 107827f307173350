#pragma once

#include <windows.h>

#include <string>

#include "text/Text.h"

namespace norvo {

static_assert(sizeof(wchar_t) == sizeof(char16_t), "the system's texts are UTF-16");

/// The system's texts and the library's hold the same units under two names.
inline const wchar_t* ToWide(const String& text) {
  return reinterpret_cast<const wchar_t*>(text.c_str());
}
inline wchar_t* ToWide(String& text) {
  return reinterpret_cast<wchar_t*>(text.data());
}
/// Up to the NUL that ends the text.
inline String FromWide(const wchar_t* text) {
  return String(reinterpret_cast<const char16_t*>(text));
}
inline String FromWide(const wchar_t* text, std::size_t length) {
  return String(reinterpret_cast<const char16_t*>(text), length);
}

}  // namespace norvo
