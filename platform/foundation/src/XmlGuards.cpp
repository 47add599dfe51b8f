#include "XmlGuards.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

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

class Descriptor {
public:
    explicit Descriptor(int fd) : fd_(fd) {}
    ~Descriptor() {
        if (fd_ >= 0)
            ::close(fd_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int Get() const { return fd_; }

private:
    int fd_;
};

std::string Reason(const char* what) {
    return std::string(what) + " (" + std::strerror(errno) + ")";
}

} // namespace

std::string ReadWholeFile(const std::string& path, std::size_t maxBytes, std::string& bytes) {
    bytes.clear();
    const Descriptor fd(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (fd.Get() < 0)
        return Reason("it cannot be opened");
    struct stat info {};
    if (::fstat(fd.Get(), &info) != 0)
        return Reason("it cannot be read");
    if (!S_ISREG(info.st_mode))
        return "it is not a file";
    const std::string tooLarge =
        "it is larger than " + std::to_string(maxBytes) + " bytes, more than a file of its kind can be";
    if (static_cast<std::uint64_t>(info.st_size) > maxBytes)
        return tooLarge;
    // Read one byte past the size found, so that a file growing meanwhile is still caught.
    bytes.resize(static_cast<std::size_t>(info.st_size) + 1);
    std::size_t done = 0;
    for (;;) {
        if (done == bytes.size()) {
            if (bytes.size() > maxBytes)
                return tooLarge;
            bytes.resize(std::min(maxBytes + 1, bytes.size() * 2));
        }
        const ssize_t got = ::read(fd.Get(), bytes.data() + done, bytes.size() - done);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return Reason("it cannot be read");
        if (got == 0)
            break;
        done += static_cast<std::size_t>(got);
    }
    bytes.resize(done);
    return {};
}

} // namespace Fnd::xml
