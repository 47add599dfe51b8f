#pragma once
// What a hostile user writes against an XML reader, built around each reader's own document so
// that only the attack differs from a file the reader accepts. Every reader of the project must
// refuse the attacks, read nothing of the secret file and fetch nothing from the listener.
//
//     const HostileXmlWorld world;
//     for (const HostileXml& c : world.Documents([](auto& doctype, auto& text) {
//              return doctype + "<preset ...><name>" + text + "</name></preset>"; }))
//         ... the reader refuses c.xml with a reason holding c.reason ...
//     EXPECT_FALSE(world.WasFetched());
#include <functional>
#include <string>
#include <vector>

#include "support/TempTree.h"

namespace igd::test {

struct HostileXml {
    std::string what;
    std::string xml;
    // A part of the refusal's reason.
    std::string reason;
};

// Elements nested 50,000 deep.
std::string DeeplyNestedElements();
// A DOCTYPE declaring ten levels of entities, each ten of the one before: &a10; is 3 * 10^10
// characters if expanded.
std::string EntityBombDoctype(const std::string& root);

class HostileXmlWorld {
public:
    HostileXmlWorld();
    ~HostileXmlWorld();
    HostileXmlWorld(const HostileXmlWorld&) = delete;
    HostileXmlWorld& operator=(const HostileXmlWorld&) = delete;

    // doctype goes before the root element; text where the reader keeps a name or a value.
    using DocumentOf = std::function<std::string(const std::string& doctype, const std::string& text)>;
    // 50,000 levels of nesting, a ten-level entity bomb, a SYSTEM entity naming the secret file
    // and an external parameter entity on the listener.
    std::vector<HostileXml> Documents(const DocumentOf& document) const;
    // A document whose DTD lies on the listener: readable, as long as the DTD is never fetched.
    std::string WithOutsideDtd(const DocumentOf& document, const std::string& text) const;

    // The content of the secret file, which must appear in nothing a reader gives back.
    static constexpr const char* kSecret = "igd-secret-3f9c1a";
    // Whether anything connected to the listener.
    bool WasFetched() const;

private:
    TempTree tree_;
    std::string secretPath_;
    int listener_ = -1;
    int port_ = 0;
};

} // namespace igd::test
