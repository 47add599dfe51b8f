#pragma once
// Reads the prop.map form of a layout archive into a tree of properties. The reader knows the
// form only, not what the keys mean.
#include <cstddef>
#include <span>
#include <stdexcept>

#include "fluxui/archive/Property.h"

namespace fluxui::archive {

// Malformed XML or a document that is not in the prop.map form. The message says where.
class PropMapError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

class PropMapReader {
public:
    // The top prop.list of the document. Throws PropMapError.
    static Property Read(std::span<const std::byte> document);
};

} // namespace fluxui::archive
