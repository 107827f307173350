// Any bytes as a settings file: what is written must read back as it was.
#include "FuzzedPlaylist.h"
#include "services/IniDocument.h"
#include "text/Encoding.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const norvo::String text = norvo::DecodeFile(norvo::AsBytes(data, size), norvo::Windows1252());
  const norvo::String once = norvo::IniDocument(text).ToText();
  const norvo::String twice = norvo::IniDocument(once).ToText();
  if (once != twice) std::abort();
  return 0;
}
