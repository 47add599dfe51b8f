#include "QL/PresetFileWriter.h"

#include <memory>
#include <stdexcept>

#include <xercesc/dom/DOM.hpp>
#include <xercesc/framework/MemBufFormatTarget.hpp>

#include "QL/PresetFieldTypeNames.h"
#include "XercesSupport.h"

namespace QL {
namespace {

using namespace xercesc;
using xml::X;

// XML 1.0 carries tab, line feed and carriage return, but no other control character, and no
// unpaired surrogate or U+FFFE/U+FFFF.
bool CanWriteText(const Fnd::WString& text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        if (unit < 0x20 && unit != u'\t' && unit != u'\n' && unit != u'\r')
            return false;
        if (unit == 0xFFFE || unit == 0xFFFF)
            return false;
        if (unit >= 0xD800 && unit <= 0xDBFF) {
            if (i + 1 >= text.size() || text[i + 1] < 0xDC00 || text[i + 1] > 0xDFFF)
                return false;
            ++i;
        } else if (unit >= 0xDC00 && unit <= 0xDFFF) {
            return false;
        }
    }
    return true;
}

Fnd::WString Wide(std::string_view ascii) {
    return Fnd::FromASCII(ascii);
}

DOMElement* AppendTextElement(DOMDocument& doc, DOMElement& parent, const char* tag,
                              const Fnd::WString& text) {
    DOMElement* element = doc.createElement(X(Wide(tag)));
    element->appendChild(doc.createTextNode(X(text)));
    parent.appendChild(element);
    return element;
}

struct DocumentDeleter {
    void operator()(DOMDocument* doc) const { doc->release(); }
};
struct SerializerDeleter {
    void operator()(DOMLSSerializer* serializer) const { serializer->release(); }
};
struct OutputDeleter {
    void operator()(DOMLSOutput* output) const { output->release(); }
};

} // namespace

bool CanWritePresetDocument(const PresetDocument& document) {
    if (!CanWriteText(document.name))
        return false;
    for (const auto& field : document.fields)
        if (!CanWriteText(field.key) || !CanWriteText(field.format))
            return false;
    return true;
}

std::string SerializePresetDocument(const PresetDocument& document) {
    if (!CanWritePresetDocument(document))
        throw std::invalid_argument("QL::SerializePresetDocument: a text holds a character XML cannot carry");
    Fnd::EnsureXmlParser();

    DOMImplementation* impl = DOMImplementationRegistry::getDOMImplementation(X(u"LS"));
    std::unique_ptr<DOMDocument, DocumentDeleter> doc(impl->createDocument(nullptr, X(u"preset"), nullptr));
    DOMElement* root = doc->getDocumentElement();
    root->setAttribute(X(u"schema"), X(Wide(kPresetSchemaName)));
    root->setAttribute(X(u"version"), X(Fnd::ToDecimal(kPresetSchemaVersion)));
    root->setAttribute(X(u"category"),
                       X(document.category == kQLPresetCategoryMetadata ? u"metadata" : u"rename"));
    AppendTextElement(*doc, *root, "name", document.name);
    for (const auto& field : document.fields) {
        DOMElement* element = doc->createElement(X(u"field"));
        element->setAttribute(X(u"type"), X(Wide(PresetFieldTypeName(field.type))));
        element->setAttribute(X(u"required"), X(field.required ? u"true" : u"false"));
        AppendTextElement(*doc, *element, "key", field.key);
        AppendTextElement(*doc, *element, "format", field.format);
        root->appendChild(element);
    }

    std::unique_ptr<DOMLSSerializer, SerializerDeleter> serializer(
        static_cast<DOMImplementationLS*>(impl)->createLSSerializer());
    DOMConfiguration* config = serializer->getDomConfig();
    if (config->canSetParameter(XMLUni::fgDOMWRTFormatPrettyPrint, true))
        config->setParameter(XMLUni::fgDOMWRTFormatPrettyPrint, true);
    MemBufFormatTarget target;
    std::unique_ptr<DOMLSOutput, OutputDeleter> output(
        static_cast<DOMImplementationLS*>(impl)->createLSOutput());
    output->setByteStream(&target);
    output->setEncoding(X(u"UTF-8"));
    serializer->write(doc.get(), output.get());
    return std::string(reinterpret_cast<const char*>(target.getRawBuffer()), target.getLen());
}

} // namespace QL
