#include "ProjectTestSupport.h"

#include <sstream>

namespace igd::test {

std::string Describe(const Proj::ProjectItem& item) {
    std::ostringstream out;
    out << "path=" << Fnd::ToUTF8(item.path) << "\nname=" << Fnd::ToUTF8(item.name)
        << "\nformat=" << Fnd::ToUTF8(item.format) << "\nin=" << item.inPoint << " out=" << item.outPoint
        << " rate=" << item.frameRate << "\nguid=" << item.clipGuid.ToString()
        << "\nbin=" << Fnd::ToUTF8(item.bin) << "\n";
    for (const Fnd::WString& extra : item.extraPaths)
        out << "extra=" << Fnd::ToUTF8(extra) << "\n";
    for (const Proj::ItemMetadata& set : item.metadata) {
        out << "schema=" << Fnd::ToUTF8(set.namespaceURI) << " prefix=" << set.prefix << "\n";
        for (const auto& [key, value] : set.values)
            out << "  " << Fnd::ToUTF8(key) << "=" << Fnd::ToUTF8(value) << "\n";
    }
    for (const Proj::FileDigest& digest : item.digests)
        out << "digest=" << Fnd::ToUTF8(digest.path) << " " << digest.algorithm << ":" << digest.hex << "\n";
    return out.str();
}

std::string Describe(const std::vector<Proj::ProjectItem>& items) {
    std::string all;
    for (const Proj::ProjectItem& item : items)
        all += Describe(item) + "--\n";
    return all;
}

Proj::ProjectItem MakeItem(const Fnd::WString& path, const Fnd::WString& bin) {
    Proj::ProjectItem item;
    item.path = path;
    const std::size_t slash = path.rfind(u'/');
    item.name = path.substr(slash == Fnd::WString::npos ? 0 : slash + 1);
    item.format = u"File";
    item.bin = bin;
    return item;
}

} // namespace igd::test
