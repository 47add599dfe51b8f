#include "Fnd/SafeXmlParser.h"

#include <new>
#include <string>

#include <xercesc/dom/DOMException.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/internal/XMLScanner.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/validators/DTD/DTDEntityDecl.hpp>

#include "XmlGuards.h"

namespace Fnd {
namespace {

using namespace xercesc;

// The DOM builder with the refusals on the scanner's own events, so that a refused document
// stops before any of it is built, and the tree never grows deeper than the guard allows.
class GuardedDomParser final : public XercesDOMParser {
public:
    xml::DepthGuard depth;

    void startDocument() override {
        depth.Reset();
        XercesDOMParser::startDocument();
    }
    void startElement(const XMLElementDecl& decl, const unsigned int urlId, const XMLCh* const prefix,
                      const RefVectorOf<XMLAttr>& attributes, const XMLSize_t count, const bool isEmpty,
                      const bool isRoot) override {
        depth.Enter(Where());
        // An empty element has no end event.
        if (isEmpty)
            depth.Leave();
        XercesDOMParser::startElement(decl, urlId, prefix, attributes, count, isEmpty, isRoot);
    }
    void endElement(const XMLElementDecl& decl, const unsigned int urlId, const bool isRoot,
                    const XMLCh* const prefix) override {
        depth.Leave();
        XercesDOMParser::endElement(decl, urlId, isRoot, prefix);
    }
    void entityDecl(const DTDEntityDecl& decl, const bool isParameterEntity, const bool) override {
        const std::u16string name = (isParameterEntity ? u"%" : u"") + std::u16string(decl.getName());
        xml::RefuseEntityDeclaration(Where(), name.c_str());
    }

private:
    const Locator* Where() const { return getScanner() ? getScanner()->getLocator() : nullptr; }
};

} // namespace

class SafeXmlParser::Impl {
public:
    Impl() {
        EnsureXmlParser();
        parser_ = std::make_unique<GuardedDomParser>();
        parser_->setValidationScheme(XercesDOMParser::Val_Never);
        parser_->setDoNamespaces(false);
        parser_->setDoSchema(false);
        parser_->setLoadSchema(false);
        parser_->setLoadExternalDTD(false);
        parser_->setSkipDTDValidation(true);
        parser_->setDisableDefaultEntityResolution(true);
        parser_->setCreateEntityReferenceNodes(false);
        parser_->setXMLEntityResolver(&resolver_);
        xml::LimitExpansion(security_);
        parser_->setSecurityManager(&security_);
        parser_->setErrorHandler(&errors_);
    }

    DOMDocument* Parse(std::string_view bytes) {
        error_.clear();
        errors_.resetErrors();
        // The parser keeps every document it built until told otherwise: only the last one lives.
        parser_->resetDocumentPool();
        MemBufInputSource source(reinterpret_cast<const XMLByte*>(bytes.data()), bytes.size(), "document");
        try {
            parser_->parse(source);
        } catch (const xml::Refusal& refusal) {
            return Refuse(refusal.reason);
        } catch (const OutOfMemoryException&) {
            return Refuse("the document needs more memory than a document may have");
        } catch (const XMLException& e) {
            return Refuse(xml::MessageOf(e.getMessage()));
        } catch (const DOMException& e) {
            return Refuse(xml::MessageOf(e.getMessage()));
        } catch (const std::bad_alloc&) {
            return Refuse("the document needs more memory than a document may have");
        }
        if (!errors_.Message().empty())
            return Refuse(errors_.Message());
        DOMDocument* document = parser_->getDocument();
        if (!document || !document->getDocumentElement())
            return Refuse("the document holds no element");
        return document;
    }

    DOMDocument* ParseFile(const std::string& path, std::size_t maxBytes) {
        std::string bytes;
        if (std::string reason = xml::ReadWholeFile(path, maxBytes, bytes); !reason.empty()) {
            parser_->resetDocumentPool();
            return Refuse(std::move(reason));
        }
        return Parse(bytes);
    }

    const std::string& Error() const { return error_; }

private:
    DOMDocument* Refuse(std::string reason) {
        error_ = std::move(reason);
        if (error_.empty())
            error_ = "the document is not well-formed XML";
        parser_->resetDocumentPool();
        return nullptr;
    }

    xml::RefusingEntityResolver resolver_;
    xml::FirstErrorHandler errors_;
    SecurityManager security_;
    std::unique_ptr<GuardedDomParser> parser_;
    std::string error_;
};

SafeXmlParser::SafeXmlParser() : impl_(std::make_unique<Impl>()) {}
SafeXmlParser::~SafeXmlParser() = default;

DOMDocument* SafeXmlParser::Parse(std::string_view bytes) {
    return impl_->Parse(bytes);
}

DOMDocument* SafeXmlParser::ParseFile(const std::string& path, std::size_t maxBytes) {
    return impl_->ParseFile(path, maxBytes);
}

const std::string& SafeXmlParser::Error() const {
    return impl_->Error();
}

} // namespace Fnd
