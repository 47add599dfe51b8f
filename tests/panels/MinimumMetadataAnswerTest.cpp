// The panel's answer as the library reads it: the status, and what the document holds.
#include <gtest/gtest.h>

#include "panels/MinimumMetadataAnswer.h"

namespace igd::test {
namespace {

using IGD::IsMinimumMetadataAnswerOK;
using IGD::ReadMinimumMetadataAnswer;

TEST(MinimumMetadataAnswerTest, StatusPassesOnlyForOKInAnyCaseOfAToZ) {
    const struct {
        const char16_t* data;
        bool ok;
    } cases[] = {
        {u"<a status=\"OK\"/>", true},
        {u"<a status=\"ok\"/>", true},
        {u"<a status=\"oK\"/>", true},
        {u"<a status=\"Ok \"/>", false},
        {u"<a status=\"OKAY\"/>", false},
        {u"<a status=\"Cancel\"/>", false},
        {u"<a/>", false},
        // The status is the document element's own, not a descendant's.
        {u"<a><b status=\"OK\"/></a>", false},
        // Dotless i and the Kelvin sign fold to Latin letters in some locales; not here.
        {u"<a status=\"\u212A\"/>", false},
        {u"<a status=\"OK\">", false},
    };
    for (const auto& c : cases)
        EXPECT_EQ(IsMinimumMetadataAnswerOK(c.data), c.ok) << Fnd::ToUTF8(c.data);
}

QL::MinimumMetadataResult Read(const std::u16string& data) {
    QL::MinimumMetadataResult result;
    ReadMinimumMetadataAnswer(data, result);
    return result;
}

TEST(MinimumMetadataAnswerTest, NamespacesKeepDocumentOrderAttributesAndTheFirstValueOfAName) {
    const auto result = Read(uR"(<any status="OK"><minimumMetadata>
        <namespace URI="http://ns.example/shoot/" prefix="shoot">
          <scene>4B</scene><take>3</take><scene>9Z</scene><camera/><slate><b>x</b></slate>
        </namespace>
        <namespace><note>plain</note></namespace>
        <Namespace URI="ignored"><x>1</x></Namespace>
      </minimumMetadata></any>)");
    ASSERT_EQ(result.namespaces.size(), 2u);
    const auto& shoot = *result.namespaces.front();
    EXPECT_EQ(shoot.schemaNamespace, u"http://ns.example/shoot/");
    EXPECT_EQ(shoot.presetName, u"shoot");
    const std::map<Fnd::WString, Fnd::WString> expected{
        {u"scene", u"4B"}, {u"take", u"3"}, {u"camera", u""}, {u"slate", u""}};
    EXPECT_EQ(shoot.values, expected);
    const auto& plain = *result.namespaces.back();
    EXPECT_EQ(plain.schemaNamespace, u"");
    EXPECT_EQ(plain.presetName, u"");
    EXPECT_EQ(plain.values.at(u"note"), u"plain");
}

TEST(MinimumMetadataAnswerTest, KeywordsAreSortedUniqueAndEmptyOnesAddNothing) {
    const auto result = Read(uR"(<a><minimumMetadata><keywords>
        <keyword>rain</keyword><keyword>night</keyword><keyword>rain</keyword><keyword/>
        <Keyword>case</Keyword><tag>other</tag></keywords></minimumMetadata></a>)");
    EXPECT_EQ(result.keywords, (std::set<Fnd::WString>{u"night", u"rain"}));
}

TEST(MinimumMetadataAnswerTest, FlagsAreTrueOnlyForExactlyTrue) {
    const struct {
        const char16_t* text;
        bool value;
    } cases[] = {{u"true", true}, {u"True", false}, {u" true", false}, {u"1", false}, {u"", false}};
    for (const auto& c : cases) {
        const std::u16string data = std::u16string(u"<a><minimumMetadata><storeEmptyInfo>") + c.text +
                                    u"</storeEmptyInfo><applyToAllDestinations>" + c.text +
                                    u"</applyToAllDestinations></minimumMetadata></a>";
        const auto result = Read(data);
        EXPECT_EQ(result.storeEmptyInfo, c.value) << Fnd::ToUTF8(c.text);
        EXPECT_EQ(result.applyToAllDestinations, c.value) << Fnd::ToUTF8(c.text);
    }
}

TEST(MinimumMetadataAnswerTest, AnUnreadableDocumentOrAMisplacedHolderAddsNothing) {
    for (const char16_t* data : {u"", u"<a><minimumMetadata><keywords><keyword>x</keyword>", u"not xml",
                                 u"<minimumMetadata><keywords><keyword>x</keyword></keywords></minimumMetadata>",
                                 u"<a><b><minimumMetadata><storeEmptyInfo>true</storeEmptyInfo></minimumMetadata></b></a>",
                                 u"<!DOCTYPE a [<!ENTITY e \"x\">]><a><minimumMetadata/></a>"}) {
        const auto result = Read(data);
        EXPECT_TRUE(result.namespaces.empty() && result.keywords.empty() && !result.storeEmptyInfo)
            << Fnd::ToUTF8(data);
    }
}

TEST(MinimumMetadataAnswerTest, ReadingAddsToWhatTheResultHolds) {
    QL::MinimumMetadataResult result;
    result.keywords.insert(u"earlier");
    ReadMinimumMetadataAnswer(u"<a><minimumMetadata><keywords><keyword>later</keyword></keywords></minimumMetadata></a>",
                              result);
    EXPECT_EQ(result.keywords, (std::set<Fnd::WString>{u"earlier", u"later"}));
}

} // namespace
} // namespace igd::test
