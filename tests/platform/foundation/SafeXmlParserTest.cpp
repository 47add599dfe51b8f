// The guarded parser and reader at their bounds; the hostile documents themselves are tried
// against every reader in the readers' own suites.
#include <gtest/gtest.h>

#include <xercesc/dom/DOM.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>

#include "Fnd/SafeXmlParser.h"
#include "Fnd/SafeXmlReader.h"
#include "support/TempTree.h"

namespace igd::test {
namespace {

// depth elements nested, the innermost empty as <a/> so that its lack of an end event counts.
std::string Nested(unsigned depth) {
    std::string xml;
    for (unsigned i = 1; i < depth; ++i)
        xml += "<a>";
    xml += "<a/>";
    for (unsigned i = 1; i < depth; ++i)
        xml += "</a>";
    return xml;
}

class CountingHandler : public xercesc::DefaultHandler {
public:
    void startElement(const XMLCh*, const XMLCh*, const XMLCh*, const xercesc::Attributes&) override { ++elements; }
    int elements = 0;
};

TEST(SafeXml, ParserAndReaderTakeTheDeepestAllowedNestingAndRefuseOneLevelMore) {
    Fnd::SafeXmlParser parser;
    CountingHandler handler;
    Fnd::SafeXmlReader reader(handler);
    // Many empty siblings at the deepest level: an empty element must leave its level.
    const std::string siblings = "<r>" + std::string(Nested(Fnd::kMaxXmlDepth - 1)) + "<b/><b/><b/></r>";
    for (const std::string& allowed : {Nested(Fnd::kMaxXmlDepth), siblings}) {
        EXPECT_NE(parser.Parse(allowed), nullptr) << parser.Error();
        EXPECT_EQ(reader.Parse(allowed), "");
    }
    const std::string tooDeep = Nested(Fnd::kMaxXmlDepth + 1);
    EXPECT_EQ(parser.Parse(tooDeep), nullptr);
    EXPECT_EQ(parser.Error(), "line 1, column 773: elements nest deeper than 256 levels");
    EXPECT_EQ(reader.Parse(tooDeep), "line 1, column 773: elements nest deeper than 256 levels");
    // A refusal leaves each ready for the next document.
    ASSERT_NE(parser.Parse("<r>&amp;&#x41;</r>"), nullptr) << parser.Error();
    EXPECT_EQ(std::u16string(parser.Parse("<r>&amp;&#x41;</r>")->getDocumentElement()->getTextContent()), u"&A");
    handler.elements = 0;
    EXPECT_EQ(reader.Parse("<r><s/></r>"), "");
    EXPECT_EQ(handler.elements, 2);
}

TEST(SafeXml, AFileIsReadUpToItsSizeBoundAndItsProblemNamed) {
    TempTree tree;
    Fnd::SafeXmlParser parser;
    const std::string fits = tree.NativePath("fits.xml");
    tree.MakeFile("fits.xml", "<r>" + std::string(100, ' ') + "</r>");
    EXPECT_NE(parser.ParseFile(fits, 107), nullptr) << parser.Error();
    EXPECT_EQ(parser.ParseFile(fits, 106), nullptr);
    EXPECT_EQ(parser.Error(), "it is larger than 106 bytes, more than a file of its kind can be");
    EXPECT_EQ(parser.ParseFile(tree.NativePath("missing.xml"), 100), nullptr);
    EXPECT_EQ(parser.Error(), "it cannot be opened (No such file or directory)");
    tree.MakeFolder("folder.xml");
    EXPECT_EQ(parser.ParseFile(tree.NativePath("folder.xml"), 100), nullptr);
    EXPECT_EQ(parser.Error(), "it is not a file");
}

} // namespace
} // namespace igd::test
