#include "DomWalk.h"

#include "Fnd/WString.h"

namespace Mhl::Dom {
namespace {

std::string Trimmed(std::string text) {
    const auto blank = [](char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; };
    std::size_t end = text.size();
    while (end > 0 && blank(text[end - 1]))
        --end;
    std::size_t begin = 0;
    while (begin < end && blank(text[begin]))
        ++begin;
    return text.substr(begin, end - begin);
}

std::string Utf8(const XMLCh* text) {
    return text ? Fnd::ToUTF8(reinterpret_cast<const char16_t*>(text)) : std::string();
}

} // namespace

const xercesc::DOMElement* RootNamed(xercesc::DOMDocument* document, const std::string& parseError,
                                     std::string_view localName, std::string_view what, std::string& error) {
    if (!document) {
        error = parseError;
        return nullptr;
    }
    const xercesc::DOMElement* root = document->getDocumentElement();
    if (LocalName(*root) != localName) {
        error = "not " + std::string(what) + ": its root is <" + LocalName(*root) + ">";
        return nullptr;
    }
    return root;
}

std::string LocalName(const xercesc::DOMElement& element) {
    std::string name = Utf8(element.getTagName());
    const std::size_t colon = name.rfind(':');
    return colon == std::string::npos ? name : name.substr(colon + 1);
}

std::vector<const xercesc::DOMElement*> Children(const xercesc::DOMElement& parent) {
    std::vector<const xercesc::DOMElement*> children;
    for (const xercesc::DOMElement* child = parent.getFirstElementChild(); child;
         child = child->getNextElementSibling())
        children.push_back(child);
    return children;
}

const xercesc::DOMElement* Child(const xercesc::DOMElement& parent, std::string_view localName) {
    for (const xercesc::DOMElement* child = parent.getFirstElementChild(); child;
         child = child->getNextElementSibling())
        if (LocalName(*child) == localName)
            return child;
    return nullptr;
}

std::string Text(const xercesc::DOMElement* element) {
    return element ? Trimmed(Utf8(element->getTextContent())) : std::string();
}

std::string Attribute(const xercesc::DOMElement& element, const char16_t* name) {
    return Utf8(element.getAttribute(reinterpret_cast<const XMLCh*>(name)));
}

} // namespace Mhl::Dom
