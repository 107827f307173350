#include "lists/XmlDocument.h"

#include <algorithm>

#include "lists/ItemText.h"
#include "lists/MarkupMending.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

char ToLower(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + 32) : letter;
}

bool EqualNames(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char a, char b) { return ToLower(a) == ToLower(b); });
}

String Shown(const char* text) {
  return OnOneLine(FromUtf8Lossy(text));
}

}  // namespace

XmlDocument::XmlDocument(StringView text) {
  if (!Load(text)) Load(MendedMarkup(text));
}

bool XmlDocument::Load(StringView text) {
  bytes_ = ToUtf8(text);
  // It would end the text.
  std::replace(bytes_.begin(), bytes_.end(), '\0', ' ');
  // An element's text stands in its node, which halves the nodes of a list.
  constexpr unsigned kOptions = pugi::parse_default | pugi::parse_embed_pcdata;
  return document_.load_buffer_inplace(bytes_.data(), bytes_.size(), kOptions, pugi::encoding_utf8);
}

pugi::xml_node NextNode(pugi::xml_node node) {
  if (const pugi::xml_node child = node.first_child()) return child;
  for (; node; node = node.parent()) {
    if (const pugi::xml_node sibling = node.next_sibling()) return sibling;
  }
  return {};
}

bool IsElement(pugi::xml_node node, std::string_view name) {
  const std::string_view whole = node.name();
  return node.type() == pugi::node_element && EqualNames(whole.substr(whole.rfind(':') + 1), name);
}

String TextOf(pugi::xml_node element) {
  return Shown(element.child_value());
}

String AttributeOf(pugi::xml_node element, std::string_view name) {
  for (const pugi::xml_attribute attribute : element.attributes()) {
    if (EqualNames(attribute.name(), name)) return Shown(attribute.value());
  }
  return {};
}

}  // namespace norvo
