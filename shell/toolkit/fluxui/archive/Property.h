#pragma once
// One value of a layout archive, as the reader found it: a map of keys in file order, a text, a
// number, a Boolean or a list of texts.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "Fnd/WString.h"

namespace fluxui::archive {

enum class PropertyType { Map, UString, String, Int, Float, Double, Bool, Array };

// The element name of the type, for messages: "prop.list", "ustring", ...
const char* PropertyTypeName(PropertyType type);

struct PropertyPair;

struct Property {
    PropertyType type = PropertyType::Map;
    bool isUnsigned = false;         // Int: declared type='unsigned'
    std::int64_t integer = 0;        // Int
    double number = 0.0;             // Float, Double
    bool boolean = false;            // Bool
    Fnd::WString text;               // UString
    std::string narrow;              // String
    std::vector<Fnd::WString> items; // Array
    std::vector<PropertyPair> pairs; // Map, in file order

    // The value under key in a map, or null. Maps are small, so a scan is the quickest lookup.
    const Property* Find(std::string_view key) const;
};

struct PropertyPair {
    std::string key;
    Property value;
};

} // namespace fluxui::archive
