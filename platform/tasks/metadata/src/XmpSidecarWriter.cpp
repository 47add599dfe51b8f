#include "QL/XmpSidecarWriter.h"

#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <optional>
#include <set>
#include <system_error>

#include "Fnd/AtomicFile.h"
#include "XmpToolkit.h"

namespace QL {
namespace {

constexpr const char* kDublinCore = "http://purl.org/dc/elements/1.1/";
// Sidecars hold text and perhaps a thumbnail; a file far larger than that is not a sidecar.
constexpr std::size_t kLargestSidecar = 64 << 20;

[[noreturn]] void Fail(const std::string& path, const std::string& reason) {
    throw XmpSidecarError("XMP sidecar " + path + ": " + reason);
}

std::string ToolkitError() {
    return "Exempi error " + std::to_string(xmp_get_error());
}

// nullopt when there is no file; an empty file reads as empty.
std::optional<std::string> ReadSidecar(const std::string& path) {
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0) {
        if (errno == ENOENT)
            return std::nullopt;
        Fail(path, std::string("cannot be read: ") + std::strerror(errno));
    }
    if (!S_ISREG(info.st_mode))
        Fail(path, "is not a file");
    std::ifstream in(path, std::ios::binary);
    if (!in)
        Fail(path, std::string("cannot be read: ") + std::strerror(errno));
    // Read in pieces: a sidecar is usually a few kilobytes, and the limit is only a guard.
    std::string content;
    std::array<char, 64 * 1024> piece{};
    while (in.read(piece.data(), piece.size()) || in.gcount() > 0) {
        content.append(piece.data(), static_cast<std::size_t>(in.gcount()));
        if (content.size() > kLargestSidecar)
            Fail(path, "is too large to be a sidecar");
    }
    if (in.bad())
        Fail(path, std::string("cannot be read: ") + std::strerror(errno));
    return content;
}

// The metadata already in the file, or an empty packet when there is none yet.
Xmp::MetaPtr LoadSidecar(const std::string& path) {
    const std::optional<std::string> content = ReadSidecar(path);
    if (!content || content->find_first_not_of(" \t\r\n") == std::string::npos)
        return Xmp::MetaPtr(xmp_new_empty());
    Xmp::MetaPtr xmp(xmp_new(content->data(), content->size()));
    if (!xmp)
        Fail(path, "holds something other than XMP (" + ToolkitError() + "); it was left as it is");
    return xmp;
}

void WriteSet(_Xmp* xmp, const MetadataFieldSet& set, bool storeEmpty, const std::string& path) {
    const std::string namespaceURI = Fnd::ToValidUTF8(set.schemaNamespace);
    if (namespaceURI.empty())
        Fail(path, "a metadata set of \"" + Fnd::ToUTF8(set.presetName) + "\" has no schema namespace");
    // The toolkit answers false also when it keeps a prefix other than the one suggested, so
    // only the registry can tell whether the namespace is usable.
    Xmp::StringPtr registered = Xmp::NewString();
    xmp_register_namespace(namespaceURI.c_str(), XmpPrefixFor(set).c_str(), registered.get());
    if (!xmp_namespace_prefix(namespaceURI.c_str(), nullptr))
        Fail(path, "the namespace " + namespaceURI + " cannot be registered (" + ToolkitError() + ")");
    std::string value;
    for (const auto& [key, text] : set.values) {
        if (text.empty() && !storeEmpty)
            continue;
        // XMP is XML: a byte kept from a name that is no UTF-8 is written as the text \xNN.
        value = Fnd::ToValidUTF8(text);
        const std::string name = XmpPropertyNameFor(key);
        if (!xmp_set_property(xmp, namespaceURI.c_str(), name.c_str(), value.c_str(), 0))
            Fail(path,
                 "the property " + name + " of " + namespaceURI + " cannot be set (" + ToolkitError() + ")");
    }
}

// Keywords join those the sidecar has; none is written twice.
void WriteKeywords(_Xmp* xmp, const std::set<Fnd::WString>& keywords, const std::string& path) {
    std::set<std::string> present;
    Xmp::StringPtr item = Xmp::NewString();
    for (int32_t index = 1; xmp_get_array_item(xmp, kDublinCore, "subject", index, item.get(), nullptr);
         ++index)
        present.insert(Xmp::ToStdString(item));
    for (const Fnd::WString& keyword : keywords) {
        const std::string text = Fnd::ToValidUTF8(keyword);
        if (text.empty() || !present.insert(text).second)
            continue;
        if (!xmp_append_array_item(xmp, kDublinCore, "subject", XMP_PROP_ARRAY_IS_UNORDERED, text.c_str(), 0))
            Fail(path, "the keyword \"" + text + "\" cannot be added (" + ToolkitError() + ")");
    }
}

std::string Serialize(_Xmp* xmp, const std::string& path) {
    Xmp::StringPtr packet = Xmp::NewString();
    // A sidecar is a file of its own: no packet wrapper and no padding for in-place edits.
    if (!xmp_serialize(xmp, packet.get(), XMP_SERIAL_OMITPACKETWRAPPER, 0))
        Fail(path, "cannot be serialised (" + ToolkitError() + ")");
    return Xmp::ToStdString(packet);
}

} // namespace

void WriteXmpSidecar(const std::string& sidecarPath, const IngestCustomData& data) {
    std::string packet;
    {
        Xmp::ToolkitLock lock;
        Xmp::MetaPtr xmp = LoadSidecar(sidecarPath);
        const bool storeEmpty = data.minimumMetadata.storeEmptyInfo;
        for (const MetadataFieldSetList* sets : {&data.metadataSets, &data.minimumMetadata.namespaces})
            for (const std::shared_ptr<MetadataFieldSet>& set : *sets)
                if (set)
                    WriteSet(xmp.get(), *set, storeEmpty, sidecarPath);
        WriteKeywords(xmp.get(), data.minimumMetadata.keywords, sidecarPath);
        packet = Serialize(xmp.get(), sidecarPath);
    }
    try {
        Fnd::WriteFileAtomically(sidecarPath, packet);
    } catch (const std::system_error& error) {
        Fail(sidecarPath, std::string("cannot be written: ") + error.what());
    }
}

std::u16string ReadXmpProperty(const std::string& sidecarPath, const std::u16string& namespaceURI,
                               const std::u16string& key) {
    Xmp::ToolkitLock lock;
    const Xmp::MetaPtr xmp = LoadSidecar(sidecarPath);
    const std::string schema = Fnd::ToUTF8(namespaceURI);
    const std::string name = XmpPropertyNameFor(key);
    // A namespace that neither this process nor the file registered cannot hold the property;
    // asking the toolkit about it would only make it complain.
    if (schema.empty() || !xmp_namespace_prefix(schema.c_str(), nullptr))
        return {};
    Xmp::StringPtr value = Xmp::NewString();
    if (!xmp_get_property(xmp.get(), schema.c_str(), name.c_str(), value.get(), nullptr))
        return {};
    return Fnd::FromUTF8(Xmp::ToStdString(value));
}

} // namespace QL
