#include "Mhl/Chain.h"

#include <charconv>

#include "DomWalk.h"
#include "Fnd/SafeXmlParser.h"
#include "XmlTextWriter.h"

namespace Mhl {
namespace {

constexpr std::size_t kMaxChainBytes = std::size_t{16} << 20;

std::optional<std::vector<ChainEntry>> ReadDocument(xercesc::DOMDocument* document,
                                                    const std::string& parseError, std::string& error) {
    const xercesc::DOMElement* found =
        Dom::RootNamed(document, parseError, "ascmhldirectory", "an ASC MHL chain", error);
    if (!found)
        return std::nullopt;
    const xercesc::DOMElement& root = *found;
    std::vector<ChainEntry> entries;
    for (const xercesc::DOMElement* element : Dom::Children(root)) {
        if (Dom::LocalName(*element) != "hashlist")
            continue;
        ChainEntry entry;
        const std::string sequence = Dom::Attribute(*element, u"sequencenr");
        const auto [end, failure] =
            std::from_chars(sequence.data(), sequence.data() + sequence.size(), entry.sequence);
        if (failure != std::errc() || end != sequence.data() + sequence.size() || entry.sequence < 0) {
            error = "a chain entry without a sequence number";
            return std::nullopt;
        }
        entry.path = Dom::Text(Dom::Child(*element, "path"));
        entry.c4 = Dom::Text(Dom::Child(*element, "c4"));
        if (entry.path.empty()) {
            error = "chain entry " + sequence + " names no generation";
            return std::nullopt;
        }
        entries.push_back(std::move(entry));
    }
    return entries;
}

} // namespace

std::string ChainXml(const std::vector<ChainEntry>& entries) {
    XmlTextWriter xml;
    xml.Open("ascmhldirectory", {{"xmlns", kChainNamespace}});
    for (const ChainEntry& entry : entries) {
        xml.Open("hashlist", {{"sequencenr", std::to_string(entry.sequence)}});
        xml.Text("path", entry.path);
        xml.Text("c4", entry.c4);
        xml.Close();
    }
    xml.Close();
    return xml.Finish();
}

std::optional<std::vector<ChainEntry>> ReadChain(std::string_view bytes, std::string& error) {
    Fnd::SafeXmlParser parser;
    return ReadDocument(parser.Parse(bytes), parser.Error(), error);
}

std::optional<std::vector<ChainEntry>> ReadChainFile(const std::string& path, std::string& error) {
    Fnd::SafeXmlParser parser;
    auto entries = ReadDocument(parser.ParseFile(path, kMaxChainBytes), parser.Error(), error);
    if (!entries)
        error = path + ": " + error;
    return entries;
}

} // namespace Mhl
