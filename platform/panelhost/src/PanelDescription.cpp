#include "PanelDescription.h"

#include <fstream>

#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/dom/DOMNode.hpp>

#include "Fnd/SafeXmlParser.h"

namespace PanelkitManager {
namespace {

// Panel files are a few kilobytes; anything far larger is not a panel.
constexpr std::size_t kMaxPanelFileBytes = std::size_t{1} << 20;
// Larger than any screen: a panel asking for more is mistaken.
constexpr int kMaxPanelSide = 4096;

Fnd::WString Attribute(const xercesc::DOMElement& element, std::u16string_view name) {
    const XMLCh* value = element.getAttribute(Fnd::WString(name).c_str());
    return value ? Fnd::WString(value) : Fnd::WString();
}

std::string Name(const xercesc::DOMElement& element) {
    return Fnd::ToUTF8(Fnd::WStringView(element.getTagName()));
}

// Keys become element names of the answer, so they keep to plain XML names.
bool IsPlainXmlName(std::string_view name) {
    if (name.empty() || name.size() > 64)
        return false;
    const auto letter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; };
    if (!letter(name.front()))
        return false;
    if (name.size() >= 3 && (name[0] | 0x20) == 'x' && (name[1] | 0x20) == 'm' && (name[2] | 0x20) == 'l')
        return false;
    for (char c : name)
        if (!letter(c) && !(c >= '0' && c <= '9') && c != '-' && c != '.')
            return false;
    return true;
}

bool Flag(const xercesc::DOMElement& element, std::u16string_view name) {
    return Attribute(element, name) == u"true";
}

int Side(const xercesc::DOMElement& element, std::u16string_view name) {
    const std::string text = Fnd::ToUTF8(Attribute(element, name));
    int value = 0;
    for (char c : text) {
        if (c < '0' || c > '9' || value > kMaxPanelSide)
            throw PanelDescriptionError("manifest: " + Fnd::ToUTF8(name) + " is not a size: \"" + text + "\"");
        value = value * 10 + (c - '0');
    }
    if (value <= 0 || value > kMaxPanelSide)
        throw PanelDescriptionError("manifest: " + Fnd::ToUTF8(name) + " must be 1 to 4096, not \"" + text + "\"");
    return value;
}

const xercesc::DOMElement& Root(Fnd::SafeXmlParser& parser, std::string_view bytes, std::string_view file,
                                std::string_view rootName) {
    xercesc::DOMDocument* document = parser.Parse(bytes);
    if (!document)
        throw PanelDescriptionError(std::string(file) + ": " + parser.Error());
    const xercesc::DOMElement* root = document->getDocumentElement();
    if (Name(*root) != rootName)
        throw PanelDescriptionError(std::string(file) + ": the document element is <" + Name(*root) + ">, not <" +
                                    std::string(rootName) + ">");
    return *root;
}

PanelField ReadField(const xercesc::DOMElement& element, const Fnd::WString& uri, const Fnd::WString& prefix) {
    PanelField field;
    field.key = Fnd::ToUTF8(Attribute(element, u"key"));
    if (!IsPlainXmlName(field.key))
        throw PanelDescriptionError("form: the key \"" + field.key + "\" is not a plain XML name");
    field.label = Attribute(element, u"label");
    if (field.label.empty())
        field.label = Fnd::FromUTF8(field.key);
    const Fnd::WString kind = Attribute(element, u"kind");
    if (kind.empty() || kind == u"text")
        field.kind = FieldKind::Text;
    else if (kind == u"keywords")
        field.kind = FieldKind::Keywords;
    else if (kind == u"checkbox")
        field.kind = FieldKind::Checkbox;
    else
        throw PanelDescriptionError("form: the field " + field.key + " has the unknown kind \"" + Fnd::ToUTF8(kind) +
                                    "\"");
    field.required = Flag(element, u"required");
    if (field.kind != FieldKind::Keywords) {
        if (uri.empty())
            throw PanelDescriptionError("form: the field " + field.key + " lies outside a namespace with a uri");
        field.namespaceURI = uri;
        field.namespacePrefix = prefix;
    }
    return field;
}

void ReadFields(const xercesc::DOMElement& parent, const Fnd::WString& uri, const Fnd::WString& prefix,
                PanelDescription& panel) {
    for (const xercesc::DOMElement* child = parent.getFirstElementChild(); child;
         child = child->getNextElementSibling()) {
        const std::string name = Name(*child);
        if (name == "field")
            panel.fields.push_back(ReadField(*child, uri, prefix));
        else if (name == "namespace" && uri.empty())
            ReadFields(*child, Attribute(*child, u"uri"), Attribute(*child, u"prefix"), panel);
        else
            throw PanelDescriptionError("form: <" + name + "> is not expected there");
    }
}

} // namespace

PanelDescription ReadPanelManifest(std::string_view bytes) {
    Fnd::SafeXmlParser parser;
    const xercesc::DOMElement& root = Root(parser, bytes, "manifest", "panel");
    PanelDescription panel;
    panel.id = Fnd::ToUTF8(Attribute(root, u"id"));
    if (panel.id.empty())
        throw PanelDescriptionError("manifest: the panel has no id");
    panel.title = Attribute(root, u"title");
    const Fnd::WString mode = Attribute(root, u"mode");
    if (mode != u"modal" && mode != u"modeless")
        throw PanelDescriptionError("manifest: mode must be modal or modeless, not \"" + Fnd::ToUTF8(mode) + "\"");
    panel.modeless = mode == u"modeless";
    panel.width = Side(root, u"width");
    panel.height = Side(root, u"height");
    return panel;
}

void ReadPanelForm(std::string_view bytes, PanelDescription& panel) {
    Fnd::SafeXmlParser parser;
    const xercesc::DOMElement& root = Root(parser, bytes, "form", "form");
    panel.applyToAllDestinations = Flag(root, u"applyToAllDestinations");
    panel.storeEmptyInfo = Flag(root, u"storeEmptyInfo");
    panel.fields.clear();
    ReadFields(root, {}, {}, panel);
    for (std::size_t i = 0; i < panel.fields.size(); ++i)
        for (std::size_t j = 0; j < i; ++j)
            if (panel.fields[i].key == panel.fields[j].key)
                throw PanelDescriptionError("form: the key " + panel.fields[i].key + " is used twice");
}

PanelDescription ReadPanelFolder(const std::string& folder) {
    const auto read = [&](const char* name) {
        const std::string path = folder + "/" + name;
        std::ifstream file(path, std::ios::binary);
        if (!file)
            throw PanelDescriptionError(std::string(name) + ": cannot be opened");
        std::string bytes(kMaxPanelFileBytes + 1, '\0');
        file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        bytes.resize(static_cast<std::size_t>(file.gcount()));
        if (bytes.size() > kMaxPanelFileBytes)
            throw PanelDescriptionError(std::string(name) + ": larger than a panel file can be");
        return bytes;
    };
    PanelDescription panel = ReadPanelManifest(read("manifest.xml"));
    ReadPanelForm(read("form.xml"), panel);
    return panel;
}

} // namespace PanelkitManager
