#include "fluxui/archive/Property.h"

namespace fluxui::archive {

const char* PropertyTypeName(PropertyType type) {
    switch (type) {
    case PropertyType::Map:
        return "prop.list";
    case PropertyType::UString:
        return "ustring";
    case PropertyType::String:
        return "string";
    case PropertyType::Int:
        return "int";
    case PropertyType::Float:
        return "float";
    case PropertyType::Double:
        return "double";
    case PropertyType::Bool:
        return "bool";
    case PropertyType::Array:
        return "array";
    }
    return "?";
}

const Property* Property::Find(std::string_view key) const {
    for (const PropertyPair& pair : pairs)
        if (pair.key == key)
            return &pair.value;
    return nullptr;
}

} // namespace fluxui::archive
