#pragma once

#include <string_view>

#include "text/CodePage.h"
#include "text/Text.h"

namespace norvo {

/// Text of a playlist file: by its byte order mark, or by the encoding that its XML declaration
/// names; without these UTF-16 when its first characters look so, and UTF-8 when all bytes are
/// valid as that; else the code page. A mark or declaration of UTF-8 over bytes that are not valid
/// as that is a mistake of the program that wrote it: then the page holds, too.
String DecodePlaylist(std::string_view bytes, const CodePage& page);

}  // namespace norvo
