#include "MhlSchema.h"

#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/sax/ErrorHandler.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/util/XMLString.hpp>

#include "Fnd/WString.h"
#include "Fnd/XmlParser.h"

namespace igd::test {
namespace {

using namespace xercesc;

class Collect : public ErrorHandler {
public:
    void warning(const SAXParseException&) override {}
    void error(const SAXParseException& e) override { Add(e); }
    void fatalError(const SAXParseException& e) override { Add(e); }
    void resetErrors() override { text.clear(); }
    std::string text;

private:
    void Add(const SAXParseException& e) {
        text += "line " + std::to_string(e.getLineNumber()) + ": " +
                Fnd::ToUTF8(reinterpret_cast<const char16_t*>(e.getMessage())) + "\n";
    }
};

std::string Validate(const std::string& path, const std::string& ns, const std::string& schema) {
    Fnd::EnsureXmlParser();
    XercesDOMParser parser;
    parser.setDoNamespaces(true);
    parser.setDoSchema(true);
    parser.setValidationScheme(XercesDOMParser::Val_Always);
    parser.setValidationSchemaFullChecking(true);
    const std::u16string location = Fnd::FromUTF8(ns + " " + IGD_MHL_SCHEMA_DIR "/" + schema);
    parser.setExternalSchemaLocation(reinterpret_cast<const XMLCh*>(location.c_str()));
    Collect errors;
    parser.setErrorHandler(&errors);
    parser.parse(path.c_str());
    if (errors.text.empty() && parser.getErrorCount() > 0)
        return "rejected without a message";
    return errors.text;
}

} // namespace

std::string GenerationSchemaErrors(const std::string& path) {
    return Validate(path, "urn:ASC:MHL:v2.0", "ASCMHL.xsd");
}

std::string ChainSchemaErrors(const std::string& path) {
    return Validate(path, "urn:ASC:MHL:DIRECTORY:v2.0", "ASCMHLDirectory.xsd");
}

} // namespace igd::test
