#pragma once

#include <pugixml.hpp>
#include <string>
#include <string_view>

#include "text/Text.h"

namespace norvo {

/// A text as XML, whether or not it is well-formed: one that is not is mended first, see
/// MendedMarkup. Any depth will do, since nothing here calls itself.
class XmlDocument {
 public:
  explicit XmlDocument(StringView text);

  /// The node above all others.
  pugi::xml_node Root() const { return document_; }

 private:
  bool Load(StringView text);

  std::string bytes_;  // in which the nodes' texts stand
  pugi::xml_document document_;
};

/// The node that follows in the document's order, children first; null at its end.
pugi::xml_node NextNode(pugi::xml_node node);

/// True for an element of that name, in any name space; case ignored.
bool IsElement(pugi::xml_node node, std::string_view name);

/// The text right in an element, on one line and without blanks around it; empty for no element.
String TextOf(pugi::xml_node element);

/// The value of an attribute, in the same way; case of its name ignored; empty without one.
String AttributeOf(pugi::xml_node element, std::string_view name);

}  // namespace norvo
