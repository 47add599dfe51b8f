#pragma once
#include <stdexcept>
#include <string>

#include "QL/IngestCustomData.h"

namespace QL {

// A sidecar that cannot be read or written; the message names the file and the reason.
class XmpSidecarError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The prefix a set's properties take in XMP: the preset's name reduced to an XML name (its
// ASCII letters, digits and underscores; "igd" when none is left; "_" before a leading digit or
// "xml"). When the namespace is known under another prefix already, that one is written instead.
std::string XmpPrefixFor(const MetadataFieldSet& set);

// The XMP property name of a field key. ASCII letters, digits, "-", "." and "_" stand as they are
// (a leading digit, "-" or "." excepted); every other UTF-16 unit becomes "_xHHHH_" with its
// upper-case hex value, as does an "_" that would otherwise start such a sequence. So
// "Camera Roll" is "Camera_x0020_Roll", "1st" is "_x0031_st", and the empty key is "_". The
// mapping never changes: it decides which property an older sidecar's value is found under.
std::string XmpPropertyNameFor(const std::u16string& key);

// Writes metadata into an XMP sidecar through Exempi: each set under its schema namespace and
// prefix, every value a simple property named by its field key; the keywords of the minimum
// metadata as dc:subject. An existing sidecar keeps everything else it holds. The file is written
// to a temporary name, flushed and renamed over the old one, so a crash leaves either. Empty
// values, of the template and of the panel alike, are written only when the panel's
// storeEmptyInfo asks for them; otherwise a value already in the sidecar stays. A sidecar that
// exists but is not XMP is refused, never replaced. Safe to call from any thread. Throws
// XmpSidecarError.
void WriteXmpSidecar(const std::string& sidecarPath, const IngestCustomData& data);

// Reads back the value of one property, found by field key as WriteXmpSidecar names it; empty
// when the file or the property is absent. Throws XmpSidecarError for a file that is not XMP.
std::u16string ReadXmpProperty(const std::string& sidecarPath, const std::u16string& namespaceURI,
                               const std::u16string& key);

} // namespace QL
