// Presets and their fields in memory: what a new field shows, and copies that never share state.
#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <utility>

#include "Fnd/NullInterfaceException.h"
#include "Fnd/PathUtils.h"
#include "PresetTestSupport.h"
#include "QL/PresetObject.h"

namespace igd::test {
namespace {

using namespace QL;

// Type, key, format, value and required flag in one line, so a copy is compared whole.
std::string Whole(const IQLPresetField& field) {
    return std::to_string(field.GetType()) + "|" + Fnd::ToUTF8(field.GetKey()) + "|" +
           Fnd::ToUTF8(field.GetFormat()) + "|" + Fnd::ToUTF8(field.GetValue()) + "|" +
           (field.GetRequired() ? "required" : "optional");
}

TEST(PresetField, ValueFollowsTheFormatUntilSetValueAndSetValueNeverTouchesTheFormat) {
    auto field = Field(kQLFieldCustomText, u"Roll_");
    EXPECT_EQ(field->GetValue(), u"Roll_");
    field->SetValue(u"typed");
    EXPECT_EQ(field->GetFormat(), u"Roll_");
    EXPECT_EQ(field->GetValue(), u"typed");
    field->SetFormat(u"Day_");
    EXPECT_EQ(field->GetValue(), u"Day_");
}

// Patterns are rendered into file names, so their separators must be legal there too.
TEST(PresetField, DatesAndTimesOfferOnlyTheirTokensAndFileNameSafeSeparators) {
    const std::regex date("^(%[Yymd]|[-_. ])*%[Yymd](%[Yymd]|[-_. ])*$");
    const std::regex time("^(%[HMS]|[-_. ])*%[HMS](%[HMS]|[-_. ])*$");
    for (const auto& [type, tokens] :
         {std::pair{kQLFieldCreationDate, date}, std::pair{kQLFieldCreationTime, time}})
        for (const auto& pattern : GetPredefinedFieldValues(type)) {
            EXPECT_TRUE(std::regex_match(Fnd::ToUTF8(pattern), tokens)) << Fnd::ToUTF8(pattern);
            EXPECT_TRUE(Fnd::PathUtils::IsValidFileName(pattern)) << Fnd::ToUTF8(pattern);
        }
}

// A session edits a clone while the listing keeps the original: nothing may be shared.
TEST(PresetObject, ACloneIsDeepAndKeepsNamePathAndOwnershipButNotTheIdentity) {
    auto source = PresetObject::Create(kQLPresetCategoryMetadata, u"Production",
                                       {Field(kQLFieldMetadata, u"", u"scene", true),
                                        Field(kQLFieldMetadata, u"Kim", u"director")});
    source->SetPath(u"/home/u/.config/igd/presets/metadata/Production.igdmetadata");
    source->SetUserPreset(false);
    source->GetFields()[1]->SetValue(u"Lee"); // a typed value differs from the format
    const std::string before = Whole(*source->GetFields()[0]) + Whole(*source->GetFields()[1]);

    auto copy = source->ClonePreset(false);
    EXPECT_EQ(copy->GetName(true), u"Production");
    EXPECT_EQ(copy->GetPath(), source->GetPath());
    EXPECT_FALSE(copy->IsUserPreset());
    EXPECT_NE(copy->GetPresetID(), source->GetPresetID());
    EXPECT_EQ(source->ClonePreset(true)->GetPresetID(), source->GetPresetID());
    const auto copyFields = copy->GetFields();
    ASSERT_EQ(copyFields.size(), 2u);
    EXPECT_EQ(Whole(*copyFields[0]) + Whole(*copyFields[1]), before);

    copyFields[0]->SetKey(u"take");
    copyFields[0]->SetRequired(false);
    copyFields[1]->SetFormat(u"Ann");
    copyFields[1]->SetValue(u"typed");
    copyFields[1]->SetType(kQLFieldCustomText);
    copy->SetName(u"Other");
    copy->SetFields({});
    EXPECT_EQ(Whole(*source->GetFields()[0]) + Whole(*source->GetFields()[1]), before);
    EXPECT_EQ(source->GetName(true), u"Production");

    // A null field is a programming fault and leaves the list as it was.
    EXPECT_THROW(source->SetFields({Field(kQLFieldMetadata, u"a", u"k"), nullptr}), Fnd::NullInterfaceException);
    EXPECT_EQ(source->GetFields().size(), 2u);
}

} // namespace
} // namespace igd::test
