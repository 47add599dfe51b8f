#include "Fnd/SafeXmlReader.h"

#include <new>

#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/sax/DTDHandler.hpp>
#include <xercesc/sax2/DeclHandler.hpp>
#include <xercesc/sax2/SAX2XMLReader.hpp>
#include <xercesc/sax2/XMLReaderFactory.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/XMLUni.hpp>

#include "XmlGuards.h"

namespace Fnd {
namespace {

using namespace xercesc;

// Passes the document's events on to the reader's handler, counting the nesting on the way, and
// refuses every entity the document declares.
class GuardingHandler final : public ContentHandler, public DeclHandler, public DTDHandler {
public:
    explicit GuardingHandler(ContentHandler& inner) : inner_(inner) {}

    void characters(const XMLCh* const chars, const XMLSize_t length) override { inner_.characters(chars, length); }
    void endDocument() override { inner_.endDocument(); }
    void endElement(const XMLCh* const uri, const XMLCh* const localname, const XMLCh* const qname) override {
        depth_.Leave();
        inner_.endElement(uri, localname, qname);
    }
    void ignorableWhitespace(const XMLCh* const chars, const XMLSize_t length) override {
        inner_.ignorableWhitespace(chars, length);
    }
    void processingInstruction(const XMLCh* const target, const XMLCh* const data) override {
        inner_.processingInstruction(target, data);
    }
    void setDocumentLocator(const Locator* const locator) override {
        locator_ = locator;
        inner_.setDocumentLocator(locator);
    }
    void startDocument() override {
        depth_.Reset();
        inner_.startDocument();
    }
    void startElement(const XMLCh* const uri, const XMLCh* const localname, const XMLCh* const qname,
                      const Attributes& attributes) override {
        depth_.Enter(locator_);
        inner_.startElement(uri, localname, qname, attributes);
    }
    void startPrefixMapping(const XMLCh* const prefix, const XMLCh* const uri) override {
        inner_.startPrefixMapping(prefix, uri);
    }
    void endPrefixMapping(const XMLCh* const prefix) override { inner_.endPrefixMapping(prefix); }
    void skippedEntity(const XMLCh* const name) override { inner_.skippedEntity(name); }

    void elementDecl(const XMLCh* const, const XMLCh* const) override {}
    void attributeDecl(const XMLCh* const, const XMLCh* const, const XMLCh* const, const XMLCh* const,
                       const XMLCh* const) override {}
    void internalEntityDecl(const XMLCh* const name, const XMLCh* const) override {
        xml::RefuseEntityDeclaration(locator_, name);
    }
    void externalEntityDecl(const XMLCh* const name, const XMLCh* const, const XMLCh* const) override {
        xml::RefuseEntityDeclaration(locator_, name);
    }
    void notationDecl(const XMLCh* const, const XMLCh* const, const XMLCh* const) override {}
    void unparsedEntityDecl(const XMLCh* const name, const XMLCh* const, const XMLCh* const,
                            const XMLCh* const) override {
        xml::RefuseEntityDeclaration(locator_, name);
    }
    void resetDocType() override {}

private:
    ContentHandler& inner_;
    xml::DepthGuard depth_;
    const Locator* locator_ = nullptr;
};

} // namespace

class SafeXmlReader::Impl {
public:
    explicit Impl(ContentHandler& handler) : guard_(handler) {
        EnsureXmlParser();
        reader_.reset(XMLReaderFactory::createXMLReader());
        reader_->setFeature(XMLUni::fgSAX2CoreNameSpaces, false);
        reader_->setFeature(XMLUni::fgSAX2CoreValidation, false);
        reader_->setFeature(XMLUni::fgXercesSchema, false);
        reader_->setFeature(XMLUni::fgXercesLoadSchema, false);
        reader_->setFeature(XMLUni::fgXercesLoadExternalDTD, false);
        reader_->setFeature(XMLUni::fgXercesSkipDTDValidation, true);
        reader_->setFeature(XMLUni::fgXercesDisableDefaultEntityResolution, true);
        reader_->setEntityResolver(&resolver_);
        xml::LimitExpansion(security_);
        reader_->setProperty(XMLUni::fgXercesSecurityManager, &security_);
        reader_->setContentHandler(&guard_);
        reader_->setDeclarationHandler(&guard_);
        reader_->setDTDHandler(&guard_);
        reader_->setErrorHandler(&errors_);
    }

    std::string Parse(std::string_view bytes) {
        errors_.resetErrors();
        MemBufInputSource source(reinterpret_cast<const XMLByte*>(bytes.data()), bytes.size(), "document");
        try {
            reader_->parse(source);
        } catch (const xml::Refusal& refusal) {
            return refusal.reason;
        } catch (const OutOfMemoryException&) {
            return "the document needs more memory than a document may have";
        } catch (const XMLException& e) {
            return xml::MessageOf(e.getMessage());
        } catch (const std::bad_alloc&) {
            return "the document needs more memory than a document may have";
        }
        return errors_.Message();
    }

private:
    GuardingHandler guard_;
    xml::RefusingEntityResolver resolver_;
    xml::FirstErrorHandler errors_;
    SecurityManager security_;
    std::unique_ptr<SAX2XMLReader> reader_;
};

SafeXmlReader::SafeXmlReader(ContentHandler& handler) : impl_(std::make_unique<Impl>(handler)) {}
SafeXmlReader::~SafeXmlReader() = default;

std::string SafeXmlReader::Parse(std::string_view bytes) {
    return impl_->Parse(bytes);
}

} // namespace Fnd
