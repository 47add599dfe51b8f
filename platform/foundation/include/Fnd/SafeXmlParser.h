#pragma once
// The parser every XML document of the project is read with, as a tree. Whoever wrote the
// document, reading it never fetches anything (no external DTD, entity or schema), never expands
// an entity the document declares (a declaration is refused, so an expansion bomb fails at its
// first line), and refuses elements nested deeper than kMaxXmlDepth. A refusal or a parse error
// comes back as a reason, never as an exception.
#include <memory>
#include <string>
#include <string_view>

#include <xercesc/dom/DOMDocument.hpp>

#include "Fnd/XmlParser.h"

namespace Fnd {

class SafeXmlParser {
public:
    SafeXmlParser();
    ~SafeXmlParser();
    SafeXmlParser(const SafeXmlParser&) = delete;
    SafeXmlParser& operator=(const SafeXmlParser&) = delete;

    // The document, owned by the parser and valid until its next parse; null when refused, with
    // the reason in Error(). A document without a root element is refused.
    xercesc::DOMDocument* Parse(std::string_view bytes);
    // The same for a file, refused also when it cannot be read or is larger than maxBytes.
    xercesc::DOMDocument* ParseFile(const std::string& path, std::size_t maxBytes);

    // Why the last parse was refused ("line 3, column 7: ..."); empty after a success.
    const std::string& Error() const;

private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

} // namespace Fnd
