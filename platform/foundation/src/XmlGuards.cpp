#include "XmlGuards.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include <xercesc/util/XMLResourceIdentifier.hpp>

#include "Fnd/WString.h"
#include "Fnd/XmlParser.h"

namespace Fnd::xml {

std::string MessageOf(const XMLCh* message) {
    return message ? ToUTF8(WString(message)) : std::string();
}

namespace {

[[noreturn]] void RefuseOutside(const XMLCh* systemId) {
    throw Refusal{"the document refers to an outside resource (" + MessageOf(systemId) +
                  "), and nothing outside a document is ever fetched"};
}

} // namespace

xercesc::InputSource* RefusingEntityResolver::resolveEntity(xercesc::XMLResourceIdentifier* resource) {
    RefuseOutside(resource ? resource->getSystemId() : nullptr);
}

xercesc::InputSource* RefusingEntityResolver::resolveEntity(const XMLCh* const, const XMLCh* const systemId) {
    RefuseOutside(systemId);
}

void FirstErrorHandler::Keep(const xercesc::SAXParseException& e) {
    if (message_.empty())
        message_ = "line " + std::to_string(e.getLineNumber()) + ", column " + std::to_string(e.getColumnNumber()) +
                   ": " + MessageOf(e.getMessage());
}

void Refuse(const xercesc::Locator* where, const std::string& reason) {
    if (!where)
        throw Refusal{reason};
    throw Refusal{"line " + std::to_string(where->getLineNumber()) + ", column " +
                  std::to_string(where->getColumnNumber()) + ": " + reason};
}

void DepthGuard::Enter(const xercesc::Locator* where) {
    if (++depth_ > kMaxXmlDepth)
        Refuse(where, "elements nest deeper than " + std::to_string(kMaxXmlDepth) + " levels");
}

void RefuseEntityDeclaration(const xercesc::Locator* where, const XMLCh* name) {
    Refuse(where, "the document declares an entity (" + MessageOf(name) +
                      "), and no entity of a document is ever expanded");
}

void LimitExpansion(xercesc::SecurityManager& security) {
    security.setEntityExpansionLimit(16);
}

namespace {

std::string Reason(const char* what) {
    return std::string(what) + " (" + std::strerror(errno) + ")";
}

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

} // namespace

std::string ReadWholeFile(const std::string& path, std::size_t maxBytes, std::string& bytes) {
    bytes.clear();
    const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(path.c_str(), "rbe"));
    if (!file)
        return Reason("it cannot be opened");
    struct stat info {};
    if (::fstat(::fileno(file.get()), &info) != 0)
        return Reason("it cannot be read");
    if (!S_ISREG(info.st_mode))
        return "it is not a file";
    const std::string tooLarge =
        "it is larger than " + std::to_string(maxBytes) + " bytes, more than a file of its kind can be";
    if (static_cast<std::uint64_t>(info.st_size) > maxBytes)
        return tooLarge;
    // Read up to one byte past the bound, so that a file grown since it was measured is caught.
    bytes.resize(std::min(maxBytes + 1, static_cast<std::size_t>(info.st_size) + 4096));
    std::size_t done = 0;
    for (;;) {
        done += std::fread(bytes.data() + done, 1, bytes.size() - done, file.get());
        if (done < bytes.size())
            break;
        if (bytes.size() > maxBytes)
            return tooLarge;
        bytes.resize(std::min(maxBytes + 1, bytes.size() * 2));
    }
    if (std::ferror(file.get()))
        return Reason("it cannot be read");
    bytes.resize(done);
    return {};
}

} // namespace Fnd::xml
