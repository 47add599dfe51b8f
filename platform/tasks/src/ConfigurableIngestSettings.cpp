// The site file that fixes a station's ingest options, ingest-settings.xml:
//
//     <ingestSettings version="1">
//       <settingsLocked>true</settingsLocked>          optional; true, false, 1 or 0
//       <defaultSubfolder>Day 01</defaultSubfolder>    optional; relative, without ".."
//     </ingestSettings>
//
// Version 1 refuses elements it does not know, since a misspelt lock must not pass for an
// unlocked station. A later version is read for the elements named here and its additions are
// ignored, so an older station still honours a newer site's lock.
#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <mutex>
#include <optional>
#include <sstream>
#include <string>
#include <utility>

#include <xercesc/dom/DOM.hpp>

#include "Fnd/IgdHome.h"
#include "Fnd/SafeXmlParser.h"
#include "QL/Utilities.h"
#include "fluxcore/ZString.h"

namespace QL {
namespace {

constexpr const char* kSiteFileName = "ingest-settings.xml";
constexpr int kNewestVersion = 1;
// A settings file is a few lines; anything this large is not one.
constexpr std::size_t kLargestFile = 1 << 20;

std::mutex& HandlerMutex() {
    static std::mutex mutex;
    return mutex;
}

Utilities::SiteSettingsWarningHandler& InstalledHandler() {
    static Utilities::SiteSettingsWarningHandler handler;
    return handler;
}

void Warn(const std::string& file, const Fnd::WString& reason) {
    Utilities::SiteSettingsWarningHandler handler;
    {
        std::lock_guard<std::mutex> lock(HandlerMutex());
        handler = InstalledHandler();
    }
    if (handler)
        handler(
            fluxcore::Localize("$$$/IGD/SiteSettings/Unusable=The site settings file @0 was not used: @1. "
                               "The options are not locked and no default subfolder is set.",
                               {Fnd::FromUTF8(file), reason}));
}

// Why a file was refused; thrown inside this file only, turned into the warning at the top.
struct Refusal {
    Fnd::WString reason;
};

[[noreturn]] void Refuse(std::string_view keyAndDefault, std::initializer_list<Fnd::WString> arguments = {}) {
    throw Refusal{fluxcore::Localize(keyAndDefault, arguments)};
}

// nullopt: there is no file, which is the ordinary case of a station without site settings.
std::optional<std::string> ReadSiteFile(const std::string& path) {
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0) {
        const int error = errno;
        if (error == ENOENT || error == ENOTDIR)
            return std::nullopt;
        Refuse("$$$/IGD/SiteSettings/Unreadable=it cannot be read (@0)",
               {Fnd::FromUTF8(std::strerror(error))});
    }
    if (!S_ISREG(info.st_mode))
        Refuse("$$$/IGD/SiteSettings/NotAFile=it is not a file");
    std::ifstream in(path, std::ios::binary);
    if (!in)
        Refuse("$$$/IGD/SiteSettings/Unreadable=it cannot be read (@0)",
               {Fnd::FromUTF8(std::strerror(errno))});
    std::string content;
    std::array<char, 4096> piece{};
    while (in.read(piece.data(), piece.size()) || in.gcount() > 0) {
        content.append(piece.data(), static_cast<std::size_t>(in.gcount()));
        if (content.size() > kLargestFile)
            Refuse("$$$/IGD/SiteSettings/TooLarge=it is larger than a settings file can be");
    }
    if (in.bad())
        Refuse("$$$/IGD/SiteSettings/Unreadable=it cannot be read (@0)",
               {Fnd::FromUTF8(std::strerror(errno))});
    return content;
}

Fnd::WString TextOf(const xercesc::DOMElement& element) {
    const XMLCh* text = element.getTextContent();
    return Fnd::Trim(text == nullptr ? Fnd::WStringView() : Fnd::WStringView(text), u" \t\r\n");
}

int VersionOf(const xercesc::DOMElement& root) {
    const Fnd::WString text = Fnd::Trim(Fnd::WStringView(root.getAttribute(u"version")), u" \t\r\n");
    int version = 0;
    for (const Fnd::WChar c : text) {
        if (c < u'0' || c > u'9' || version > 1000000) {
            version = 0;
            break;
        }
        version = version * 10 + (c - u'0');
    }
    if (version < 1)
        Refuse(
            "$$$/IGD/SiteSettings/Version=its version attribute is missing or not a positive whole number");
    return version;
}

bool ParseLocked(const Fnd::WString& text) {
    if (text == u"true" || text == u"1")
        return true;
    if (text == u"false" || text == u"0")
        return false;
    Refuse("$$$/IGD/SiteSettings/Locked=settingsLocked is \"@0\", not true or false", {text});
}

// The subfolder is joined to every destination: it must stay below it.
Fnd::WString ParseSubfolder(const Fnd::WString& text) {
    bool escapes = text.starts_with(u'/');
    for (std::size_t start = 0; !escapes && start <= text.size();) {
        const std::size_t slash = std::min(text.find(u'/', start), text.size());
        escapes = Fnd::WStringView(text).substr(start, slash - start) == u"..";
        start = slash + 1;
    }
    if (escapes)
        Refuse("$$$/IGD/SiteSettings/Subfolder=defaultSubfolder \"@0\" leads out of the destination", {text});
    return text;
}

IngestUtils::IngestSettings Interpret(const xercesc::DOMElement& root) {
    if (Fnd::WStringView(root.getTagName()) != u"ingestSettings")
        Refuse("$$$/IGD/SiteSettings/Root=its root element is <@0>, not <ingestSettings>",
               {Fnd::WString(root.getTagName())});
    const int version = VersionOf(root);

    IngestUtils::IngestSettings settings;
    bool seenLocked = false, seenSubfolder = false;
    for (const xercesc::DOMElement* child = root.getFirstElementChild(); child != nullptr;
         child = child->getNextElementSibling()) {
        const Fnd::WStringView name(child->getTagName());
        bool* seen = name == u"settingsLocked"     ? &seenLocked
                     : name == u"defaultSubfolder" ? &seenSubfolder
                                                   : nullptr;
        if (seen == nullptr) {
            if (version > kNewestVersion)
                continue;
            Refuse("$$$/IGD/SiteSettings/Unknown=it holds an unknown element <@0>", {Fnd::WString(name)});
        }
        if (*seen)
            Refuse("$$$/IGD/SiteSettings/Twice=it gives <@0> twice", {Fnd::WString(name)});
        *seen = true;
        if (seen == &seenLocked)
            settings.settingsLocked = ParseLocked(TextOf(*child));
        else
            settings.defaultSubfolder = ParseSubfolder(TextOf(*child));
    }
    return settings;
}

IngestUtils::IngestSettings Parse(const std::string& content) {
    Fnd::SafeXmlParser parser;
    const xercesc::DOMDocument* document = parser.Parse(content);
    if (document == nullptr)
        Refuse("$$$/IGD/SiteSettings/NotXmlShort=it is not well-formed XML (@0)", {Fnd::FromUTF8(parser.Error())});
    return Interpret(*document->getDocumentElement());
}

} // namespace

IngestUtils::IngestSettings Utilities::GetConfigurableIngestSettings() {
    const std::string path = Fnd::SiteFile(kSiteFileName);
    try {
        const std::optional<std::string> content = ReadSiteFile(path);
        return content ? Parse(*content) : IngestUtils::IngestSettings{};
    } catch (const Refusal& refusal) {
        Warn(path, refusal.reason);
        return {};
    }
}

Utilities::SiteSettingsWarningHandler
Utilities::SetSiteSettingsWarningHandler(SiteSettingsWarningHandler handler) {
    std::lock_guard<std::mutex> lock(HandlerMutex());
    return std::exchange(InstalledHandler(), std::move(handler));
}

} // namespace QL
