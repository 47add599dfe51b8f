#include "P2ClipXml.h"

#include <memory>

#include <xercesc/dom/DOM.hpp>
#include <xercesc/util/XMLString.hpp>

#include "CardFolder.h"
#include "Fnd/SafeXmlParser.h"

namespace Browse {
namespace {

using namespace xercesc;

std::string Narrow(const XMLCh* text) {
    if (!text)
        return {};
    char* transcoded = XMLString::transcode(text);
    std::string out(transcoded ? transcoded : "");
    XMLString::release(&transcoded);
    return out;
}

std::string LocalName(const DOMNode* node) {
    std::string name = Narrow(node->getNodeName());
    const std::size_t colon = name.find(':');
    return colon == std::string::npos ? name : name.substr(colon + 1);
}

std::string Trimmed(std::string text) {
    const char* space = " \t\r\n";
    const std::size_t first = text.find_first_not_of(space);
    if (first == std::string::npos)
        return {};
    return text.substr(first, text.find_last_not_of(space) - first + 1);
}

std::string TextOf(const DOMNode* node) {
    return Trimmed(Narrow(node->getTextContent()));
}

// The GlobalClipID child of a Top, Previous or Next element.
std::string LinkedId(const DOMNode* link) {
    for (const DOMNode* child = link->getFirstChild(); child; child = child->getNextSibling())
        if (child->getNodeType() == DOMNode::ELEMENT_NODE && LocalName(child) == "GlobalClipID")
            return card::Upper(TextOf(child));
    return {};
}

void Walk(const DOMNode* node, bool insideConnection, P2ClipXml& out) {
    for (const DOMNode* child = node->getFirstChild(); child; child = child->getNextSibling()) {
        if (child->getNodeType() != DOMNode::ELEMENT_NODE)
            continue;
        const std::string name = LocalName(child);
        if (insideConnection && name == "Top")
            out.top = LinkedId(child);
        else if (insideConnection && name == "Previous")
            out.previous = LinkedId(child);
        else if (insideConnection && name == "Next")
            out.next = LinkedId(child);
        else if (name == "UserClipName" && out.userClipName.empty())
            out.userClipName = TextOf(child);
        else if (name == "GlobalClipID" && !insideConnection && out.globalClipId.empty())
            out.globalClipId = card::Upper(TextOf(child));
        else if (name == "OffsetInShot") {
            try {
                out.offsetInShot = std::stoll(TextOf(child));
            } catch (const std::exception&) {
                out.offsetInShot = 0;
            }
        } else
            Walk(child, insideConnection || name == "Connection", out);
    }
}

} // namespace

std::optional<P2ClipXml> ReadP2ClipXml(const std::filesystem::path& file, std::string& refusal) {
    // A card is read clip file after clip file: one parser per thread serves them all.
    thread_local Fnd::SafeXmlParser parser;
    const DOMDocument* document = parser.ParseFile(file.string(), Fnd::kMaxCardXmlBytes);
    if (!document) {
        refusal = parser.Error();
        return std::nullopt;
    }
    P2ClipXml out;
    Walk(document->getDocumentElement(), false, out);
    return out;
}

} // namespace Browse
