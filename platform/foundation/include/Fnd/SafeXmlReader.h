#pragma once
// The event-driven twin of SafeXmlParser, for readers that build their own tree: the same
// refusals (no fetching, no declared entities, no nesting deeper than kMaxXmlDepth), with the
// document's events handed to a content handler as they are read.
#include <memory>
#include <string>
#include <string_view>

#include <xercesc/sax2/ContentHandler.hpp>

#include "Fnd/XmlParser.h"

namespace Fnd {

class SafeXmlReader {
public:
    // The handler must outlive the reader. Exceptions it throws pass through Parse.
    explicit SafeXmlReader(xercesc::ContentHandler& handler);
    ~SafeXmlReader();
    SafeXmlReader(const SafeXmlReader&) = delete;
    SafeXmlReader& operator=(const SafeXmlReader&) = delete;

    // Empty when the whole document was read; else why it was refused ("line 3, column 7: ..."),
    // the handler having seen the events before that point.
    std::string Parse(std::string_view bytes);

private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

} // namespace Fnd
