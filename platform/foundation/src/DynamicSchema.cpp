#include "fluxmetadata/DynamicSchema.h"

namespace fluxmetadata {
namespace {

// XMP expects a namespace to end with "/" or "#"; the version segment leaves room to change the
// scheme without meeting URIs written by this one.
constexpr std::string_view kDynamicSchemaBase = "http://ns.igd.local/dynamic-schema/1.0/";

// Points are encoded too, so that no name can make a "." or ".." segment that a URI normaliser
// would fold away.
bool IsKeptAsIs(unsigned char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-' || c == '_';
}

} // namespace

std::string MakeDynamicSchemaNamespace(std::string_view name) {
    static constexpr char kHex[] = "0123456789ABCDEF";
    std::string uri(kDynamicSchemaBase);
    uri.reserve(uri.size() + name.size() * 3 + 1);
    for (const char byte : name) {
        const auto c = static_cast<unsigned char>(byte);
        if (IsKeptAsIs(c)) {
            uri += byte;
        } else {
            uri += '%';
            uri += kHex[c >> 4];
            uri += kHex[c & 0x0F];
        }
    }
    uri += '/';
    return uri;
}

} // namespace fluxmetadata
