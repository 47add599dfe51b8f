#include "QL/PresetFileReader.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <cstring>

#include <xercesc/dom/DOM.hpp>

#include "Fnd/SafeXmlParser.h"
#include "QL/PresetFieldTypeNames.h"
#include "QL/PresetFileWriter.h"
#include "XercesSupport.h"

namespace QL {
namespace {

using namespace xercesc;
using xml::W;
using xml::X;

PresetReadResult Failure(std::string reason) {
    PresetReadResult result;
    result.error = std::move(reason);
    return result;
}

std::string Narrow(const XMLCh* text) {
    return Fnd::ToUTF8(W(text));
}

std::optional<int> ParseInteger(const std::string& text) {
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || text.empty())
        return std::nullopt;
    return value;
}

Fnd::WString ChildText(const DOMElement& parent, const char16_t* tag) {
    for (DOMElement* child = parent.getFirstElementChild(); child; child = child->getNextElementSibling())
        if (W(child->getTagName()) == tag)
            return W(child->getTextContent());
    return {};
}

const char* CategoryWord(_QLPresetCategory category) {
    return category == kQLPresetCategoryMetadata ? "metadata" : "rename";
}

// Version 1 is the first format. When the format changes, the step that lifts each older
// version to the next is applied here to the parsed tree, before it is read, so the reader below
// only ever knows the current layout. Files are upgraded in memory and never rewritten.
std::string UpgradeToCurrentVersion(DOMElement& /*root*/, int version) {
    if (version < 1)
        return "has an invalid format version (" + std::to_string(version) + ")";
    if (version > kPresetSchemaVersion)
        return "was written by a newer version of IGD (format " + std::to_string(version) +
               "; this one reads up to format " + std::to_string(kPresetSchemaVersion) + ")";
    return {};
}

PresetReadResult ReadRoot(DOMElement& root) {
    const std::string tag = Narrow(root.getTagName());
    if (tag != "preset")
        return Failure("is not a preset file (its root element is <" + tag + ">)");
    const std::string schema = Narrow(root.getAttribute(X(u"schema")));
    if (schema != kPresetSchemaName)
        return Failure("is not a preset file (schema \"" + schema + "\")");
    const auto version = ParseInteger(Narrow(root.getAttribute(X(u"version"))));
    if (!version)
        return Failure("has no readable format version");
    if (std::string problem = UpgradeToCurrentVersion(root, *version); !problem.empty())
        return Failure(problem);

    PresetDocument document;
    const std::string category = Narrow(root.getAttribute(X(u"category")));
    if (category == "rename")
        document.category = kQLPresetCategoryRename;
    else if (category == "metadata")
        document.category = kQLPresetCategoryMetadata;
    else
        return Failure("has an unknown category \"" + category + "\"");

    document.name = ChildText(root, u"name");
    if (document.name.empty())
        return Failure("has no preset name");

    std::size_t number = 0;
    for (DOMElement* child = root.getFirstElementChild(); child; child = child->getNextElementSibling()) {
        if (W(child->getTagName()) != u"field")
            continue; // room for additions that do not change what a field means
        ++number;
        const std::string typeName = Narrow(child->getAttribute(X(u"type")));
        const auto type = PresetFieldTypeFromName(typeName);
        if (!type)
            return Failure("field " + std::to_string(number) + " has an unknown type \"" + typeName + "\"");
        if (!FieldTypeBelongsTo(*type, document.category))
            return Failure("field " + std::to_string(number) + " is of type \"" + typeName + "\", which a " +
                           CategoryWord(document.category) + " preset cannot hold");
        const std::string required = Narrow(child->getAttribute(X(u"required")));
        if (required != "true" && required != "false" && !required.empty())
            return Failure("field " + std::to_string(number) + " has a required flag of \"" + required +
                           "\" (true or false)");
        document.fields.push_back(
            {*type, ChildText(*child, u"key"), ChildText(*child, u"format"), required == "true"});
    }
    PresetReadResult result;
    result.document = std::move(document);
    return result;
}

// Setting a parser up costs more than parsing a preset, so a listing of many files reuses one
// per thread.
Fnd::SafeXmlParser& ThreadParser() {
    thread_local Fnd::SafeXmlParser parser;
    return parser;
}

class ScopedDescriptor {
public:
    explicit ScopedDescriptor(int fd) : fd_(fd) {}
    ~ScopedDescriptor() {
        if (fd_ >= 0)
            ::close(fd_);
    }
    ScopedDescriptor(const ScopedDescriptor&) = delete;
    ScopedDescriptor& operator=(const ScopedDescriptor&) = delete;
    int Get() const { return fd_; }

private:
    int fd_;
};

} // namespace

PresetReadResult ParsePresetDocument(std::string_view bytes) {
    if (bytes.empty())
        return Failure("is empty");
    if (bytes.size() > kMaxPresetFileSize)
        return Failure("is larger than any preset file (" + std::to_string(bytes.size()) + " bytes)");
    Fnd::SafeXmlParser& parser = ThreadParser();
    DOMDocument* doc = parser.Parse(bytes);
    if (!doc)
        return Failure("is truncated or not well-formed XML (" + parser.Error() + ")");
    DOMElement* root = doc->getDocumentElement();
    return ReadRoot(*root);
}

PresetReadResult ReadPresetFile(const std::string& path) {
    const ScopedDescriptor fd(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    const int raw = fd.Get();
    if (raw < 0)
        return Failure(std::string("cannot be opened: ") + std::strerror(errno));
    struct stat info {};
    if (::fstat(raw, &info) != 0)
        return Failure(std::string("cannot be read: ") + std::strerror(errno));
    if (!S_ISREG(info.st_mode))
        return Failure("is not a regular file");
    if (static_cast<std::uint64_t>(info.st_size) > kMaxPresetFileSize)
        return Failure("is larger than any preset file (" + std::to_string(info.st_size) + " bytes)");

    std::string bytes(static_cast<std::size_t>(info.st_size), '\0');
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t got = ::read(raw, bytes.data() + done, bytes.size() - done);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return Failure(std::string("cannot be read: ") + std::strerror(errno));
        if (got == 0)
            break; // shrank while being read: parse what is there, the parser judges it
        done += static_cast<std::size_t>(got);
    }
    bytes.resize(done);
    return ParsePresetDocument(bytes);
}

} // namespace QL
