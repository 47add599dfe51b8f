#include "panels/MinimumMetadataAnswer.h"

#include <memory>

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/dom/DOMNode.hpp>

#include "Fnd/SafeXmlParser.h"
#include "PanelkitManager/PanelkitManager.h"

namespace IGD {
namespace {

using xercesc::DOMElement;

bool NameIs(const DOMElement& element, Fnd::WStringView name) {
    return Fnd::WStringView(element.getTagName()) == name;
}

const DOMElement* FirstChildNamed(const DOMElement& parent, Fnd::WStringView name) {
    for (const DOMElement* child = parent.getFirstElementChild(); child; child = child->getNextElementSibling())
        if (NameIs(*child, name))
            return child;
    return nullptr;
}

// The text of the element's first child node; a first child that is not text (an element, a
// comment) gives its own value, which for an element is nothing.
Fnd::WString FirstChildText(const DOMElement& element) {
    const xercesc::DOMNode* first = element.getFirstChild();
    if (!first || !first->getNodeValue())
        return {};
    return Fnd::WString(first->getNodeValue());
}

bool IsExactlyTrue(const DOMElement* element) {
    return element && FirstChildText(*element) == u"true";
}

std::shared_ptr<QL::MetadataFieldSet> ReadNamespace(const DOMElement& element) {
    auto set = std::make_shared<QL::MetadataFieldSet>();
    set->schemaNamespace = Fnd::WString(element.getAttribute(u"URI"));
    set->presetName = Fnd::WString(element.getAttribute(u"prefix"));
    // emplace keeps the first value of a name: a later duplicate does not override it.
    for (const DOMElement* value = element.getFirstElementChild(); value; value = value->getNextElementSibling())
        set->values.emplace(Fnd::WString(value->getTagName()), FirstChildText(*value));
    return set;
}

} // namespace

bool IsMinimumMetadataAnswerOK(Fnd::WStringView data) {
    const Fnd::WString status = PanelkitManager::GetInfoForProperty(data, "status", false);
    if (status.size() != 2)
        return false;
    // Only A to Z fold; any other letter must match as it is.
    auto upper = [](char16_t c) { return c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - u'a' + u'A') : c; };
    return upper(status[0]) == u'O' && upper(status[1]) == u'K';
}

void ReadMinimumMetadataAnswer(Fnd::WStringView data, QL::MinimumMetadataResult& result) {
    Fnd::SafeXmlParser parser;
    const xercesc::DOMDocument* document = parser.Parse(Fnd::ToUTF8(data));
    if (!document)
        return;
    const DOMElement* holder = FirstChildNamed(*document->getDocumentElement(), u"minimumMetadata");
    if (!holder)
        return;
    for (const DOMElement* child = holder->getFirstElementChild(); child; child = child->getNextElementSibling())
        if (NameIs(*child, u"namespace"))
            result.namespaces.push_back(ReadNamespace(*child));
    if (const DOMElement* keywords = FirstChildNamed(*holder, u"keywords"))
        for (const DOMElement* keyword = keywords->getFirstElementChild(); keyword;
             keyword = keyword->getNextElementSibling())
            if (NameIs(*keyword, u"keyword") && keyword->getFirstChild())
                result.keywords.insert(FirstChildText(*keyword));
    result.storeEmptyInfo = IsExactlyTrue(FirstChildNamed(*holder, u"storeEmptyInfo"));
    result.applyToAllDestinations = IsExactlyTrue(FirstChildNamed(*holder, u"applyToAllDestinations"));
}

} // namespace IGD
