#include <cstdio>
#include <string>

#include "QL/XmpSidecarWriter.h"

namespace QL {
namespace {

bool IsASCIILetter(char16_t c) {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

bool IsASCIIDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}

// "_x" followed by four hex digits and "_" reads as an escape, so a key that holds one literally
// escapes its underscore; decoding then gives the key back.
bool LooksLikeEscape(const std::u16string& key, std::size_t at) {
    if (at + 6 >= key.size() || key[at] != u'_' || key[at + 1] != u'x' || key[at + 6] != u'_')
        return false;
    for (std::size_t i = at + 2; i < at + 6; ++i) {
        const char16_t c = key[i];
        if (!IsASCIIDigit(c) && !(c >= u'a' && c <= u'f') && !(c >= u'A' && c <= u'F'))
            return false;
    }
    return true;
}

void AppendEscape(std::string& name, char16_t unit) {
    char escape[8];
    std::snprintf(escape, sizeof escape, "_x%04X_", static_cast<unsigned>(unit));
    name += escape;
}

} // namespace

std::string XmpPropertyNameFor(const std::u16string& key) {
    if (key.empty())
        return "_";
    std::string name;
    name.reserve(key.size());
    for (std::size_t i = 0; i < key.size(); ++i) {
        const char16_t c = key[i];
        const bool start = IsASCIILetter(c) || (c == u'_' && !LooksLikeEscape(key, i));
        const bool inner = start || IsASCIIDigit(c) || c == u'-' || c == u'.';
        if (i == 0 ? start : inner)
            name.push_back(static_cast<char>(c));
        else
            AppendEscape(name, c);
    }
    return name;
}

std::string XmpPrefixFor(const MetadataFieldSet& set) {
    std::string prefix;
    for (const char16_t c : set.presetName)
        if (IsASCIILetter(c) || IsASCIIDigit(c) || c == u'_')
            prefix.push_back(static_cast<char>(c));
    if (prefix.empty())
        return "igd";
    // Names starting with "xml", in any case, are reserved to XML itself.
    const bool reserved = prefix.size() >= 3 && (prefix[0] | 0x20) == 'x' && (prefix[1] | 0x20) == 'm' &&
                          (prefix[2] | 0x20) == 'l';
    if (IsASCIIDigit(prefix.front()) || reserved)
        prefix.insert(prefix.begin(), '_');
    return prefix;
}

} // namespace QL
