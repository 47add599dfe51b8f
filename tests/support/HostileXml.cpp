#include "support/HostileXml.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <stdexcept>

namespace igd::test {

HostileXmlWorld::HostileXmlWorld() : secretPath_(tree_.NativePath("secret.txt")) {
    tree_.MakeFile("secret.txt", kSecret);
    listener_ = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    if (listener_ < 0 || ::bind(listener_, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
        ::listen(listener_, 4) != 0 ||
        ::getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &length) != 0)
        throw std::runtime_error("no loopback listener for the XML tests");
    port_ = ntohs(address.sin_port);
}

HostileXmlWorld::~HostileXmlWorld() {
    if (listener_ >= 0)
        ::close(listener_);
}

std::string DeeplyNestedElements() {
    constexpr int kLevels = 50000;
    std::string deep;
    deep.reserve(7 * kLevels);
    for (int i = 0; i < kLevels; ++i)
        deep += "<a>";
    for (int i = 0; i < kLevels; ++i)
        deep += "</a>";
    return deep;
}

std::string EntityBombDoctype(const std::string& root) {
    std::string bomb = "<!DOCTYPE " + root + " [<!ENTITY a0 \"dos\">";
    for (int level = 1; level <= 10; ++level) {
        bomb += "<!ENTITY a" + std::to_string(level) + " \"";
        for (int i = 0; i < 10; ++i)
            bomb += "&a" + std::to_string(level - 1) + ";";
        bomb += "\">";
    }
    return bomb + "]>";
}

std::vector<HostileXml> HostileXmlWorld::Documents(const DocumentOf& document) const {
    const std::string http = "http://127.0.0.1:" + std::to_string(port_);
    return {
        {"nesting 50,000 levels deep", document("", DeeplyNestedElements()), "nest deeper than 256 levels"},
        {"ten levels of entities", document(EntityBombDoctype("R"), "&a10;"), "declares an entity (a0)"},
        {"an entity of a local file",
         document("<!DOCTYPE R [<!ENTITY x SYSTEM \"file://" + secretPath_ + "\">]>", "&x;"),
         "declares an entity (x)"},
        {"a parameter entity fetched by http",
         document("<!DOCTYPE R [<!ENTITY % p SYSTEM \"" + http + "/p.dtd\"> %p;]>", "x"), "declares an entity (%p)"},
    };
}

std::string HostileXmlWorld::WithOutsideDtd(const DocumentOf& document, const std::string& text) const {
    return document("<!DOCTYPE R SYSTEM \"http://127.0.0.1:" + std::to_string(port_) + "/r.dtd\">", text);
}

bool HostileXmlWorld::WasFetched() const {
    pollfd waiting{listener_, POLLIN, 0};
    return ::poll(&waiting, 1, 0) > 0;
}

} // namespace igd::test
