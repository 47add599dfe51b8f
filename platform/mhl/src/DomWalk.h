#pragma once
// Small reading helpers over a parsed tree. The guarded parser does not resolve namespaces, so an
// element is known by its local name, whatever prefix its writer chose.
#include <string>
#include <string_view>
#include <vector>

#include <xercesc/dom/DOMElement.hpp>

namespace Mhl::Dom {

std::string LocalName(const xercesc::DOMElement& element);
std::vector<const xercesc::DOMElement*> Children(const xercesc::DOMElement& parent);
const xercesc::DOMElement* Child(const xercesc::DOMElement& parent, std::string_view localName);
// The element's text without the white space around it; empty for a missing element.
std::string Text(const xercesc::DOMElement* element);
std::string Attribute(const xercesc::DOMElement& element, const char16_t* name);

} // namespace Mhl::Dom
