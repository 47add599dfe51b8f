#include "XmlTextWriter.h"

#include <stdexcept>

#include <xercesc/framework/XMLFormatter.hpp>

#include "Fnd/WString.h"
#include "Fnd/XmlParser.h"

namespace Mhl {
namespace {

using xercesc::XMLFormatter;

// Text as XML 1.0 can hold it: names are bytes, and a byte that is no UTF-8 or a control
// character has no place in the document, so it is written as the replacement character.
std::u16string XmlText(std::string_view utf8) {
    std::u16string text = Fnd::FromUTF8(Fnd::ToValidUTF8(Fnd::FromUTF8(utf8)));
    for (char16_t& unit : text)
        if (unit < 0x20 && unit != u'\t' && unit != u'\n' && unit != u'\r')
            unit = u'\uFFFD';
    return text;
}

} // namespace

class XmlTextWriter::Output : public xercesc::XMLFormatTarget {
public:
    Output() : formatter("UTF-8", this, XMLFormatter::NoEscapes, XMLFormatter::UnRep_CharRef) {}

    void writeChars(const XMLByte* bytes, XMLSize_t count, XMLFormatter*) override {
        text.append(reinterpret_cast<const char*>(bytes), count);
    }

    void Raw(std::string_view ascii) { text.append(ascii); }
    void Escaped(std::string_view utf8, XMLFormatter::EscapeFlags flags) {
        const std::u16string value = XmlText(utf8);
        formatter << flags;
        formatter.formatBuf(reinterpret_cast<const XMLCh*>(value.c_str()), value.size());
    }

    std::string text;
    XMLFormatter formatter;
};

XmlTextWriter::XmlTextWriter() {
    Fnd::EnsureXmlParser();
    output_ = std::make_unique<Output>();
    output_->Raw("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
}

XmlTextWriter::~XmlTextWriter() = default;

void XmlTextWriter::StartTag(std::string_view name, const Attributes& attributes) {
    output_->Raw(std::string(open_.size() * 2, ' '));
    output_->Raw("<");
    output_->Raw(name);
    for (const auto& [key, value] : attributes) {
        output_->Raw(" ");
        output_->Raw(key);
        output_->Raw("=\"");
        output_->Escaped(value, XMLFormatter::AttrEscapes);
        output_->Raw("\"");
    }
    output_->Raw(">");
}

void XmlTextWriter::Open(std::string_view name, const Attributes& attributes) {
    StartTag(name, attributes);
    output_->Raw("\n");
    open_.emplace_back(name);
}

void XmlTextWriter::Close() {
    if (open_.empty())
        throw std::logic_error("XmlTextWriter: no element is open");
    const std::string name = std::move(open_.back());
    open_.pop_back();
    output_->Raw(std::string(open_.size() * 2, ' ') + "</" + name + ">\n");
}

void XmlTextWriter::Text(std::string_view name, std::string_view text, const Attributes& attributes) {
    StartTag(name, attributes);
    output_->Escaped(text, XMLFormatter::CharEscapes);
    output_->Raw("</");
    output_->Raw(name);
    output_->Raw(">\n");
}

std::string XmlTextWriter::Finish() {
    if (!open_.empty())
        throw std::logic_error("XmlTextWriter: <" + open_.back() + "> is still open");
    return std::move(output_->text);
}

} // namespace Mhl
