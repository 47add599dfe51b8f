#include "ImportMetadata.h"

#include "Fnd/PathUtils.h"
#include "QL/Utilities.h"
#include "QL/XmpSidecarWriter.h"

namespace QL::Engine {
namespace {

const Fnd::WString kDublinCore = u"http://purl.org/dc/elements/1.1/";

bool AnyValue(const MetadataFieldSetList& sets, bool storeEmpty) {
    for (const auto& set : sets)
        for (const auto& [key, value] : set->values)
            if (storeEmpty || !value.empty())
                return true;
    return false;
}

void AddSets(const MetadataFieldSetList& sets, bool storeEmpty, std::vector<Proj::ItemMetadata>& out) {
    for (const auto& set : sets) {
        Proj::ItemMetadata metadata;
        metadata.namespaceURI = set->schemaNamespace;
        metadata.prefix = XmpPrefixFor(*set);
        for (const auto& [key, value] : set->values)
            if (storeEmpty || !value.empty())
                metadata.values.emplace(key, value);
        if (!metadata.values.empty())
            out.push_back(std::move(metadata));
    }
}

} // namespace

bool CarriesMetadata(const IngestCustomData& data) {
    const bool storeEmpty = data.minimumMetadata.storeEmptyInfo;
    return AnyValue(data.metadataSets, storeEmpty) || AnyValue(data.minimumMetadata.namespaces, storeEmpty) ||
           !data.minimumMetadata.keywords.empty();
}

IngestCustomData MetadataForDestination(const IngestCustomData& data, bool primary) {
    if (primary || data.minimumMetadata.applyToAllDestinations)
        return data;
    IngestCustomData filtered;
    filtered.metadataSets = data.metadataSets;
    filtered.minimumMetadata.storeEmptyInfo = data.minimumMetadata.storeEmptyInfo;
    return filtered;
}

std::vector<Proj::ItemMetadata> ProjectMetadata(const IngestCustomData& data) {
    std::vector<Proj::ItemMetadata> metadata;
    const bool storeEmpty = data.minimumMetadata.storeEmptyInfo;
    AddSets(data.metadataSets, storeEmpty, metadata);
    AddSets(data.minimumMetadata.namespaces, storeEmpty, metadata);
    if (!data.minimumMetadata.keywords.empty()) {
        Fnd::WString subject;
        for (const Fnd::WString& keyword : data.minimumMetadata.keywords)
            subject += (subject.empty() ? u"" : u"; ") + keyword;
        metadata.push_back(Proj::ItemMetadata{kDublinCore, "dc", {{u"subject", subject}}});
    }
    return metadata;
}

Fnd::WString SidecarPathFor(const Fnd::WString& mediaPath, const std::vector<Fnd::WString>& extraPaths) {
    for (const Fnd::WString& extra : extraPaths) {
        Fnd::WString extension;
        Fnd::PathUtils::SplitPath(extra, nullptr, nullptr, nullptr, &extension);
        if (Fnd::EqualsIgnoringASCIICase(extension, u".xmp"))
            return extra;
    }
    return Utilities::GetXMPPath(mediaPath);
}

} // namespace QL::Engine
