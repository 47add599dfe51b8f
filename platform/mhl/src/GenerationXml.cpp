#include "Mhl/GenerationXml.h"

#include <algorithm>
#include <charconv>

#include "DomWalk.h"
#include "Fnd/SafeXmlParser.h"
#include "XmlTextWriter.h"

namespace Mhl {
namespace {

// Generations list every file of a card; a file this large is no history of ours or anyone's.
constexpr std::size_t kMaxGenerationBytes = std::size_t{512} << 20;

int FormatRank(const std::string& format) {
    const auto at = std::find_if(std::begin(kHashFormats), std::end(kHashFormats),
                                 [&](const char* known) { return format == known; });
    return static_cast<int>(at - std::begin(kHashFormats));
}

void WriteHash(XmlTextWriter& xml, const FileHash& hash) {
    xml.Open("hash");
    XmlTextWriter::Attributes pathAttributes;
    if (hash.size)
        pathAttributes.emplace_back("size", std::to_string(*hash.size));
    if (!hash.lastModified.empty())
        pathAttributes.emplace_back("lastmodificationdate", hash.lastModified);
    xml.Text("path", hash.path, pathAttributes);
    std::vector<Digest> digests = hash.digests;
    std::stable_sort(digests.begin(), digests.end(), [](const Digest& a, const Digest& b) {
        return FormatRank(a.format) < FormatRank(b.format);
    });
    for (const Digest& digest : digests) {
        if (FormatRank(digest.format) == static_cast<int>(std::size(kHashFormats)))
            throw std::invalid_argument("no ASC MHL hash format is named \"" + digest.format + "\"");
        XmlTextWriter::Attributes attributes;
        if (!digest.action.empty())
            attributes.emplace_back("action", digest.action);
        xml.Text(digest.format, digest.value, attributes);
    }
    xml.Close();
}

std::optional<std::uint64_t> SizeOf(const std::string& text) {
    std::uint64_t size = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), size);
    if (text.empty() || error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return size;
}

bool ReadHash(const xercesc::DOMElement& element, FileHash& hash, std::string& error) {
    const xercesc::DOMElement* path = Dom::Child(element, "path");
    hash.path = Dom::Text(path);
    if (!path || hash.path.empty()) {
        error = "a hash without a path";
        return false;
    }
    const std::string size = Dom::Attribute(*path, u"size");
    if (!size.empty() && !(hash.size = SizeOf(size))) {
        error = "the size of " + hash.path + " is no number: " + size;
        return false;
    }
    hash.lastModified = Dom::Attribute(*path, u"lastmodificationdate");
    for (const xercesc::DOMElement* child : Dom::Children(element)) {
        const std::string name = Dom::LocalName(*child);
        if (FormatRank(name) < static_cast<int>(std::size(kHashFormats)))
            hash.digests.push_back({name, Dom::Text(child), Dom::Attribute(*child, u"action")});
    }
    return true;
}

} // namespace

std::string GenerationXml(const Generation& generation) {
    XmlTextWriter xml;
    xml.Open("hashlist", {{"version", "2.0"}, {"xmlns", kGenerationNamespace}});
    xml.Open("creatorinfo");
    xml.Text("creationdate", generation.creationDate);
    xml.Text("hostname", generation.hostname);
    xml.Text("tool", generation.tool, {{"version", generation.toolVersion}});
    if (!generation.comment.empty())
        xml.Text("comment", generation.comment);
    xml.Close();
    xml.Open("processinfo");
    xml.Text("process", generation.processType);
    if (!generation.ignorePatterns.empty()) {
        xml.Open("ignore");
        for (const std::string& pattern : generation.ignorePatterns)
            xml.Text("pattern", pattern);
        xml.Close();
    }
    xml.Close();
    if (!generation.hashes.empty()) {
        xml.Open("hashes");
        for (const FileHash& hash : generation.hashes)
            WriteHash(xml, hash);
        xml.Close();
    }
    xml.Close();
    return xml.Finish();
}

namespace {

std::optional<Generation> ReadDocument(xercesc::DOMDocument* document, const std::string& parseError,
                                       std::string& error) {
    const xercesc::DOMElement* found =
        Dom::RootNamed(document, parseError, "hashlist", "an ASC MHL generation", error);
    if (!found)
        return std::nullopt;
    const xercesc::DOMElement& root = *found;
    Generation generation;
    if (const xercesc::DOMElement* creator = Dom::Child(root, "creatorinfo")) {
        generation.creationDate = Dom::Text(Dom::Child(*creator, "creationdate"));
        generation.hostname = Dom::Text(Dom::Child(*creator, "hostname"));
        if (const xercesc::DOMElement* tool = Dom::Child(*creator, "tool")) {
            generation.tool = Dom::Text(tool);
            generation.toolVersion = Dom::Attribute(*tool, u"version");
        }
        generation.comment = Dom::Text(Dom::Child(*creator, "comment"));
    }
    generation.processType.clear();
    if (const xercesc::DOMElement* process = Dom::Child(root, "processinfo")) {
        generation.processType = Dom::Text(Dom::Child(*process, "process"));
        if (const xercesc::DOMElement* ignore = Dom::Child(*process, "ignore"))
            for (const xercesc::DOMElement* pattern : Dom::Children(*ignore))
                if (Dom::LocalName(*pattern) == "pattern")
                    generation.ignorePatterns.push_back(Dom::Text(pattern));
    }
    if (const xercesc::DOMElement* hashes = Dom::Child(root, "hashes"))
        for (const xercesc::DOMElement* element : Dom::Children(*hashes)) {
            // Directory hashes summarise files listed one by one; a check needs only those.
            if (Dom::LocalName(*element) != "hash")
                continue;
            FileHash hash;
            if (!ReadHash(*element, hash, error))
                return std::nullopt;
            generation.hashes.push_back(std::move(hash));
        }
    return generation;
}

} // namespace

std::optional<Generation> ReadGeneration(std::string_view bytes, std::string& error) {
    Fnd::SafeXmlParser parser;
    xercesc::DOMDocument* document = parser.Parse(bytes);
    return ReadDocument(document, parser.Error(), error);
}

std::optional<Generation> ReadGenerationFile(const std::string& path, std::string& error) {
    Fnd::SafeXmlParser parser;
    xercesc::DOMDocument* document = parser.ParseFile(path, kMaxGenerationBytes);
    std::optional<Generation> generation = ReadDocument(document, parser.Error(), error);
    if (!generation)
        error = path + ": " + error;
    return generation;
}

} // namespace Mhl
