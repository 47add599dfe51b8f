#include <gtest/gtest.h>

#include <string>

#include "QL/PresetFileReader.h"
#include "QL/PresetFileWriter.h"
#include "support/HostileXml.h"

namespace igd::test {
namespace {

using namespace QL;

PresetDocument TrickyRenameDocument() {
    PresetDocument document;
    document.category = kQLPresetCategoryRename;
    document.name = u"Tournage <A&B> \"été\" 日本";
    document.fields = {
        {kQLFieldCustomText, u"", u"  two blanks both ends  ", false},
        {kQLFieldIngestDate, u"", u"%Y-%m-%d", false},
        {kQLFieldCustomText, u"", u"", false},
        {kQLFieldFileName, u"", u"", false},
        {kQLFieldUserDefinedAutoIncrement, u"", u"0001", false},
        {kQLFieldCustomText, u"", u"&amp; ]]> <x/> 🎬", false},
    };
    return document;
}

TEST(PresetFileFormat, RoundTripsEveryTypeKeyFormatAndRequiredFlag) {
    PresetDocument metadata;
    metadata.category = kQLPresetCategoryMetadata;
    metadata.name = u"Rights";
    metadata.fields = {{kQLFieldMetadata, u"creator", u"", true},
                       {kQLFieldMetadata, u"usageTerms", u"CC BY", false}};
    for (const PresetDocument& document : {TrickyRenameDocument(), metadata}) {
        const auto read = ParsePresetDocument(SerializePresetDocument(document));
        ASSERT_TRUE(read) << read.error;
        EXPECT_EQ(*read.document, document);
    }
    // The service refuses such content first (see the save tests); writing it is the caller's fault.
    metadata.fields[1].format = u"bell\u0007";
    EXPECT_THROW(SerializePresetDocument(metadata), std::invalid_argument);
}

const char* const kHead = R"(<?xml version="1.0" encoding="UTF-8"?>)";

std::string Preset(const std::string& attributes, const std::string& body) {
    return std::string(kHead) + "<preset " + attributes + ">" + body + "</preset>";
}

const std::string kGood = R"(schema="igd.preset" version="1" category="rename")";
const std::string kName = "<name>N</name>";

struct BadFile {
    const char* what;
    std::string bytes;
    const char* reason; // a part of the text the user reads
};

TEST(PresetFileFormat, BadFilesAreRefusedWithAReasonAUserCanActOn) {
    const std::string whole = SerializePresetDocument(TrickyRenameDocument());
    const BadFile cases[] = {
        {"empty", "", "is empty"},
        {"truncated", whole.substr(0, whole.size() / 2), "truncated or not well-formed XML"},
        {"not XML", "Date_Counter,ingestDate,_,0001\n", "not well-formed XML"},
        {"other XML", std::string(kHead) + "<layout/>", "root element is <layout>"},
        {"other schema", Preset(R"(schema="x.other" version="1" category="rename")", kName),
         "schema \"x.other\""},
        {"newer version", Preset(R"(schema="igd.preset" version="2" category="rename")", kName),
         "newer version of IGD (format 2"},
        {"no version", Preset(R"(schema="igd.preset" category="rename")", kName),
         "no readable format version"},
        {"version zero", Preset(R"(schema="igd.preset" version="0" category="rename")", kName),
         "invalid format version"},
        {"unknown category", Preset(R"(schema="igd.preset" version="1" category="audio")", kName),
         "unknown category \"audio\""},
        {"no name", Preset(kGood, "<field type=\"fileName\"/>"), "no preset name"},
        {"unknown type", Preset(kGood, kName + "<field type=\"fileName\"/><field type=\"weekday\"/>"),
         "field 2 has an unknown type \"weekday\""},
        {"metadata in rename", Preset(kGood, kName + "<field type=\"metadata\"/>"),
         "which a rename preset cannot hold"},
        {"rename in metadata",
         Preset(R"(schema="igd.preset" version="1" category="metadata")", kName + "<field "
                                                                                  "type=\"customText\"/"
                                                                                  ">"),
         "which a metadata preset cannot hold"},
        {"bad required", Preset(kGood, kName + "<field type=\"fileName\" required=\"yes\"/>"),
         "required flag of \"yes\""},
        {"too large", std::string(kMaxPresetFileSize + 1, ' '), "larger than any preset file"},
    };
    for (const auto& bad : cases) {
        const auto result = ParsePresetDocument(bad.bytes);
        EXPECT_FALSE(result) << bad.what;
        EXPECT_NE(result.error.find(bad.reason), std::string::npos)
            << bad.what << ": the reason was \"" << result.error << "\"";
    }
}

TEST(PresetFileFormat, HostileXmlIsRefusedAndNothingOutsideIsRead) {
    const HostileXmlWorld world;
    const auto presetNamed = [](const std::string& doctype, const std::string& name) {
        return std::string(kHead) + doctype + "<preset " + kGood + "><name>" + name + "</name></preset>";
    };
    for (const HostileXml& c : world.Documents(presetNamed)) {
        SCOPED_TRACE(c.what);
        const auto result = ParsePresetDocument(c.xml);
        EXPECT_FALSE(result);
        EXPECT_NE(result.error.find(c.reason), std::string::npos) << result.error;
        EXPECT_EQ(result.error.find(HostileXmlWorld::kSecret), std::string::npos);
    }
    const auto outsideDtd = ParsePresetDocument(world.WithOutsideDtd(presetNamed, "Day"));
    ASSERT_TRUE(outsideDtd) << outsideDtd.error;
    EXPECT_EQ(outsideDtd.document->name, u"Day");
    EXPECT_FALSE(world.WasFetched());
}

TEST(PresetFileFormat, ReadingAMissingFileSaysSo) {
    const auto result = ReadPresetFile("/nonexistent/igd/none.igdrename");
    EXPECT_FALSE(result);
    EXPECT_NE(result.error.find("cannot be opened"), std::string::npos) << result.error;
}

TEST(PresetFileFormat, UnknownElementsBesideFieldsAreIgnoredWithinAVersion) {
    const auto result = ParsePresetDocument(Preset(
        kGood, kName + "<note>for later</note><field type=\"ingestTime\"><format>%H%M</format></field>"));
    ASSERT_TRUE(result) << result.error;
    ASSERT_EQ(result.document->fields.size(), 1u);
    EXPECT_EQ(result.document->fields[0], (PresetFieldRecord{kQLFieldIngestTime, u"", u"%H%M", false}));
}

} // namespace
} // namespace igd::test
