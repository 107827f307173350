// Any text as markup: what is scanned stands in the text, what is mended is XML that needs no
// mending, and entities make no text longer.
#include <pugixml.hpp>

#include "Fuzzing.h"
#include "lists/MarkupMending.h"
#include "lists/MarkupScanner.h"
#include "lists/XmlEntities.h"
#include "text/Encoding.h"

namespace {

using namespace norvo;

void CheckTags(StringView text) {
  MarkupScanner tags(text);
  std::size_t behind = 0;
  for (std::size_t found = 0; tags.Next(); ++found) {
    Require(tags.Position() < text.size() && text[tags.Position()] == u'<');
    Require(found == 0 || tags.Position() > behind);
    behind = tags.Position();
    Require(IsViewOf(tags.TextBefore(), text) && IsViewOf(tags.Name(), text));
    for (const MarkupScanner::NamedValue& attribute : tags.Attributes()) {
      Require(IsViewOf(attribute.name, text) && IsViewOf(attribute.value, text));
    }
  }
  Require(IsViewOf(tags.TextBefore(), text));
}

void CheckMending(StringView text) {
  const String mended = MendedMarkup(text);
  pugi::xml_document document;
  const std::string bytes = ToUtf8(mended.substr(0, mended.find(u'\0')));
  const auto status = document.load_buffer(bytes.data(), bytes.size()).status;
  const bool isCut = bytes.size() < ToUtf8(mended).size();
  Require(isCut || status == pugi::status_ok || status == pugi::status_no_document_element);
  Require(MendedMarkup(mended) == mended);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const String text = FromUtf8Lossy(AsBytes(data, size));
  CheckTags(text);
  CheckMending(text);
  Require(DecodeEntities(text).size() <= text.size());
  return 0;
}
