#include <gtest/gtest.h>

#include <regex>
#include <string>

#include "Fnd/NullInterfaceException.h"
#include "Fnd/PathUtils.h"
#include "QL/PresetFieldFactory.h"

namespace QL {
namespace {

const _QLPresetFieldType kAllTypes[] = {
    kQLFieldAutoIncrement, kQLFieldCustomText,   kQLFieldCreationDate,
    kQLFieldIngestDate,    kQLFieldCreationTime, kQLFieldIngestTime,
    kQLFieldFileName,      kQLFieldMetadata,     kQLFieldUserDefinedAutoIncrement};

TEST(PresetField, NewFieldStartsWithTheFirstChoiceOfItsTypeSoWhatIsShownIsWhatIsSaved) {
    for (auto type : kAllTypes) {
        SCOPED_TRACE(type);
        auto field = CreatePresetField(type);
        const auto choices = GetPredefinedFieldValues(type);
        const Fnd::WString expected = choices.empty() ? Fnd::WString() : choices.front();
        EXPECT_EQ(field->GetType(), type);
        EXPECT_EQ(field->GetFormat(), expected);
        EXPECT_EQ(field->GetValue(), expected);
        EXPECT_EQ(field->GetKey(), u"");
        EXPECT_FALSE(field->GetRequired());
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

    auto copy = CreatePresetField(source);
    EXPECT_NE(copy.get(), source.get());
    EXPECT_EQ(copy->GetType(), kQLFieldMetadata);
    EXPECT_EQ(copy->GetKey(), u"scene");
    EXPECT_EQ(copy->GetFormat(), u"12A");
    EXPECT_EQ(copy->GetValue(), u"14B");
    EXPECT_TRUE(copy->GetRequired());

    copy->SetKey(u"take");
    copy->SetFormat(u"1");
    copy->SetRequired(false);
    copy->SetType(kQLFieldCustomText);
    EXPECT_EQ(source->GetKey(), u"scene");
    EXPECT_EQ(source->GetFormat(), u"12A");
    EXPECT_EQ(source->GetValue(), u"14B");
    EXPECT_TRUE(source->GetRequired());
    EXPECT_EQ(source->GetType(), kQLFieldMetadata);
}

TEST(PresetField, CopyOfNullIsAProgrammingFault) {
    EXPECT_THROW(CreatePresetField(Fnd::InterfaceRef<IQLPresetField>()), Fnd::NullInterfaceException);
}

TEST(PredefinedFieldValues, CounterMasksGrowStrictlyInWidth) {
    for (auto type : {kQLFieldAutoIncrement, kQLFieldUserDefinedAutoIncrement}) {
        const auto masks = GetPredefinedFieldValues(type);
        ASSERT_GE(masks.size(), 2u);
        for (std::size_t i = 1; i < masks.size(); ++i)
            EXPECT_GT(masks[i].size(), masks[i - 1].size()) << "type " << type << " entry " << i;
    }
}

TEST(PredefinedFieldValues, CreationAndIngestListsAreEqualPairs) {
    EXPECT_EQ(GetPredefinedFieldValues(kQLFieldCreationDate), GetPredefinedFieldValues(kQLFieldIngestDate));
    EXPECT_EQ(GetPredefinedFieldValues(kQLFieldCreationTime), GetPredefinedFieldValues(kQLFieldIngestTime));
    EXPECT_FALSE(GetPredefinedFieldValues(kQLFieldCreationDate).empty());
    EXPECT_FALSE(GetPredefinedFieldValues(kQLFieldCreationTime).empty());
}

// Patterns are rendered into file names, so their separators must be legal there too.
TEST(PredefinedFieldValues, DatesAndTimesAreMadeOnlyOfTheirTokensAndFileNameSafeSeparators) {
    const std::regex date("^(%[Yymd]|[-_. ])*%[Yymd](%[Yymd]|[-_. ])*$");
    const std::regex time("^(%[HMS]|[-_. ])*%[HMS](%[HMS]|[-_. ])*$");
    for (const auto& pattern : GetPredefinedFieldValues(kQLFieldCreationDate)) {
        EXPECT_TRUE(std::regex_match(Fnd::ToUTF8(pattern), date)) << Fnd::ToUTF8(pattern);
        EXPECT_TRUE(Fnd::PathUtils::IsValidFileName(pattern)) << Fnd::ToUTF8(pattern);
    }
    for (const auto& pattern : GetPredefinedFieldValues(kQLFieldCreationTime)) {
        EXPECT_TRUE(std::regex_match(Fnd::ToUTF8(pattern), time)) << Fnd::ToUTF8(pattern);
        EXPECT_TRUE(Fnd::PathUtils::IsValidFileName(pattern)) << Fnd::ToUTF8(pattern);
    }
}

TEST(PredefinedFieldValues, TypesWithoutChoicesAnswerEmptyLists) {
    for (auto type : {kQLFieldCustomText, kQLFieldFileName, kQLFieldMetadata})
        EXPECT_TRUE(GetPredefinedFieldValues(type).empty()) << type;
}

} // namespace
} // namespace QL
