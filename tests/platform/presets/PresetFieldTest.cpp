#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <utility>

#include "Fnd/NullInterfaceException.h"
#include "Fnd/PathUtils.h"
#include "QL/PresetFieldFactory.h"

namespace igd::test {
namespace {

using namespace QL;

const _QLPresetFieldType kAllTypes[] = {
    kQLFieldAutoIncrement, kQLFieldCustomText,   kQLFieldCreationDate,
    kQLFieldIngestDate,    kQLFieldCreationTime, kQLFieldIngestTime,
    kQLFieldFileName,      kQLFieldMetadata,     kQLFieldUserDefinedAutoIncrement};

// Type, key, format, value and required flag in one line, so a copy is compared whole.
std::string Whole(const IQLPresetField& field) {
    return std::to_string(field.GetType()) + "|" + Fnd::ToUTF8(field.GetKey()) + "|" +
           Fnd::ToUTF8(field.GetFormat()) + "|" + Fnd::ToUTF8(field.GetValue()) + "|" +
           (field.GetRequired() ? "required" : "optional");
}

TEST(PresetField, NewFieldStartsWithTheFirstChoiceOfItsTypeSoWhatIsShownIsWhatIsSaved) {
    for (auto type : kAllTypes) {
        SCOPED_TRACE(type);
        auto field = CreatePresetField(type);
        const auto choices = GetPredefinedFieldValues(type);
        const Fnd::WString expected = choices.empty() ? Fnd::WString() : choices.front();
        EXPECT_EQ(Whole(*field), std::to_string(type) + "||" + Fnd::ToUTF8(expected) + "|" +
                                     Fnd::ToUTF8(expected) + "|optional");
    }
}

TEST(PresetField, ValueFollowsTheFormatUntilSetValueAndSetValueNeverTouchesTheFormat) {
    auto field = CreatePresetField(kQLFieldCustomText);
    field->SetFormat(u"Roll_");
    EXPECT_EQ(field->GetValue(), u"Roll_");
    field->SetValue(u"typed");
    EXPECT_EQ(field->GetFormat(), u"Roll_");
    EXPECT_EQ(field->GetValue(), u"typed");
    field->SetFormat(u"Day_");
    EXPECT_EQ(field->GetValue(), u"Day_");
    field->SetType(kQLFieldIngestDate);
    EXPECT_EQ(field->GetType(), kQLFieldIngestDate);
    EXPECT_EQ(field->GetFormat(), u"Day_");
}

TEST(PresetField, CopyKeepsAllFiveThingsAndIsIndependent) {
    auto source = CreatePresetField(kQLFieldMetadata);
    source->SetKey(u"scene");
    source->SetFormat(u"12A");
    source->SetValue(u"14B"); // a typed value differs from the format
    source->SetRequired(true);
    const std::string before = Whole(*source);

    auto copy = CreatePresetField(source);
    EXPECT_NE(copy.get(), source.get());
    EXPECT_EQ(Whole(*copy), before);
    copy->SetKey(u"take");
    copy->SetFormat(u"1");
    copy->SetRequired(false);
    copy->SetType(kQLFieldCustomText);
    EXPECT_EQ(Whole(*source), before);
}

// Patterns are rendered into file names, so their separators must be legal there too.
TEST(PredefinedFieldValues, DatesAndTimesAreMadeOnlyOfTheirTokensAndFileNameSafeSeparators) {
    const std::regex date("^(%[Yymd]|[-_. ])*%[Yymd](%[Yymd]|[-_. ])*$");
    const std::regex time("^(%[HMS]|[-_. ])*%[HMS](%[HMS]|[-_. ])*$");
    for (const auto& [type, tokens] :
         {std::pair{kQLFieldCreationDate, date}, std::pair{kQLFieldCreationTime, time}})
        for (const auto& pattern : GetPredefinedFieldValues(type)) {
            EXPECT_TRUE(std::regex_match(Fnd::ToUTF8(pattern), tokens)) << Fnd::ToUTF8(pattern);
            EXPECT_TRUE(Fnd::PathUtils::IsValidFileName(pattern)) << Fnd::ToUTF8(pattern);
        }
}

} // namespace
} // namespace igd::test
