#pragma once
// What SafeXmlParser and SafeXmlReader share: the refusal that stops a parse, the resolver that
// fetches nothing, the handler that keeps the first error and the depth count.
#include <string>
#include <string_view>

#include <xercesc/sax/ErrorHandler.hpp>
#include <xercesc/sax/Locator.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/util/SecurityManager.hpp>
#include <xercesc/sax/EntityResolver.hpp>
#include <xercesc/util/XMLEntityResolver.hpp>

namespace Fnd::xml {

// Thrown from inside a parse when the document asks for something refused; caught by the parse
// call that started it.
struct Refusal {
    std::string reason;
};

// Throws the refusal, placed where the parse is when there is a locator.
[[noreturn]] void Refuse(const xercesc::Locator* where, const std::string& reason);

// Every entity and DTD outside the document is refused, whatever the parser's other settings.
class RefusingEntityResolver final : public xercesc::XMLEntityResolver, public xercesc::EntityResolver {
public:
    xercesc::InputSource* resolveEntity(xercesc::XMLResourceIdentifier* resource) override;
    xercesc::InputSource* resolveEntity(const XMLCh* const publicId, const XMLCh* const systemId) override;
};

// Keeps the first error or fatal error, with its place; warnings are ignored.
class FirstErrorHandler final : public xercesc::ErrorHandler {
public:
    void warning(const xercesc::SAXParseException&) override {}
    void error(const xercesc::SAXParseException& e) override { Keep(e); }
    void fatalError(const xercesc::SAXParseException& e) override { Keep(e); }
    void resetErrors() override { message_.clear(); }
    const std::string& Message() const { return message_; }

private:
    void Keep(const xercesc::SAXParseException& e);
    std::string message_;
};

// The nesting of the element being read; refuses one level too deep.
class DepthGuard {
public:
    void Reset() { depth_ = 0; }
    void Enter(const xercesc::Locator* where);
    void Leave() {
        if (depth_ > 0)
            --depth_;
    }

private:
    unsigned depth_ = 0;
};

[[noreturn]] void RefuseEntityDeclaration(const xercesc::Locator* where, const XMLCh* name);

// A small expansion limit as a second wall behind the refusal of declarations.
void LimitExpansion(xercesc::SecurityManager& security);

// The message of an exception of Xerces.
std::string MessageOf(const XMLCh* message);

// The bytes of a file of at most maxBytes; empty reason on success.
std::string ReadWholeFile(const std::string& path, std::size_t maxBytes, std::string& bytes);

} // namespace Fnd::xml
