// Any text as the items of one PLS list.
#include "ListChecks.h"
#include "text/CodePage.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const norvo::String text = norvo::Windows1252().Decode(norvo::AsBytes(data, size));
  norvo::CheckList(text, norvo::ListSyntax::Pls);
  return 0;
}
