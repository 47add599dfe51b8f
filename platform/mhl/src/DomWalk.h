#pragma once
// Small reading helpers over a parsed tree. The guarded parser does not resolve namespaces, so an
// element is known by its local name, whatever prefix its writer chose.
#include <string>
#include <string_view>
#include <vector>

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMElement.hpp>

namespace Mhl::Dom {

// The root of a parsed document when it has the local name; else null, with the parser's reason
// or, for another root, "not <what>: its root is <x>" in error.
const xercesc::DOMElement* RootNamed(xercesc::DOMDocument* document, const std::string& parseError,
                                     std::string_view localName, std::string_view what, std::string& error);
std::string LocalName(const xercesc::DOMElement& element);
std::vector<const xercesc::DOMElement*> Children(const xercesc::DOMElement& parent);
const xercesc::DOMElement* Child(const xercesc::DOMElement& parent, std::string_view localName);
// The element's text without the white space around it; empty for a missing element.
std::string Text(const xercesc::DOMElement* element);
std::string Attribute(const xercesc::DOMElement& element, const char16_t* name);

} // namespace Mhl::Dom
