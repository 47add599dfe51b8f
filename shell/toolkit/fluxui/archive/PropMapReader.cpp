#include "fluxui/archive/PropMapReader.h"

#include <charconv>
#include <limits>
#include <memory>
#include <string>
#include <type_traits>

#include <xercesc/sax2/Attributes.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>

#include "Fnd/SafeXmlReader.h"

namespace fluxui::archive {

static_assert(std::is_same_v<XMLCh, char16_t>, "the archive reader assumes Xerces with char16_t XMLCh");

namespace {

// An element as the reader needs it. Xerces' DOM spends most of its time on checks and casts as
// it links nodes; an archive is read once, in order, so a plain tree built from SAX events does.
struct Element {
    std::u16string name;
    std::vector<std::pair<std::u16string, std::u16string>> attributes;
    std::u16string text; // all character data directly inside, between children too
    std::vector<Element> children;

    std::u16string_view getAttribute(std::u16string_view attribute) const {
        for (const auto& [key, value] : attributes)
            if (key == attribute)
                return value;
        return {};
    }
};
using DOMElement = Element;

// Builds the element tree from the parse.
class TreeBuilder : public xercesc::DefaultHandler {
public:
    void startDocument() override {
        open_.clear();
        root_ = Element();
    }
    void startElement(const XMLCh*, const XMLCh*, const XMLCh* qname,
                      const xercesc::Attributes& attributes) override {
        Element element;
        element.name = qname;
        for (XMLSize_t i = 0; i < attributes.getLength(); ++i)
            element.attributes.emplace_back(attributes.getQName(i), attributes.getValue(i));
        open_.push_back(std::move(element));
    }
    void endElement(const XMLCh*, const XMLCh*, const XMLCh*) override {
        Element element = std::move(open_.back());
        open_.pop_back();
        if (open_.empty())
            root_ = std::move(element);
        else
            open_.back().children.push_back(std::move(element));
    }
    void characters(const XMLCh* chars, const XMLSize_t length) override {
        if (!open_.empty())
            open_.back().text.append(chars, length);
    }
    const Element& Root() const { return root_; }

private:
    std::vector<Element> open_;
    Element root_;
};

std::u16string_view Name(const Element& element) {
    return element.name;
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
        if (!IsBlank(element.text))
            Fail("text inside <" + Fnd::ToUTF8(Name(element)) + ">");
        std::vector<const DOMElement*> elements;
        elements.reserve(element.children.size());
        for (const Element& child : element.children)
            elements.push_back(&child);
        return elements;
    }

    // The text of an element that may hold text only.
    Fnd::WString Text(const DOMElement& element) const {
        if (!element.children.empty())
            Fail("<" + Fnd::ToUTF8(Name(element)) + "> may hold text only");
        return element.text;
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
    ReusableParser() : reader_(builder_) {}

    Property Read(std::span<const std::byte> document) {
        const std::string problem =
            reader_.Parse(std::string_view(reinterpret_cast<const char*>(document.data()), document.size()));
        if (!problem.empty())
            throw PropMapError((problem.starts_with("line ") ? "malformed XML at " : "malformed XML: ") + problem);
        if (builder_.Root().name.empty())
            throw PropMapError("the document is empty");
        TreeReader reader;
        return reader.ReadTop(builder_.Root());
    }

private:
    TreeBuilder builder_;
    Fnd::SafeXmlReader reader_;
};

} // namespace

Property PropMapReader::Read(std::span<const std::byte> document) {
    thread_local ReusableParser parser;
    return parser.Read(document);
}

} // namespace fluxui::archive
