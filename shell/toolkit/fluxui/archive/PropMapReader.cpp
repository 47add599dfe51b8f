#include "shell/toolkit/fluxui/archive/PropMapReader.h"

#include <charconv>
#include <limits>
#include <memory>
#include <mutex>
#include <string>
#include <type_traits>

#include <xercesc/dom/DOM.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/sax/ErrorHandler.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/SecurityManager.hpp>

namespace fluxui::archive {

static_assert(std::is_same_v<XMLCh, char16_t>, "the archive reader assumes Xerces with char16_t XMLCh");

namespace {

using xercesc::DOMElement;
using xercesc::DOMNode;

void EnsureXercesInitialized() {
    // Xerces counts its initialisations; it is never terminated, as other parts of the process
    // may hold documents until exit.
    static std::once_flag once;
    std::call_once(once, [] { xercesc::XMLPlatformUtils::Initialize(); });
}

class ThrowingErrorHandler : public xercesc::ErrorHandler {
public:
    void warning(const xercesc::SAXParseException&) override {}
    void error(const xercesc::SAXParseException& e) override { Throw(e); }
    void fatalError(const xercesc::SAXParseException& e) override { Throw(e); }
    void resetErrors() override {}

private:
    [[noreturn]] static void Throw(const xercesc::SAXParseException& e) {
        throw PropMapError("malformed XML at line " + std::to_string(e.getLineNumber()) + ", column " +
                           std::to_string(e.getColumnNumber()) + ": " + Fnd::ToUTF8(e.getMessage()));
    }
};

std::u16string_view Name(const DOMNode& node) {
    return node.getNodeName();
}

bool IsBlank(std::u16string_view text) {
    for (char16_t c : text)
        if (c != u' ' && c != u'\t' && c != u'\r' && c != u'\n')
            return false;
    return true;
}

// Walks a parse and keeps the key path of the value being read, for messages.
class TreeReader {
public:
    Property ReadTop(const DOMElement& root) {
        if (Name(root) != u"prop.map")
            Fail("the root element is <" + Fnd::ToUTF8(Name(root)) + ">, not <prop.map>");
        const std::u16string_view version = root.getAttribute(u"version");
        if (version != u"4")
            Fail("prop.map version '" + Fnd::ToUTF8(version) + "' is not 4");
        const std::vector<const DOMElement*> children = Elements(root);
        if (children.size() != 1 || Name(*children[0]) != u"prop.list")
            Fail("<prop.map> must hold exactly one <prop.list>");
        return ReadValue(*children[0]);
    }

private:
    [[noreturn]] void Fail(const std::string& what) const {
        throw PropMapError(path_.empty() ? what : path_ + ": " + what);
    }

    // The element children; any text between them must be blank.
    std::vector<const DOMElement*> Elements(const DOMElement& element) const {
        std::vector<const DOMElement*> elements;
        for (const DOMNode* child = element.getFirstChild(); child; child = child->getNextSibling()) {
            switch (child->getNodeType()) {
            case DOMNode::ELEMENT_NODE:
                elements.push_back(static_cast<const DOMElement*>(child));
                break;
            case DOMNode::TEXT_NODE:
            case DOMNode::CDATA_SECTION_NODE:
                if (!IsBlank(child->getNodeValue()))
                    Fail("text inside <" + Fnd::ToUTF8(Name(element)) + ">");
                break;
            case DOMNode::COMMENT_NODE:
                break;
            default:
                Fail("unexpected content inside <" + Fnd::ToUTF8(Name(element)) + ">");
            }
        }
        return elements;
    }

    // The text of an element that may hold text only.
    Fnd::WString Text(const DOMElement& element) const {
        Fnd::WString text;
        for (const DOMNode* child = element.getFirstChild(); child; child = child->getNextSibling()) {
            switch (child->getNodeType()) {
            case DOMNode::TEXT_NODE:
            case DOMNode::CDATA_SECTION_NODE:
                text += child->getNodeValue();
                break;
            case DOMNode::COMMENT_NODE:
                break;
            default:
                Fail("<" + Fnd::ToUTF8(Name(element)) + "> may hold text only");
            }
        }
        return text;
    }

    void ExpectEmpty(const DOMElement& element) const {
        if (!Elements(element).empty())
            Fail("<" + Fnd::ToUTF8(Name(element)) + "> must be empty");
    }

    template <typename Number> Number ParseNumber(const DOMElement& element, const char* what) const {
        const std::string text = Fnd::ToUTF8(Text(element));
        Number value{};
        const char* first = text.data();
        const char* last = text.data() + text.size();
        const auto [end, error] = std::from_chars(first, last, value);
        if (text.empty() || error != std::errc() || end != last)
            Fail("'" + text + "' is not " + what);
        return value;
    }

    Property ReadValue(const DOMElement& element) {
        const std::u16string_view name = Name(element);
        Property value;
        if (name == u"prop.list") {
            value.type = PropertyType::Map;
            ReadPairs(element, value);
        } else if (name == u"ustring") {
            value.type = PropertyType::UString;
            value.text = Text(element);
        } else if (name == u"string") {
            value.type = PropertyType::String;
            value.narrow = Fnd::ToUTF8(Text(element));
        } else if (name == u"int") {
            ReadInt(element, value);
        } else if (name == u"float") {
            value.type = PropertyType::Float;
            value.number = ParseNumber<float>(element, "a float");
        } else if (name == u"double") {
            value.type = PropertyType::Double;
            value.number = ParseNumber<double>(element, "a double");
        } else if (name == u"true" || name == u"false") {
            ExpectEmpty(element);
            if (!IsBlank(Text(element)))
                Fail("<" + Fnd::ToUTF8(name) + "> must be empty");
            value.type = PropertyType::Bool;
            value.boolean = name == u"true";
        } else if (name == u"array") {
            ReadArray(element, value);
        } else {
            Fail("unknown value element <" + Fnd::ToUTF8(name) + ">");
        }
        return value;
    }

    void ReadInt(const DOMElement& element, Property& value) const {
        const std::u16string_view type = element.getAttribute(u"type");
        if (type != u"signed" && type != u"unsigned")
            Fail("<int> needs type='signed' or type='unsigned'");
        if (std::u16string_view(element.getAttribute(u"size")) != u"32")
            Fail("<int> needs size='32'");
        value.type = PropertyType::Int;
        value.isUnsigned = type == u"unsigned";
        value.integer = ParseNumber<std::int64_t>(element, "an integer");
        const std::int64_t low = value.isUnsigned ? 0 : std::numeric_limits<std::int32_t>::min();
        const std::int64_t high = value.isUnsigned ? std::numeric_limits<std::uint32_t>::max()
                                                   : std::numeric_limits<std::int32_t>::max();
        if (value.integer < low || value.integer > high)
            Fail(std::to_string(value.integer) + " is out of the range of a 32-bit " +
                 (value.isUnsigned ? "unsigned" : "signed") + " int");
    }

    void ReadArray(const DOMElement& element, Property& value) const {
        value.type = PropertyType::Array;
        const std::vector<const DOMElement*> children = Elements(element);
        if (children.empty() || Name(*children[0]) != u"array.type")
            Fail("<array> must begin with <array.type>");
        const std::vector<const DOMElement*> itemType = Elements(*children[0]);
        if (itemType.size() != 1 || Name(*itemType[0]) != u"ustring")
            Fail("<array.type> must name the item type ustring");
        for (std::size_t i = 1; i < children.size(); ++i) {
            if (Name(*children[i]) != u"ustring")
                Fail("array item " + std::to_string(i - 1) + " is <" + Fnd::ToUTF8(Name(*children[i])) +
                     ">, not <ustring>");
            value.items.push_back(Text(*children[i]));
        }
    }

    void ReadPairs(const DOMElement& list, Property& map) {
        for (const DOMElement* pair : Elements(list)) {
            if (Name(*pair) != u"prop.pair")
                Fail("<prop.list> holds <" + Fnd::ToUTF8(Name(*pair)) + ">, not <prop.pair>");
            const std::vector<const DOMElement*> parts = Elements(*pair);
            if (parts.size() != 2 || Name(*parts[0]) != u"key")
                Fail("a <prop.pair> holds one <key> and then one value");
            std::string key = Fnd::ToUTF8(Text(*parts[0]));
            if (key.empty())
                Fail("a <key> is empty");
            if (map.Find(key))
                Fail("the key '" + key + "' appears twice");
            const std::size_t mark = path_.size();
            path_ += path_.empty() ? key : "/" + key;
            Property value = ReadValue(*parts[1]);
            path_.resize(mark);
            map.pairs.push_back({std::move(key), std::move(value)});
        }
    }

    std::string path_;
};

// Making a parser costs more than parsing a layout, so each thread keeps one; layouts are built
// on the UI thread, so in practice there is one.
class ReusableParser {
public:
    ReusableParser() {
        parser_.setValidationScheme(xercesc::XercesDOMParser::Val_Never);
        parser_.setDoNamespaces(false);
        parser_.setDoSchema(false);
        parser_.setLoadExternalDTD(false);
        parser_.setCreateEntityReferenceNodes(false);
        // An archive declares no entities; the limit keeps a hostile one from expanding without end.
        security_.setEntityExpansionLimit(100);
        parser_.setSecurityManager(&security_);
        parser_.setErrorHandler(&errors_);
    }

    Property Read(std::span<const std::byte> document) {
        // Frees the parsed document on every way out, so that one layout's tree is not kept
        // until the next parse.
        struct Release {
            xercesc::XercesDOMParser& parser;
            ~Release() { parser.resetDocumentPool(); }
        } release{parser_};
        xercesc::MemBufInputSource source(reinterpret_cast<const XMLByte*>(document.data()), document.size(),
                                          "layout");
        try {
            parser_.parse(source);
        } catch (const xercesc::XMLException& e) {
            throw PropMapError("malformed XML: " + Fnd::ToUTF8(e.getMessage()));
        } catch (const xercesc::DOMException& e) {
            throw PropMapError("malformed XML: " + Fnd::ToUTF8(e.getMessage()));
        }
        const xercesc::DOMDocument* parsed = parser_.getDocument();
        if (!parsed || !parsed->getDocumentElement())
            throw PropMapError("the document is empty");
        TreeReader reader;
        return reader.ReadTop(*parsed->getDocumentElement());
    }

private:
    xercesc::SecurityManager security_;
    ThrowingErrorHandler errors_;
    xercesc::XercesDOMParser parser_;
};

} // namespace

Property PropMapReader::Read(std::span<const std::byte> document) {
    EnsureXercesInitialized();
    thread_local ReusableParser parser;
    return parser.Read(document);
}

} // namespace fluxui::archive
