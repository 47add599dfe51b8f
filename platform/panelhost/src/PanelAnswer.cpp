#include "PanelAnswer.h"

namespace PanelkitManager {
namespace {

constexpr Fnd::WStringView kRootName = u"panelAnswer";

bool IsHighSurrogate(char16_t c) { return c >= 0xD800 && c <= 0xDBFF; }
bool IsLowSurrogate(char16_t c) { return c >= 0xDC00 && c <= 0xDFFF; }

void AppendEscaped(Fnd::WString& out, Fnd::WStringView text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t c = text[i];
        // A character outside the basic plane travels as its pair; half a pair, as a broken paste
        // leaves it, cannot be written in XML at all and is dropped like a control character.
        if (IsHighSurrogate(c) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
            out += c;
            out += text[++i];
            continue;
        }
        if (IsHighSurrogate(c) || IsLowSurrogate(c))
            continue;
        switch (c) {
        case u'&': out += u"&amp;"; break;
        case u'<': out += u"&lt;"; break;
        case u'>': out += u"&gt;"; break;
        case u'"': out += u"&quot;"; break;
        case u'\'': out += u"&apos;"; break;
        default:
            // XML 1.0 has no way to carry these; a pasted control character is dropped rather
            // than making the whole answer unreadable.
            if ((c < 0x20 && c != u'\t' && c != u'\n' && c != u'\r') || c == 0xFFFE || c == 0xFFFF)
                break;
            out += c;
        }
    }
}

void AppendElement(Fnd::WString& out, Fnd::WStringView name, Fnd::WStringView text) {
    out.append(u"<").append(name).append(u">");
    AppendEscaped(out, text);
    out.append(u"</").append(name).append(u">");
}

Fnd::WString Open(Fnd::WStringView status) {
    Fnd::WString out = u"<?xml version=\"1.0\"?><";
    out.append(kRootName).append(u" status=\"");
    AppendEscaped(out, status);
    out += u"\"";
    return out;
}

} // namespace

std::vector<Fnd::WString> SplitKeywords(Fnd::WStringView text) {
    std::vector<Fnd::WString> keywords;
    std::size_t start = 0;
    while (start <= text.size()) {
        std::size_t end = text.find_first_of(u",;", start);
        if (end == Fnd::WStringView::npos)
            end = text.size();
        Fnd::WString keyword = Fnd::Trim(text.substr(start, end - start), u" \t\r\n");
        if (!keyword.empty())
            keywords.push_back(std::move(keyword));
        start = end + 1;
    }
    return keywords;
}

Fnd::WString WriteStatusAnswer(Fnd::WStringView status) {
    return Open(status) + u"/>";
}

Fnd::WString WriteMinimumMetadataAnswer(const PanelDescription& panel, const std::vector<Fnd::WString>& values,
                                        bool applyToAllDestinations) {
    Fnd::WString out = Open(u"OK");
    out += u"><minimumMetadata>";
    // One namespace element per URI, in the order the form first names it.
    std::vector<bool> written(panel.fields.size(), false);
    for (std::size_t i = 0; i < panel.fields.size(); ++i) {
        const PanelField& first = panel.fields[i];
        if (written[i] || first.kind == FieldKind::Keywords)
            continue;
        out += u"<namespace URI=\"";
        AppendEscaped(out, first.namespaceURI);
        out += u"\" prefix=\"";
        AppendEscaped(out, first.namespacePrefix);
        out += u"\">";
        for (std::size_t j = i; j < panel.fields.size(); ++j) {
            const PanelField& field = panel.fields[j];
            if (field.kind == FieldKind::Keywords || field.namespaceURI != first.namespaceURI)
                continue;
            written[j] = true;
            AppendElement(out, Fnd::FromUTF8(field.key), values.at(j));
        }
        out += u"</namespace>";
    }
    out += u"<keywords>";
    for (std::size_t i = 0; i < panel.fields.size(); ++i)
        if (panel.fields[i].kind == FieldKind::Keywords)
            for (const Fnd::WString& keyword : SplitKeywords(values.at(i)))
                AppendElement(out, u"keyword", keyword);
    out += u"</keywords>";
    AppendElement(out, u"storeEmptyInfo", panel.storeEmptyInfo ? u"true" : u"false");
    AppendElement(out, u"applyToAllDestinations", applyToAllDestinations ? u"true" : u"false");
    out.append(u"</minimumMetadata></").append(kRootName).append(u">");
    return out;
}

} // namespace PanelkitManager
