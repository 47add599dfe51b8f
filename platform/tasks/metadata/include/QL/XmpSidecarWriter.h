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

// The prefix a set's properties take in XMP: the preset's name reduced to an XML name.
std::string XmpPrefixFor(const MetadataFieldSet& set);

// Writes metadata into an XMP sidecar through Exempi: each set under its schema namespace and
// prefix, every value a simple property named by its field key; the keywords of the minimum
// metadata as dc:subject. An existing sidecar keeps everything else it holds. The file is written
// to a temporary name, flushed and renamed over the old one, so a crash leaves either. Throws
// XmpSidecarError.
void WriteXmpSidecar(const std::string& sidecarPath, const IngestCustomData& data);

// Reads back the value of one property (empty when absent): for tests and the project import.
std::u16string ReadXmpProperty(const std::string& sidecarPath, const std::u16string& namespaceURI,
                               const std::u16string& key);

} // namespace QL
