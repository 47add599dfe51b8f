#pragma once
#include <list>
#include <map>
#include <memory>
#include <set>

#include "Fnd/WString.h"

namespace QL {

// One group of metadata values under one schema namespace.
struct MetadataFieldSet {
    Fnd::WString schemaNamespace;
    Fnd::WString presetName;
    std::map<Fnd::WString, Fnd::WString> values; // field key to value
};

using MetadataFieldSetList = std::list<std::shared_ptr<MetadataFieldSet>>;

// The answers of the minimum metadata panel.
struct MinimumMetadataResult {
    MetadataFieldSetList namespaces;
    std::set<Fnd::WString> keywords;
    bool storeEmptyInfo = false;
    bool applyToAllDestinations = false;
};

} // namespace QL
